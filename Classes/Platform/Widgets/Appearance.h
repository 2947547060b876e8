#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>

class QPainter;
class QWidget;

namespace pomwick::Appearance {

// The look shared by the controls: a phone settings app's colors and its system font at sizes
// given in points (logical pixels).
QColor tint();
QColor barBackground();
QColor hairline();
QColor groupedBackground();
QColor sectionHeaderText();
QColor selectedCellBackground();
QFont systemFont(int points, QFont::Weight weight = QFont::Normal);

// The keyboard focus as every control shows it: a tinted ring in a white one just inside the
// given outline, drawn only while the user steers with the keyboard (showsFocusRing).
void drawFocusRing(QPainter& painter, const QRectF& outline, qreal radius);
bool showsFocusRing(const QWidget* widget);

// The thickness of a hairline in points: one pixel of the painter's device, at any scale.
qreal hairlineWidth(const QPainter& painter);

// The process-wide tint of segmented controls, black once the settings screen has set it.
QColor segmentedControlTint();
void setSegmentedControlTint(const QColor& color);

} // namespace pomwick::Appearance
