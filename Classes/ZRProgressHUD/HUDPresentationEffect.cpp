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

QTransform HUDPresentationEffect::aboutCentre(const QRectF& rect) const {
    const QPointF centre = rect.center();
    return QTransform::fromTranslate(-centre.x(), -centre.y()) * transform_ *
           QTransform::fromTranslate(centre.x(), centre.y());
}

QRectF HUDPresentationEffect::boundingRectFor(const QRectF& sourceRect) const {
    return sourceRect.united(aboutCentre(sourceRect).mapRect(sourceRect));
}

void HUDPresentationEffect::draw(QPainter* painter) {
    if (opacity_ <= 0)
        return;
    QPoint offset;
    const QPixmap pixmap = sourcePixmap(Qt::LogicalCoordinates, &offset, NoPad);
    painter->save();
    painter->setOpacity(opacity_);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->setTransform(aboutCentre(sourceBoundingRect()), true);
    painter->drawPixmap(offset, pixmap);
    painter->restore();
}

} // namespace pomwick
