#include "ScrollIndicator.h"

#include "Animations.h"
#include "Appearance.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QPainter>
#include <QPropertyAnimation>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>

namespace pomwick {
namespace {

constexpr qreal thickness = 3;
constexpr qreal edgeGap = 3;
constexpr qreal shortest = 36;
constexpr int lingerMilliseconds = 500;
constexpr int fadeMilliseconds = 300;

} // namespace

ScrollIndicator::ScrollIndicator(QAbstractScrollArea* area, std::function<qreal()> contentHeight)
    : QWidget(area), area_(area), contentHeight_(std::move(contentHeight)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    linger_.setSingleShot(true);
    connect(&linger_, &QTimer::timeout, this, &ScrollIndicator::fadeOut);
    const QScrollBar* bar = area->verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this, &ScrollIndicator::flash);
    connect(bar, &QScrollBar::rangeChanged, this, &ScrollIndicator::place);
    area->viewport()->installEventFilter(this);
}

void ScrollIndicator::setOpacity(qreal opacity) {
    opacity_ = opacity;
    update();
}

// Every step of a scroll shows the bar at full strength and puts its fading off again.
void ScrollIndicator::flash() {
    if (fade_)
        fade_->stop();
    setOpacity(1);
    if (!place())
        return;
    show();
    raise();
    linger_.start(Animations::duration(lingerMilliseconds));
}

void ScrollIndicator::fadeOut() {
    auto* fade = new QPropertyAnimation(this, "opacity", this);
    fade->setDuration(Animations::duration(fadeMilliseconds));
    fade->setEndValue(0.0);
    connect(fade, &QAbstractAnimation::finished, this, &QWidget::hide);
    fade_ = fade;
    fade->start(QAbstractAnimation::DeleteWhenStopped);
}

// Over the viewport's right edge (left, right to left): the track is the viewport's height, the bar
// the visible share. False, and hidden, when the content fits.
bool ScrollIndicator::place() {
    const QScrollBar* bar = area_->verticalScrollBar();
    const qreal range = bar->maximum() - bar->minimum();
    const qreal content = contentHeight_ ? contentHeight_() : range + bar->pageStep();
    const QRect viewport = area_->viewport()->geometry();
    if (range <= 0 || content <= viewport.height()) {
        linger_.stop();
        hide();
        return false;
    }
    const qreal track = viewport.height() - 2 * edgeGap;
    const qreal length =
        std::clamp(track * viewport.height() / content, std::min(shortest, track), track);
    const qreal position = std::clamp((bar->value() - bar->minimum()) / range, 0.0, 1.0);
    const qreal top = viewport.top() + edgeGap + (track - length) * position;
    const QRect indicator =
        QRectF(viewport.right() + 1 - edgeGap - thickness, top, thickness, length).toAlignedRect();
    // Right to left, the indicator runs down the left edge.
    setGeometry(QStyle::visualRect(layoutDirection(), area_->rect(), indicator));
    return true;
}

void ScrollIndicator::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(opacity_);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Appearance::scrollIndicator());
    const qreal radius = width() / 2.0;
    painter.drawRoundedRect(QRectF(rect()), radius, radius);
}

bool ScrollIndicator::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize && !isHidden())
        place();
    return false;
}

} // namespace pomwick
