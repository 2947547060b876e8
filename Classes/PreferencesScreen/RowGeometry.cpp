#include "RowGeometry.h"

#include <cmath>
#include <limits>

namespace pomwick::RowGeometry {
namespace {
qreal truncated(qreal value) {
    return std::trunc(value);
}
} // namespace

QRectF switchFrame(QSizeF cell, QSizeF switchSize) {
    return {truncated(cell.width() - (switchSize.width() + 20)),
            truncated((cell.height() - switchSize.height()) / 2), switchSize.width(),
            switchSize.height()};
}

QRectF colorSwatchFrame(QSizeF cell) {
    const qreal side = truncated(cell.height() - 10);
    return {cell.width() - side - 15, truncated((cell.height() - side) / 2), side, side};
}

QRectF sliderFrame(QSizeF cell, qreal labelTextWidth, qreal iconWidth, qreal sliderHeight) {
    const qreal x0 = truncated(truncated(labelTextWidth) + 40 + iconWidth);
    return {x0, truncated((cell.height() - sliderHeight) / 2), cell.width() - (x0 + 10),
            sliderHeight};
}

QRectF textFieldFrame(QSizeF cell, qreal labelTextWidth, qreal indentationWidth) {
    const qreal x0 = truncated(2 * indentationWidth + labelTextWidth + 50);
    return {x0, 0, cell.width() - (x0 + 20), cell.height()};
}

QRectF segmentedControlFrame(QSizeF cell) {
    const qreal height = truncated(cell.height() - 10);
    return {truncated(cell.width() - 120), truncated((cell.height() - height) / 2), 100, height};
}

int wholePercent(float fraction) {
    const float percent = fraction * 100.0f;
    // Stored fractions are not clamped: saturate as the device's conversion does, rather than
    // overflow.
    if (std::isnan(percent))
        return 0;
    if (percent >= 2147483648.0f)
        return std::numeric_limits<int>::max();
    if (percent <= -2147483648.0f)
        return std::numeric_limits<int>::min();
    return static_cast<int>(percent);
}

} // namespace pomwick::RowGeometry
