// The notice's construction, its observed properties, its indicator for each mode and its place
// over its host view.
#include "ZRProgressHUD.h"

#include "ActivityIndicatorView.h"
#include "Appearance.h"
#include "NoticeOverlay.h"
#include "ZRBarProgressView.h"
#include "ZRRoundProgressView.h"

#include <QAbstractAnimation>
#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <stdexcept>

namespace pomwick {
namespace {

const QWidget* required(const QWidget* view) {
    if (view == nullptr)
        throw std::invalid_argument("ZRProgressHUD: the view must not be null");
    return view;
}

} // namespace

ZRProgressHUD::ZRProgressHUD(QWidget* view) {
    const QRect bounds = required(view)->rect();
    overlay_ = new NoticeOverlay(*this);
    overlay_->setGeometry(bounds);
    labelFont_ = Appearance::systemFont(16, QFont::Bold);
    detailsLabelFont_ = Appearance::systemFont(12, QFont::Bold);
    graceTimer_.setSingleShot(true);
    minShowTimer_.setSingleShot(true);
    connect(&graceTimer_, &QTimer::timeout, this, &ZRProgressHUD::handleGraceTimer);
    connect(&minShowTimer_, &QTimer::timeout, this, &ZRProgressHUD::handleMinShowTimer);
    updateIndicators();
    // Any screen's rotation, as the device's orientation notification comes from any sender.
    for (QScreen* screen : QGuiApplication::screens())
        connect(screen, &QScreen::orientationChanged, this,
                &ZRProgressHUD::deviceOrientationDidChange);
    overlay_->presentationChanged();
}

ZRProgressHUD::~ZRProgressHUD() {
    stopAnimation();
    if (superview_)
        superview_->removeEventFilter(this);
    delete overlay_;
}

template <class Value>
void ZRProgressHUD::change(Value& field, const Value& value, void (ZRProgressHUD::*signal)(),
                           void (ZRProgressHUD::*then)()) {
    onOwnThread([this, &field, value, signal, then] {
        field = value;
        emit(this->*signal)();
        (this->*then)();
    });
}

void ZRProgressHUD::holdDelegate(QObject* delegate) {
    disconnect(delegateConnection_);
    delegate_ = delegate;
}

void ZRProgressHUD::setMode(ZRProgressHUDMode mode) {
    change(mode_, mode, &ZRProgressHUD::modeChanged, &ZRProgressHUD::indicatorChanged);
}

void ZRProgressHUD::setCustomView(QWidget* view) {
    onOwnThread([this, guarded = QPointer<QWidget>(view)] {
        if (customView_ == guarded)
            return;
        // The notice keeps the views it is given; one replaced while not shown goes.
        if (customView_ && customView_ != indicator_ && customView_->parent() == overlay_)
            customView_->deleteLater();
        customView_ = guarded;
        // The overlay draws it itself, at the notice's opacity and zoom.
        if (customView_) {
            customView_->setParent(overlay_);
            customView_->hide();
        }
        emit customViewChanged();
        indicatorChanged();
    });
}

void ZRProgressHUD::setLabelText(const QString& text) {
    change(labelText_, text, &ZRProgressHUD::labelTextChanged, &ZRProgressHUD::textChanged);
}
void ZRProgressHUD::setLabelFont(const QFont& font) {
    change(labelFont_, font, &ZRProgressHUD::labelFontChanged, &ZRProgressHUD::textChanged);
}
void ZRProgressHUD::setLabelColor(const QColor& color) {
    change(labelColor_, color, &ZRProgressHUD::labelColorChanged, &ZRProgressHUD::textChanged);
}
void ZRProgressHUD::setDetailsLabelText(const QString& text) {
    change(detailsLabelText_, text, &ZRProgressHUD::detailsLabelTextChanged,
           &ZRProgressHUD::textChanged);
}
void ZRProgressHUD::setDetailsLabelFont(const QFont& font) {
    change(detailsLabelFont_, font, &ZRProgressHUD::detailsLabelFontChanged,
           &ZRProgressHUD::textChanged);
}
void ZRProgressHUD::setDetailsLabelColor(const QColor& color) {
    change(detailsLabelColor_, color, &ZRProgressHUD::detailsLabelColorChanged,
           &ZRProgressHUD::textChanged);
}
void ZRProgressHUD::setProgress(float progress) {
    change(progress_, progress, &ZRProgressHUD::progressChanged, &ZRProgressHUD::passProgress);
}

void ZRProgressHUD::indicatorChanged() {
    updateIndicators();
    setNeedsLayout();
    overlay_->contentChanged();
}

void ZRProgressHUD::textChanged() {
    overlay_->setAccessibleName(labelText_);
    overlay_->setAccessibleDescription(detailsLabelText_);
    setNeedsLayout();
    overlay_->contentChanged();
}

void ZRProgressHUD::passProgress() {
    // Only an indicator that has a progress hears of it; the notice itself stays as it is.
    if (indicator_ && indicator_->metaObject()->indexOfProperty("progress") >= 0)
        indicator_->setProperty("progress", progress_);
}

void ZRProgressHUD::removeIndicator() {
    if (indicator_ && indicator_ != customView_)
        delete indicator_;
    indicator_ = nullptr;
}

void ZRProgressHUD::updateIndicators() {
    switch (mode_) {
    case ZRProgressHUDModeSpinner:
        if (!qobject_cast<ActivityIndicatorView*>(indicator_)) {
            removeIndicator();
            auto* spinner = new ActivityIndicatorView(overlay_);
            spinner->startAnimating();
            indicator_ = spinner;
        }
        break;
    case ZRProgressHUDModeRoundProgress:
    case ZRProgressHUDModeRingProgress:
        if (!qobject_cast<ZRRoundProgressView*>(indicator_)) {
            removeIndicator();
            indicator_ = new ZRRoundProgressView(overlay_);
        }
        // Never turned off again on the way back to the pie: the ring stays a ring.
        if (mode_ == ZRProgressHUDModeRingProgress)
            static_cast<ZRRoundProgressView*>(indicator_.data())->setAnnular(true);
        break;
    case ZRProgressHUDModeBarProgress:
        removeIndicator();
        indicator_ = new ZRBarProgressView(overlay_);
        break;
    case ZRProgressHUDModeCustomView:
        if (customView_ != indicator_) {
            removeIndicator();
            indicator_ = customView_;
        }
        break;
    case ZRProgressHUDModeTextOnly:
        removeIndicator();
        break;
    }
    overlay_->setIndicator(indicator_);
}

ZRProgressHUD* ZRProgressHUD::showHUDAddedTo(QWidget* view, bool animated) {
    auto* hud = new ZRProgressHUD(view);
    hud->setSuperview(view);
    hud->show(animated);
    return hud;
}

std::vector<ZRProgressHUD*> ZRProgressHUD::allHUDsForView(const QWidget* view) {
    std::vector<ZRProgressHUD*> found;
    for (QObject* child : view->children())
        if (auto* hud = qobject_cast<ZRProgressHUD*>(child))
            found.push_back(hud);
    return found;
}

ZRProgressHUD* ZRProgressHUD::HUDForView(const QWidget* view) {
    const auto all = allHUDsForView(view);
    return all.empty() ? nullptr : all.back();
}

bool ZRProgressHUD::hideHUDForView(const QWidget* view, bool animated) {
    ZRProgressHUD* hud = HUDForView(view);
    if (hud == nullptr)
        return false;
    hud->setRemoveFromSuperViewOnHide(true);
    hud->hide(animated);
    return true;
}

int ZRProgressHUD::hideAllHUDsForView(const QWidget* view, bool animated) {
    const auto all = allHUDsForView(view);
    for (ZRProgressHUD* hud : all) {
        hud->setRemoveFromSuperViewOnHide(true);
        hud->hide(animated);
    }
    return int(all.size());
}

void ZRProgressHUD::setSuperview(QWidget* view) {
    if (superview_)
        superview_->removeEventFilter(this);
    superview_ = view;
    setParent(view);
    overlay_->setParent(view);
    overlay_->presentationChanged();
    if (!view)
        return;
    overlay_->raise();
    view->installEventFilter(this);
    if (view->isWindow())
        setTransformForCurrentOrientation(false);
    setNeedsLayout();
}

void ZRProgressHUD::setAlpha(qreal alpha) {
    alpha_ = alpha;
    overlay_->presentationChanged();
}

void ZRProgressHUD::setZoom(qreal zoom) {
    zoom_ = zoom;
    overlay_->presentationChanged();
}

void ZRProgressHUD::setRotationAngle(qreal radians) {
    rotationAngle_ = radians;
    overlay_->presentationChanged();
}

bool ZRProgressHUD::event(QEvent* event) {
    if (event->type() != QEvent::LayoutRequest)
        return QObject::event(event);
    layoutIfNeeded();
    return true;
}

bool ZRProgressHUD::eventFilter(QObject* watched, QEvent* event) {
    if (watched == superview_ && event->type() == QEvent::Resize)
        setNeedsLayout();
    return QObject::eventFilter(watched, event);
}

void ZRProgressHUD::setNeedsLayout() {
    if (needsLayout_)
        return;
    needsLayout_ = true;
    QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
}

void ZRProgressHUD::layoutIfNeeded() {
    if (needsLayout_)
        layoutSubviews();
}

void ZRProgressHUD::deviceOrientationDidChange() {
    if (!superview_)
        return;
    if (superview_->isWindow()) {
        setTransformForCurrentOrientation(true);
        return;
    }
    overlay_->setGeometry(superview_->rect());
    overlay_->update();
}

} // namespace pomwick
