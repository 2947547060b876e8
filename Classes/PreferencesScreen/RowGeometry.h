#pragma once

#include <QRectF>
#include <QSizeF>

namespace pomwick::RowGeometry {

// Where the settings rows place their controls, from the cell's size. Every "truncated" of the
// layout is a truncation toward zero to whole points.

QRectF switchFrame(QSizeF cell, QSizeF switchSize);
QRectF colorSwatchFrame(QSizeF cell);
// The slider starts after the measured label (a fixed text, so that it does not move while the
// label changes) and the icon.
QRectF sliderFrame(QSizeF cell, qreal labelTextWidth, qreal iconWidth, qreal sliderHeight);
QRectF textFieldFrame(QSizeF cell, qreal labelTextWidth, qreal indentationWidth);
QRectF segmentedControlFrame(QSizeF cell);

// "Alpha: %i%%" and "Position: %i%%, %i%%": the float product truncated toward zero.
int wholePercent(float fraction);

} // namespace pomwick::RowGeometry
