#pragma once

#include "PomwickPlatformExport.h"

#include <QRectF>
#include <QWidget>

namespace pomwick {

// A view's frame, in left-to-right coordinates of its parent: placed at the rounded rectangle
// (mirrored in a right-to-left parent), and read back as placed. Whoever computes with fractions
// (3 x 60.5 = 181.5) keeps them. Values that are not finite are placed at 0.
POMWICK_PLATFORM_EXPORT void setFrame(QWidget* view, const QRectF& frame);
POMWICK_PLATFORM_EXPORT QRectF frame(const QWidget* view);
POMWICK_PLATFORM_EXPORT QRectF bounds(const QWidget* view);

// Tags: an integer a view carries; viewWithTag finds the first child with it, in children order.
POMWICK_PLATFORM_EXPORT void setTag(QWidget* view, int tag);
POMWICK_PLATFORM_EXPORT int tag(const QWidget* view);
POMWICK_PLATFORM_EXPORT QWidget* viewWithTag(const QWidget* parent, int tag);

// Opacity of the view and everything in it; 1 removes the effect.
POMWICK_PLATFORM_EXPORT void setAlpha(QWidget* view, qreal alpha);
POMWICK_PLATFORM_EXPORT qreal alpha(const QWidget* view);

POMWICK_PLATFORM_EXPORT void setBackgroundColor(QWidget* view, const QColor& color);
// The color of a label's or a field's text.
POMWICK_PLATFORM_EXPORT void setTextColor(QWidget* view, const QColor& color);
POMWICK_PLATFORM_EXPORT QColor textColor(const QWidget* view);
// The same by one of Appearance's colors, looked up again whenever the look turns light or dark.
POMWICK_PLATFORM_EXPORT void setBackgroundColor(QWidget* view, QColor (*lookup)());
POMWICK_PLATFORM_EXPORT void setTextColor(QWidget* view, QColor (*lookup)());

} // namespace pomwick
