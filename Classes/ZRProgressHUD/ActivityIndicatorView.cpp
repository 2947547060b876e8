#include "ActivityIndicatorView.h"

#include <QPainter>

namespace pomwick {

ActivityIndicatorView::ActivityIndicatorView(QWidget* parent) : QWidget(parent) {
    setGeometry(0, 0, side, side);
    setAttribute(Qt::WA_TranslucentBackground);
    setAccessibleName(tr("In progress"));
    rotation_.setStartValue(0);
    rotation_.setEndValue(spokes);
    rotation_.setDuration(1000);
    rotation_.setLoopCount(-1);
    connect(&rotation_, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& value) { setLeadingSpoke(value.toInt() % spokes); });
}

void ActivityIndicatorView::startAnimating() {
    animating_ = true;
    followVisibility();
}

void ActivityIndicatorView::stopAnimating() {
    animating_ = false;
    followVisibility();
}

void ActivityIndicatorView::setLeadingSpoke(int spoke) {
    if (spoke == leadingSpoke_)
        return;
    leadingSpoke_ = spoke;
    update();
}

void ActivityIndicatorView::showEvent(QShowEvent*) {
    followVisibility();
}

void ActivityIndicatorView::hideEvent(QHideEvent*) {
    followVisibility();
}

void ActivityIndicatorView::followVisibility() {
    const bool run = animating_ && isVisible();
    if (run && rotation_.state() != QAbstractAnimation::Running)
        rotation_.start();
    else if (!run)
        rotation_.stop();
}

void ActivityIndicatorView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(width() / 2.0, height() / 2.0);
    const qreal scale = qMin(width(), height()) / qreal(side);
    painter.scale(scale, scale);
    for (int i = 0; i < spokes; ++i) {
        // The leading spoke is opaque; the ones behind it fade to a quarter.
        const int behind = (leadingSpoke_ - i + spokes) % spokes;
        QColor color(Qt::white);
        color.setAlphaF(1.0f - 0.75f * float(behind) / (spokes - 1));
        painter.save();
        painter.rotate(i * 360.0 / spokes);
        painter.setPen(QPen(color, 3.6, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(0, -9.5), QPointF(0, -16.5));
        painter.restore();
    }
}

} // namespace pomwick
