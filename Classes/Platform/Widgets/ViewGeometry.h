#pragma once

#include <QRectF>
#include <QWidget>

namespace pomwick {

// A view's frame as the screen computes it, fractions included (3 x 60.5 = 181.5); the widget is
// placed at the rounded rectangle. Values that are not finite are placed at 0.
void setFrame(QWidget* view, const QRectF& frame);
QRectF frame(const QWidget* view);
QRectF bounds(const QWidget* view);

// Tags: an integer a view carries; viewWithTag finds the first child with it, in children order.
void setTag(QWidget* view, int tag);
int tag(const QWidget* view);
QWidget* viewWithTag(const QWidget* parent, int tag);

// Opacity of the view and everything in it; 1 removes the effect.
void setAlpha(QWidget* view, qreal alpha);
qreal alpha(const QWidget* view);

void setBackgroundColor(QWidget* view, const QColor& color);
// The color of a label's or a field's text.
void setTextColor(QWidget* view, const QColor& color);
QColor textColor(const QWidget* view);

} // namespace pomwick
