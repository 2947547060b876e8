#include "HUDPresentationEffect.h"

#include <QPainter>

namespace pomwick {

void HUDPresentationEffect::setPresentation(qreal opacity, const QTransform& transform) {
    opacity_ = opacity;
    transform_ = transform;
    setEnabled(opacity < 1 || !transform.isIdentity());
    updateBoundingRect();
    update();
}

QTransform HUDPresentationEffect::aboutCenter(const QRectF& rect) const {
    const QPointF center = rect.center();
    return QTransform::fromTranslate(-center.x(), -center.y()) * transform_ *
           QTransform::fromTranslate(center.x(), center.y());
}

QRectF HUDPresentationEffect::boundingRectFor(const QRectF& sourceRect) const {
    return sourceRect.united(aboutCenter(sourceRect).mapRect(sourceRect));
}

void HUDPresentationEffect::draw(QPainter* painter) {
    if (opacity_ <= 0)
        return;
    QPoint offset;
    const QPixmap pixmap = sourcePixmap(Qt::LogicalCoordinates, &offset, NoPad);
    painter->save();
    painter->setOpacity(opacity_);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->setTransform(aboutCenter(sourceBoundingRect()), true);
    painter->drawPixmap(offset, pixmap);
    painter->restore();
}

} // namespace pomwick
