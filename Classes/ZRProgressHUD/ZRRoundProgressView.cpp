#include "ZRRoundProgressView.h"

#include "PathArcs.h"

#include <QAccessible>
#include <QPainter>
#include <numbers>

namespace pomwick {
namespace {
constexpr qreal twelveOClock = -std::numbers::pi / 2;
}

ZRRoundProgressView::ZRRoundProgressView(QWidget* parent) : QWidget(parent) {
    setGeometry(0, 0, 37, 37);
    setAttribute(Qt::WA_TranslucentBackground);
    setAccessibleName(tr("Progress"));
}

void ZRRoundProgressView::setProgress(float progress) {
    progress_ = progress;
    update();
    QAccessibleValueChangeEvent event(this, progress);
    QAccessible::updateAccessibility(&event);
    emit progressChanged();
}

void ZRRoundProgressView::setProgressTintColor(const QColor& color) {
    progressTintColor_ = color;
    update();
}

void ZRRoundProgressView::setBackgroundTintColor(const QColor& color) {
    backgroundTintColor_ = color;
    update();
}

void ZRRoundProgressView::setAnnular(bool annular) {
    annular_ = annular;
    update();
}

void ZRRoundProgressView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal w = width();
    const QPointF center(w / 2, height() / 2.0);
    const qreal endAngle = twelveOClock + 2 * std::numbers::pi * qreal(progress_);
    if (annular_) {
        const qreal radius = (w - 5) / 2;
        const auto stroke = [&](const QColor& color, qreal end) {
            QPainterPath arc;
            addArc(arc, center, radius, twelveOClock, end, false);
            painter.strokePath(arc, QPen(color, 5.0, Qt::SolidLine, Qt::RoundCap));
        };
        stroke(backgroundTintColor_, 3 * std::numbers::pi / 2);
        stroke(progressTintColor_, endAngle);
        return;
    }
    const QRectF circle = QRectF(rect()).adjusted(2, 2, -2, -2);
    painter.setPen(QPen(progressTintColor_, 2.0));
    painter.setBrush(backgroundTintColor_);
    painter.drawEllipse(circle);
    // The wedge is white whatever the tint: only the outline takes progressTintColor.
    QPainterPath wedge;
    wedge.moveTo(center);
    addArc(wedge, center, (w - 4) / 2, twelveOClock, endAngle, false);
    wedge.closeSubpath();
    painter.fillPath(wedge, Qt::white);
}

} // namespace pomwick
