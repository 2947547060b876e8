#include "ZRBarProgressView.h"

#include "PathArcs.h"

#include <QAccessible>
#include <QPainter>
#include <cmath>
#include <numbers>

namespace pomwick {

ZRBarProgressView::ZRBarProgressView(QWidget* parent) : QWidget(parent) {
    setGeometry(0, 0, 120, 20);
    setAttribute(Qt::WA_TranslucentBackground);
    setAccessibleName(tr("Progress"));
}

void ZRBarProgressView::setProgress(float progress) {
    progress_ = progress;
    update();
    QAccessibleValueChangeEvent event(this, progress);
    QAccessible::updateAccessibility(&event);
    emit progressChanged();
}

void ZRBarProgressView::setLineColor(const QColor& color) {
    lineColor_ = color;
    update();
}

void ZRBarProgressView::setProgressColor(const QColor& color) {
    progressColor_ = color;
    update();
}

void ZRBarProgressView::setProgressRemainingColor(const QColor& color) {
    progressRemainingColor_ = color;
    update();
}

void ZRBarProgressView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal w = width();
    const qreal h = height();
    const qreal mid = h / 2;

    const qreal outlineRadius = h / 2 - 2;
    QPainterPath outline;
    outline.moveTo(2, mid);
    addArcToPoint(outline, {2, 2}, {outlineRadius + 2, 2}, outlineRadius);
    outline.lineTo(w - outlineRadius - 2, 2);
    addArcToPoint(outline, {w - 2, 2}, {w - 2, mid}, outlineRadius);
    addArcToPoint(outline, {w - 2, h - 2}, {w - outlineRadius - 2, h - 2}, outlineRadius);
    outline.lineTo(outlineRadius + 2, h - 2);
    addArcToPoint(outline, {2, h - 2}, {2, mid}, outlineRadius);
    painter.fillPath(outline, progressRemainingColor_);
    painter.strokePath(outline, QPen(lineColor_, 2.0));

    const qreal r = outlineRadius - 2;
    const qreal amount = w * qreal(progress_);
    const qreal rightEnd = w - r - 4;
    // Each half runs from the left tip along the top (or bottom) edge to `end`, then as given.
    const auto half = [&](qreal edgeY, qreal end) {
        QPainterPath path;
        path.moveTo(4, mid);
        addArcToPoint(path, {4, edgeY}, {r + 4, edgeY}, r);
        path.lineTo(end, edgeY);
        return path;
    };
    QPainterPath fill;
    if (amount >= r + 4 && amount <= rightEnd) {
        for (const qreal edgeY : {4.0, h - 4}) {
            QPainterPath path = half(edgeY, amount);
            path.lineTo(amount, mid);
            fill.addPath(path);
        }
    } else if (amount > rightEnd) {
        // Past the straight part the fill follows the right cap; at 1.0 the arccosine is not a
        // number and the cap closes at its tip.
        qreal theta = std::acos((amount - rightEnd) / r);
        if (std::isnan(theta))
            theta = 0;
        QPainterPath upper = half(4, rightEnd);
        addArc(upper, {rightEnd, mid}, r, std::numbers::pi, -theta, false);
        upper.lineTo(amount, mid);
        QPainterPath lower = half(h - 4, rightEnd);
        addArc(lower, {rightEnd, mid}, r, -std::numbers::pi, theta, true);
        lower.lineTo(amount, mid);
        fill.addPath(upper);
        fill.addPath(lower);
    } else if (amount > 0) {
        // However little the progress, the whole left cap shows.
        for (const qreal edgeY : {4.0, h - 4}) {
            QPainterPath path = half(edgeY, r + 4);
            path.lineTo(r + 4, mid);
            fill.addPath(path);
        }
    }
    painter.fillPath(fill, progressColor_);
}

} // namespace pomwick
