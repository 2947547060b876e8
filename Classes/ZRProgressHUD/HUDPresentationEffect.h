#pragma once

#include <QGraphicsEffect>
#include <QTransform>

namespace pomwick {

// Draws a widget and its children at an opacity and with a transform about the widget's center
// (reaching past its edges when it grows): what the device does with a view's alpha and
// transform. Idle (and free) at opacity 1 with no transform.
class HUDPresentationEffect : public QGraphicsEffect {
    Q_OBJECT
public:
    using QGraphicsEffect::QGraphicsEffect;

    void setPresentation(qreal opacity, const QTransform& transform);

protected:
    QRectF boundingRectFor(const QRectF& sourceRect) const override;
    void draw(QPainter* painter) override;

private:
    QTransform aboutCenter(const QRectF& rect) const;

    qreal opacity_ = 1;
    QTransform transform_;
};

} // namespace pomwick
