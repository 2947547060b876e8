#include "NoticeOverlay.h"

#include "Appearance.h"
#include "NoticeIndicator.h"
#include "NoticeLabel.h"
#include "PathArcs.h"
#include "ZRProgressHUD.h"

#include <QPainter>
#include <QRadialGradient>
#include <cmath>
#include <numbers>

namespace pomwick {
namespace {

// A frame on whole pixels, as the labels' text is laid out in them.
QRectF onWholePixels(const QRectF& frame) {
    return {std::round(frame.x()), std::round(frame.y()), std::round(frame.width()),
            std::round(frame.height())};
}

QPainterPath roundedPanel(const QRectF& panel, qreal r) {
    constexpr qreal pi = std::numbers::pi;
    QPainterPath rounded;
    rounded.moveTo(panel.left() + r, panel.top());
    addArc(rounded, {panel.right() - r, panel.top() + r}, r, 3 * pi / 2, 0, false);
    addArc(rounded, {panel.right() - r, panel.bottom() - r}, r, 0, pi / 2, false);
    addArc(rounded, {panel.left() + r, panel.bottom() - r}, r, pi / 2, pi, false);
    addArc(rounded, {panel.left() + r, panel.top() + r}, r, pi, 3 * pi / 2, false);
    rounded.closeSubpath();
    return rounded;
}

} // namespace

NoticeOverlay::NoticeOverlay(ZRProgressHUD& hud) : hud_(hud) {
    setAttribute(Qt::WA_TranslucentBackground);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void NoticeOverlay::setFrames(const Frames& frames) {
    frames_ = frames;
    contentChanged();
}

void NoticeOverlay::contentChanged() {
    panelImage_ = QPixmap();
    refresh();
}

void NoticeOverlay::setIndicator(QWidget* indicator) {
    if (indicator_ == indicator)
        return;
    if (auto* old = qobject_cast<NoticeIndicator*>(indicator_)) {
        old->disconnect(this);
        old->setPresented(false);
    }
    indicator_ = indicator;
    if (auto* own = qobject_cast<NoticeIndicator*>(indicator))
        connect(own, &NoticeIndicator::changed, this, &NoticeOverlay::contentChanged);
    if (indicator)
        indicator->hide();
    presentIndicator();
    contentChanged();
}

void NoticeOverlay::presentIndicator() {
    if (auto* own = qobject_cast<NoticeIndicator*>(indicator_))
        own->setPresented(isVisible());
}

void NoticeOverlay::presentationChanged() {
    // Nothing to see at alpha 0; and, as on the device, nearly transparent views let touches
    // through to what lies under them.
    const bool shown = hud_.alpha() > 0 && parentWidget() != nullptr;
    if (isHidden() == shown)
        setVisible(shown);
    setAttribute(Qt::WA_TransparentForMouseEvents, hud_.alpha() <= 0.01);
    refresh();
}

void NoticeOverlay::refresh() {
    const QRect panelArea =
        panelTransform().mapRect(frames_.panel).toAlignedRect().adjusted(-1, -1, 1, 1);
    if (hud_.dimBackground())
        update();
    else
        update(lastPanelArea_.united(panelArea));
    lastPanelArea_ = panelArea;
}

void NoticeOverlay::showEvent(QShowEvent*) {
    presentIndicator();
}

void NoticeOverlay::hideEvent(QHideEvent*) {
    presentIndicator();
}

QTransform NoticeOverlay::panelTransform() const {
    // The layout works in the notice's own (possibly turned) bounds; the panel is turned about
    // the overlay's center, and zoomed about its own.
    const QPointF center = frames_.panel.center();
    const QPointF fromMiddle =
        center - QPointF(frames_.bounds.width(), frames_.bounds.height()) / 2;
    QTransform turn;
    turn.rotateRadians(hud_.rotationAngle());
    const QPointF placed = QPointF(width(), height()) / 2 + turn.map(fromMiddle);
    return QTransform::fromTranslate(-center.x(), -center.y()) *
           QTransform::fromScale(hud_.zoom(), hud_.zoom()) * turn *
           QTransform::fromTranslate(placed.x(), placed.y());
}

void NoticeOverlay::paintEvent(QPaintEvent*) {
    hud_.layoutIfNeeded();
    QPainter painter(this);
    painter.setOpacity(hud_.alpha());
    if (hud_.dimBackground())
        paintDimming(painter);
    const QTransform transform = panelTransform();
    if (transform.isIdentity()) {
        paintPanel(painter);
        return;
    }
    painter.setTransform(transform);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    paintPanelImage(painter);
}

void NoticeOverlay::paintPanelImage(QPainter& painter) {
    const QRect area = frames_.panel.toAlignedRect().adjusted(-1, -1, 1, 1);
    if (panelImage_.isNull()) {
        const qreal scale = devicePixelRatioF();
        panelImage_ = QPixmap(area.size() * scale);
        panelImage_.setDevicePixelRatio(scale);
        panelImage_.fill(Qt::transparent);
        QPainter image(&panelImage_);
        image.translate(-area.topLeft());
        paintPanel(image);
    }
    painter.drawPixmap(area.topLeft(), panelImage_);
}

void NoticeOverlay::paintDimming(QPainter& painter) {
    const qreal scale = devicePixelRatioF();
    if (dimming_.size() != size() * scale) {
        // Drawn once per size: the gradient is the costly part of an animation frame.
        dimming_ = QPixmap(size() * scale);
        dimming_.setDevicePixelRatio(scale);
        dimming_.fill(Qt::transparent);
        QPainter gradient(&dimming_);
        const qreal w = width();
        const qreal h = height();
        // Padded past its end, so the corners outside the circle take the full dimming.
        QRadialGradient dimming(QPointF(w / 2, h / 2), std::min(w, h));
        dimming.setColorAt(0.0, QColor::fromRgbF(0, 0, 0, 0));
        dimming.setColorAt(1.0, QColor::fromRgbF(0, 0, 0, 0.75f));
        gradient.fillRect(rect(), dimming);
    }
    painter.drawPixmap(0, 0, dimming_);
}

void NoticeOverlay::paintPanel(QPainter& painter) const {
    const QColor fill =
        hud_.color().isValid() ? hud_.color() : Appearance::noticeBackground(hud_.opacity());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(roundedPanel(frames_.panel, hud_.cornerRadius()), fill);
    if (indicator_) {
        painter.save();
        if (auto* own = qobject_cast<const NoticeIndicator*>(indicator_)) {
            painter.translate(indicator_->pos());
            own->paint(painter);
        } else {
            // Someone else's view, drawn through an image of it: rendered straight into the
            // painter of the overlay being painted, it would draw nothing.
            const qreal scale = devicePixelRatioF();
            QPixmap image(indicator_->size() * scale);
            image.setDevicePixelRatio(scale);
            image.fill(Qt::transparent);
            indicator_->render(&image, {}, {}, QWidget::DrawChildren);
            painter.drawPixmap(indicator_->pos(), image);
        }
        painter.restore();
    }
    drawNoticeText(painter, onWholePixels(frames_.label), hud_.labelText(), hud_.labelFont(),
                   hud_.labelColor(), false);
    drawNoticeText(painter, onWholePixels(frames_.details), hud_.detailsLabelText(),
                   hud_.detailsLabelFont(), hud_.detailsLabelColor(), true);
}

} // namespace pomwick
