// The notice's layout (indicator, label and details stacked in a centered panel) and drawing.
#include "Appearance.h"
#include "NoticePanel.h"
#include "TextDrawing.h"
#include "ViewGeometry.h"
#include "ZRProgressHUD.h"

#include <QFontMetricsF>
#include <QLabel>
#include <QPainter>
#include <QRadialGradient>
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

QSizeF ZRProgressHUD::contentSize() const {
    const QSizeF widgetSize = QWidget::size();
    const int orientation = interfaceOrientation(this);
    const bool landscape =
        superview_ && superview_->isWindow() && (orientation == 3 || orientation == 4);
    return landscape ? widgetSize.transposed() : widgetSize;
}

void ZRProgressHUD::placePanel() {
    // The layout works in the notice's own (possibly turned) bounds; the panel is turned about
    // the notice's center, so its center moves with the turn and the panel itself turns with the
    // presentation transform.
    const QPointF fromCenter =
        panelRect_.center() - QPointF(contentSize().width(), contentSize().height()) / 2;
    QTransform turn;
    turn.rotateRadians(rotationAngle_);
    const QPointF center = QPointF(width(), height()) / 2 + turn.map(fromCenter);
    QRectF placed(QPointF(), panelRect_.size());
    placed.moveCenter(center);
    setFrame(panel_, placed);
}

void ZRProgressHUD::layoutSubviews() {
    needsLayout_ = false;
    if (superview_)
        setGeometry(superview_->rect());
    const QSizeF bounds = contentSize();
    const qreal w = bounds.width();
    const qreal h = bounds.height();
    const qreal m = margin_;
    const qreal maxWidth = w - 4 * m;

    QSizeF indicatorSize = indicator_ ? frame(indicator_).size() : QSizeF(0, 0);
    indicatorSize.setWidth(std::min(indicatorSize.width(), maxWidth));
    QSizeF labelSize(0, 0);
    if (!label_->text().isEmpty()) {
        labelSize = sizeWithAttributes(label_->text(), label_->font());
        labelSize.setWidth(std::min(labelSize.width(), maxWidth));
    }
    const bool indicatorOrLabel = indicatorSize.height() > 0 || labelSize.height() > 0;
    qreal totalWidth = std::max(indicatorSize.width(), labelSize.width());
    qreal totalHeight = indicatorSize.height() + labelSize.height();
    if (indicatorSize.height() > 0 && labelSize.height() > 0)
        totalHeight += padding;

    const qreal remainingHeight = h - totalHeight - padding - 4 * m;
    const QSizeF detailsSize = detailsLabel_->text().isEmpty()
                                   ? QSizeF()
                                   : wrappedTextSize(detailsLabel_->text(), detailsLabel_->font(),
                                                     maxWidth, remainingHeight);
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

    panelRect_ =
        QRectF(std::round((w - size_.width()) / 2) + xOffset_,
               std::round((h - size_.height()) / 2) + yOffset_, size_.width(), size_.height());
    placePanel();
    // The stacked parts sit in the panel, at the places computed in the notice's bounds.
    const QPointF panelOrigin = panelRect_.topLeft();
    if (indicator_)
        setFrame(indicator_, indicatorFrame.translated(-panelOrigin));
    setFrame(label_, labelFrame.translated(-panelOrigin));
    setFrame(detailsLabel_, detailsFrame.translated(-panelOrigin));
    panel_->setFill(color_.isValid() ? color_ : Appearance::noticeBackground(opacity_),
                    cornerRadius_);
}

void ZRProgressHUD::paintEvent(QPaintEvent*) {
    layoutIfNeeded();
    if (!dimBackground_)
        return;
    QPainter painter(this);
    painter.setOpacity(alpha_);
    const qreal scale = devicePixelRatioF();
    if (dimming_.size() != size() * scale) {
        // Drawn once per size: the gradient is the costly part of an animation frame.
        dimming_ = QPixmap(size() * scale);
        dimming_.setDevicePixelRatio(scale);
        dimming_.fill(Qt::transparent);
        QPainter gradient(&dimming_);
        const qreal w = width();
        const qreal h = height();
        // Padded past its end, so the corners outside the circle take the full dimming.
        QRadialGradient dimming(QPointF(w / 2, h / 2), std::min(w, h));
        dimming.setColorAt(0.0, QColor::fromRgbF(0, 0, 0, 0));
        dimming.setColorAt(1.0, QColor::fromRgbF(0, 0, 0, 0.75f));
        gradient.fillRect(rect(), dimming);
    }
    painter.drawPixmap(0, 0, dimming_);
}

} // namespace pomwick
