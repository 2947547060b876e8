#include "NoticePanel.h"

#include "PathArcs.h"
#include "ViewGeometry.h"

#include <QPainter>
#include <numbers>

namespace pomwick {

NoticePanel::NoticePanel(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TranslucentBackground);
}

void NoticePanel::setFill(const QColor& color, qreal cornerRadius) {
    if (color == fill_ && cornerRadius == cornerRadius_)
        return;
    fill_ = color;
    cornerRadius_ = cornerRadius;
    update();
}

void NoticePanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // The panel's own fractional size, not its whole-pixel widget.
    const QRectF panel(QPointF(), frame(this).size());
    const qreal r = cornerRadius_;
    constexpr qreal pi = std::numbers::pi;
    QPainterPath rounded;
    rounded.moveTo(panel.left() + r, panel.top());
    addArc(rounded, {panel.right() - r, panel.top() + r}, r, 3 * pi / 2, 0, false);
    addArc(rounded, {panel.right() - r, panel.bottom() - r}, r, 0, pi / 2, false);
    addArc(rounded, {panel.left() + r, panel.bottom() - r}, r, pi / 2, pi, false);
    addArc(rounded, {panel.left() + r, panel.top() + r}, r, pi, 3 * pi / 2, false);
    rounded.closeSubpath();
    painter.fillPath(rounded, fill_);
}

} // namespace pomwick
