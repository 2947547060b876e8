// The notice's layout: indicator, label and details stacked in a centered panel.
#include "NoticeOverlay.h"
#include "TextDrawing.h"
#include "ViewGeometry.h"
#include "ZRProgressHUD.h"

#include <QFontMetricsF>
#include <cmath>

namespace pomwick {
namespace {

// The wrapped text's size within maxWidth, cut to the whole lines that fit in maxHeight. The width
// is rounded up so that the label, placed on whole pixels, wraps its text the same way.
QSizeF wrappedTextSize(const QString& text, const QFont& font, qreal maxWidth, qreal maxHeight) {
    if (!(maxWidth > 0) || !(maxHeight > 0))
        return {0, 0};
    const QFontMetricsF metrics(font);
    const QRectF needed =
        metrics.boundingRect(QRectF(0, 0, maxWidth, maxHeight), Qt::TextWordWrap, text);
    const qreal lineHeight = metrics.lineSpacing();
    const qreal height = needed.height() <= maxHeight
                             ? needed.height()
                             : std::floor(maxHeight / lineHeight) * lineHeight;
    return {std::min(std::ceil(needed.width()), maxWidth), height};
}

} // namespace

void ZRProgressHUD::layoutSubviews() {
    needsLayout_ = false;
    if (superview_)
        overlay_->setGeometry(superview_->rect());
    // In landscape a window's notice lays out in its turned bounds.
    const int orientation = interfaceOrientation();
    const bool turned =
        superview_ && superview_->isWindow() && (orientation == 3 || orientation == 4);
    const QSizeF bounds = turned ? QSizeF(overlay_->size()).transposed() : QSizeF(overlay_->size());
    const qreal w = bounds.width();
    const qreal h = bounds.height();
    const qreal m = margin_;
    const qreal maxWidth = w - 4 * m;

    QSizeF indicatorSize = indicator_ ? frame(indicator_).size() : QSizeF(0, 0);
    indicatorSize.setWidth(std::min(indicatorSize.width(), maxWidth));
    QSizeF labelSize(0, 0);
    if (!labelText_.isEmpty()) {
        labelSize = sizeWithAttributes(labelText_, labelFont_);
        labelSize.setWidth(std::min(labelSize.width(), maxWidth));
    }
    const bool indicatorOrLabel = indicatorSize.height() > 0 || labelSize.height() > 0;
    qreal totalWidth = std::max(indicatorSize.width(), labelSize.width());
    qreal totalHeight = indicatorSize.height() + labelSize.height();
    if (indicatorSize.height() > 0 && labelSize.height() > 0)
        totalHeight += padding;

    const qreal remainingHeight = h - totalHeight - padding - 4 * m;
    const QSizeF detailsSize =
        detailsLabelText_.isEmpty()
            ? QSizeF()
            : wrappedTextSize(detailsLabelText_, detailsLabelFont_, maxWidth, remainingHeight);
    totalWidth = std::max(totalWidth, detailsSize.width());
    totalHeight += detailsSize.height();
    if (detailsSize.height() > 0 && indicatorOrLabel)
        totalHeight += padding;
    totalWidth += 2 * m;
    totalHeight += 2 * m;

    const auto centered = [&](QSizeF size, qreal y) {
        return QRectF(QPointF(std::round((w - size.width()) / 2) + xOffset_, y), size);
    };
    qreal y = std::round((h - totalHeight) / 2) + m + yOffset_;
    const QRectF indicatorFrame = centered(indicatorSize, y);
    y += indicatorSize.height();
    if (labelSize.height() > 0 && indicatorSize.height() > 0)
        y += padding;
    const QRectF labelFrame = centered(labelSize, y);
    y += labelSize.height();
    if (detailsSize.height() > 0 && indicatorOrLabel)
        y += padding;
    const QRectF detailsFrame = centered(detailsSize, y);

    if (square_) {
        const qreal side = std::max(totalWidth, totalHeight);
        if (side <= w - 2 * m)
            totalWidth = side;
        if (side <= h - 2 * m)
            totalHeight = side;
    }
    totalWidth = std::max(totalWidth, minSize_.width());
    totalHeight = std::max(totalHeight, minSize_.height());
    size_ = {totalWidth, totalHeight};

    const QRectF panel(std::round((w - size_.width()) / 2) + xOffset_,
                       std::round((h - size_.height()) / 2) + yOffset_, size_.width(),
                       size_.height());
    // The indicator keeps its frame, where the overlay draws it.
    if (indicator_)
        setFrame(indicator_, indicatorFrame);
    overlay_->setFrames({bounds, panel, indicatorFrame, labelFrame, detailsFrame});
}

} // namespace pomwick
