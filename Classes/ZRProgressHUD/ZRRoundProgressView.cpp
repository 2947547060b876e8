#include "ZRRoundProgressView.h"

#include "PathArcs.h"

#include <QPainter>
#include <numbers>

namespace pomwick {
namespace {
constexpr qreal twelveOClock = -std::numbers::pi / 2;
}

ZRRoundProgressView::ZRRoundProgressView(QWidget* parent)
    : ProgressIndicatorView({37, 37}, parent) {}

void ZRRoundProgressView::paint(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal w = width();
    const QPointF center(w / 2, height() / 2.0);
    const qreal endAngle = twelveOClock + 2 * std::numbers::pi * qreal(progress());
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
