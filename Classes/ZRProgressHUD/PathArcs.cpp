#include "PathArcs.h"

#include <QLineF>
#include <cmath>
#include <numbers>

namespace pomwick {
namespace {

constexpr qreal fullTurn = 2 * std::numbers::pi;

qreal degrees(qreal radians) {
    return radians * 180 / std::numbers::pi;
}

QPointF pointOnCircle(QPointF center, qreal radius, qreal angle) {
    return center + QPointF(std::cos(angle), std::sin(angle)) * radius;
}

} // namespace

void addArc(QPainterPath& path, QPointF center, qreal radius, qreal startAngle, qreal endAngle,
            bool clockwise) {
    if (!std::isfinite(startAngle) || !std::isfinite(endAngle) || !std::isfinite(radius))
        return;
    qreal sweep = clockwise ? startAngle - endAngle : endAngle - startAngle;
    if (sweep >= fullTurn) {
        sweep = fullTurn;
    } else {
        sweep = std::fmod(sweep, fullTurn);
        if (sweep < 0)
            sweep += fullTurn;
    }
    const QPointF start = pointOnCircle(center, radius, startAngle);
    if (path.elementCount() == 0)
        path.moveTo(start);
    else
        path.lineTo(start);
    // Qt's angles grow counter-clockwise on screen: both signs flip.
    const QRectF circle(center.x() - radius, center.y() - radius, 2 * radius, 2 * radius);
    path.arcTo(circle, -degrees(startAngle), -degrees(clockwise ? -sweep : sweep));
}

void addArcToPoint(QPainterPath& path, QPointF corner, QPointF towards, qreal radius) {
    const QPointF from = path.elementCount() == 0 ? corner : path.currentPosition();
    const QLineF in(corner, from);
    const QLineF out(corner, towards);
    const qreal between = in.angleTo(out) * std::numbers::pi / 180; // counter-clockwise, 0..2pi
    const qreal half = std::min(between, fullTurn - between) / 2;
    if (!(radius > 0) || in.length() == 0 || out.length() == 0 || std::sin(half) < 1e-9 ||
        std::abs(half - std::numbers::pi / 2) < 1e-9) {
        path.lineTo(corner);
        return;
    }
    const qreal toTangent = radius / std::tan(half);
    const QPointF inUnit = (from - corner) / in.length();
    const QPointF outUnit = (towards - corner) / out.length();
    const QPointF first = corner + inUnit * toTangent;
    const QPointF second = corner + outUnit * toTangent;
    const QPointF bisector = inUnit + outUnit;
    const QPointF center =
        corner + bisector / std::hypot(bisector.x(), bisector.y()) * (radius / std::sin(half));
    const qreal startAngle = std::atan2(first.y() - center.y(), first.x() - center.x());
    qreal endAngle = std::atan2(second.y() - center.y(), second.x() - center.x());
    // The short way round, which is the side the corner lies on.
    qreal sweep = std::remainder(endAngle - startAngle, fullTurn);
    endAngle = startAngle + sweep;
    addArc(path, center, radius, startAngle, endAngle, sweep < 0);
}

} // namespace pomwick
