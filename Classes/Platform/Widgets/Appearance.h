#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>

class QPainter;

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

// The keyboard focus as every control shows it: a tinted ring just inside the given outline.
void drawFocusRing(QPainter& painter, const QRectF& outline, qreal radius);

// The process-wide tint of segmented controls, black once the settings screen has set it.
QColor segmentedControlTint();
void setSegmentedControlTint(const QColor& color);

} // namespace pomwick::Appearance
