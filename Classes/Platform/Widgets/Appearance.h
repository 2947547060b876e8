#pragma once

#include "PomwickPlatformExport.h"

#include <QColor>
#include <QFont>
#include <QRectF>

class QPainter;
class QWidget;

namespace pomwick::Appearance {

// The look shared by the controls: a phone settings app's colors and its system font at sizes
// given in points (logical pixels).
POMWICK_PLATFORM_EXPORT QColor tint();
POMWICK_PLATFORM_EXPORT QColor barBackground();
POMWICK_PLATFORM_EXPORT QColor hairline();
POMWICK_PLATFORM_EXPORT QColor groupedBackground();
POMWICK_PLATFORM_EXPORT QColor sectionHeaderText();
POMWICK_PLATFORM_EXPORT QColor selectedCellBackground();
POMWICK_PLATFORM_EXPORT QFont systemFont(int points, QFont::Weight weight = QFont::Normal);

// The keyboard focus as every control shows it: a tinted ring in a white one just inside the
// given outline, drawn only while the user steers with the keyboard (showsFocusRing).
POMWICK_PLATFORM_EXPORT void drawFocusRing(QPainter& painter, const QRectF& outline, qreal radius);
POMWICK_PLATFORM_EXPORT bool showsFocusRing(const QWidget* widget);

// The thickness of a hairline in points: one pixel of the painter's device, at any scale.
POMWICK_PLATFORM_EXPORT qreal hairlineWidth(const QPainter& painter);

// The process-wide tint of segmented controls, black once the settings screen has set it.
POMWICK_PLATFORM_EXPORT QColor segmentedControlTint();
POMWICK_PLATFORM_EXPORT void setSegmentedControlTint(const QColor& color);

} // namespace pomwick::Appearance
