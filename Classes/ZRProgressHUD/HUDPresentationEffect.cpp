#include "HUDPresentationEffect.h"

#include <QPainter>

namespace pomwick {

void HUDPresentationEffect::setPresentation(qreal opacity, const QTransform& transform) {
    opacity_ = opacity;
    transform_ = transform;
    setEnabled(opacity < 1 || !transform.isIdentity());
    update();
}

void HUDPresentationEffect::draw(QPainter* painter) {
    if (opacity_ <= 0)
        return;
    QPoint offset;
    const QPixmap pixmap = sourcePixmap(Qt::LogicalCoordinates, &offset, NoPad);
    const QPointF centre = boundingRect().center();
    painter->save();
    painter->setOpacity(opacity_);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->translate(centre);
    painter->setTransform(transform_, true);
    painter->translate(-centre);
    painter->drawPixmap(offset, pixmap);
    painter->restore();
}

} // namespace pomwick
