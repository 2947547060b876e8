// The notice's construction, its observed properties and its indicator for each mode.
#include "ZRProgressHUD.h"

#include "ActivityIndicatorView.h"
#include "Appearance.h"
#include "HUDPresentationEffect.h"
#include "NoticeLabel.h"
#include "NoticePanel.h"
#include "ZRBarProgressView.h"
#include "ZRRoundProgressView.h"

#include <QEvent>
#include <QGuiApplication>
#include <QMetaProperty>
#include <QScreen>
#include <QThread>

namespace pomwick {

ZRProgressHUD::ZRProgressHUD(QWidget* view) {
    if (view == nullptr)
        qFatal("View must not be nil.");
    setGeometry(view->rect());
    labelFont_ = Appearance::systemFont(16, QFont::Bold);
    detailsLabelFont_ = Appearance::systemFont(12, QFont::Bold);
    setAttribute(Qt::WA_TranslucentBackground);
    setFocusPolicy(Qt::NoFocus);
    panel_ = new NoticePanel(this);
    presentation_ = new HUDPresentationEffect(panel_);
    panel_->setGraphicsEffect(presentation_);
    graceTimer_.setSingleShot(true);
    minShowTimer_.setSingleShot(true);
    connect(&graceTimer_, &QTimer::timeout, this, &ZRProgressHUD::handleGraceTimer);
    connect(&minShowTimer_, &QTimer::timeout, this, &ZRProgressHUD::handleMinShowTimer);
    setupLabels();
    updateIndicators();
    registerForNotifications();
    refreshPresentation();
}

ZRProgressHUD::~ZRProgressHUD() {
    stopAnimation();
    if (superview_)
        superview_->removeEventFilter(this);
}

void ZRProgressHUD::setupLabels() {
    label_ = new NoticeLabel(false, panel_);
    label_->setFont(labelFont_);
    detailsLabel_ = new NoticeLabel(true, panel_);
    detailsLabel_->setFont(detailsLabelFont_);
    for (QLabel* each : {label_, detailsLabel_}) {
        each->setGeometry(rect());
        QPalette palette = each->palette();
        palette.setColor(QPalette::WindowText, Qt::white);
        each->setPalette(palette);
    }
}

template <class Value, class Signal>
void ZRProgressHUD::assign(Value& field, const Value& value, Signal signal, const char* keyPath) {
    onOwnThread([this, &field, value, signal, keyPath] {
        field = value;
        emit(this->*signal)();
        updateUIForKeypath(keyPath);
    });
}

void ZRProgressHUD::setMode(int mode) {
    assign(mode_, mode, &ZRProgressHUD::modeChanged, "mode");
}

void ZRProgressHUD::setCustomView(QWidget* view) {
    onOwnThread([this, guarded = QPointer<QWidget>(view)] {
        if (customView_ == guarded)
            return;
        // The notice keeps the views it is given; one replaced while not shown goes.
        if (customView_ && customView_ != indicator_ && customView_->parent() == panel_)
            customView_->deleteLater();
        customView_ = guarded;
        if (customView_) {
            customView_->setParent(panel_);
            customView_->hide();
        }
        emit customViewChanged();
        updateUIForKeypath("customView");
    });
}

void ZRProgressHUD::setLabelText(const QString& text) {
    assign(labelText_, text, &ZRProgressHUD::labelTextChanged, "labelText");
}
void ZRProgressHUD::setLabelFont(const QFont& font) {
    assign(labelFont_, font, &ZRProgressHUD::labelFontChanged, "labelFont");
}
void ZRProgressHUD::setLabelColor(const QColor& color) {
    assign(labelColor_, color, &ZRProgressHUD::labelColorChanged, "labelColor");
}
void ZRProgressHUD::setDetailsLabelText(const QString& text) {
    assign(detailsLabelText_, text, &ZRProgressHUD::detailsLabelTextChanged, "detailsLabelText");
}
void ZRProgressHUD::setDetailsLabelFont(const QFont& font) {
    assign(detailsLabelFont_, font, &ZRProgressHUD::detailsLabelFontChanged, "detailsLabelFont");
}
void ZRProgressHUD::setDetailsLabelColor(const QColor& color) {
    assign(detailsLabelColor_, color, &ZRProgressHUD::detailsLabelColorChanged,
           "detailsLabelColor");
}
void ZRProgressHUD::setProgress(float progress) {
    assign(progress_, progress, &ZRProgressHUD::progressChanged, "progress");
}

void ZRProgressHUD::updateUIForKeypath(const char* keyPath) {
    const QByteArray key(keyPath);
    const auto recolor = [](QLabel* label, const QColor& color) {
        QPalette palette = label->palette();
        palette.setColor(QPalette::WindowText, color);
        label->setPalette(palette);
    };
    if (key == "mode" || key == "customView") {
        updateIndicators();
    } else if (key == "labelText") {
        label_->setText(labelText_);
        setAccessibleName(labelText_);
    } else if (key == "labelFont") {
        label_->setFont(labelFont_);
    } else if (key == "labelColor") {
        recolor(label_, labelColor_);
    } else if (key == "detailsLabelText") {
        detailsLabel_->setText(detailsLabelText_);
        setAccessibleDescription(detailsLabelText_);
    } else if (key == "detailsLabelFont") {
        detailsLabel_->setFont(detailsLabelFont_);
    } else if (key == "detailsLabelColor") {
        recolor(detailsLabel_, detailsLabelColor_);
    } else if (key == "progress") {
        // Only an indicator that has a progress hears of it; the notice itself stays as it is.
        if (indicator_ && indicator_->metaObject()->indexOfProperty("progress") >= 0)
            indicator_->setProperty("progress", progress_);
        return;
    }
    setNeedsLayout();
    update();
}

void ZRProgressHUD::removeIndicator() {
    if (!indicator_)
        return;
    if (indicator_ == customView_)
        indicator_->hide();
    else
        delete indicator_;
    indicator_ = nullptr;
}

void ZRProgressHUD::updateIndicators() {
    switch (mode_) {
    case ZRProgressHUDModeSpinner:
        if (!qobject_cast<ActivityIndicatorView*>(indicator_)) {
            removeIndicator();
            auto* spinner = new ActivityIndicatorView(panel_);
            spinner->startAnimating();
            indicator_ = spinner;
        }
        break;
    case ZRProgressHUDModeRoundProgress:
    case ZRProgressHUDModeRingProgress:
        if (!qobject_cast<ZRRoundProgressView*>(indicator_)) {
            removeIndicator();
            indicator_ = new ZRRoundProgressView(panel_);
        }
        // Never turned off again on the way back to the pie: the ring stays a ring.
        if (mode_ == ZRProgressHUDModeRingProgress)
            static_cast<ZRRoundProgressView*>(indicator_.data())->setAnnular(true);
        break;
    case ZRProgressHUDModeBarProgress:
        removeIndicator();
        indicator_ = new ZRBarProgressView(panel_);
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
    default:
        break;
    }
    if (indicator_) {
        indicator_->stackUnder(label_);
        indicator_->show();
    }
}

ZRProgressHUD* ZRProgressHUD::showHUDAddedTo(QWidget* view, bool animated) {
    auto* hud = new ZRProgressHUD(view);
    hud->setParent(view);
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

void ZRProgressHUD::setAlpha(qreal alpha) {
    alpha_ = alpha;
    refreshPresentation();
}

void ZRProgressHUD::setZoom(qreal zoom) {
    zoom_ = zoom;
    refreshPresentation();
}

void ZRProgressHUD::setRotationAngle(qreal radians) {
    rotationAngle_ = radians;
    placePanel();
    refreshPresentation();
}

QWidget* ZRProgressHUD::panel() const {
    return panel_;
}

void ZRProgressHUD::refreshPresentation() {
    QTransform transform;
    transform.rotateRadians(rotationAngle_);
    presentation_->setPresentation(alpha_, QTransform::fromScale(zoom_, zoom_) * transform);
    if (dimBackground_)
        update();
    // Nothing to see at alpha 0; and, as on the device, nearly transparent views let touches
    // through to what lies under them.
    const bool shown = alpha_ > 0 && parentWidget() != nullptr;
    if (isHidden() == shown)
        setVisible(shown);
    setAttribute(Qt::WA_TransparentForMouseEvents, alpha_ <= 0.01);
}

bool ZRProgressHUD::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::ParentChange:
        didMoveToSuperview();
        break;
    case QEvent::Resize:
        setNeedsLayout();
        break;
    case QEvent::LayoutRequest:
        layoutIfNeeded();
        return true;
    default:
        break;
    }
    return QWidget::event(event);
}

bool ZRProgressHUD::eventFilter(QObject* watched, QEvent* event) {
    if (watched == superview_ && event->type() == QEvent::Resize)
        setNeedsLayout();
    return QWidget::eventFilter(watched, event);
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

void ZRProgressHUD::registerForNotifications() {
    // Any screen's rotation, as the device's orientation notification comes from any sender.
    for (QScreen* screen : QGuiApplication::screens())
        connect(screen, &QScreen::orientationChanged, this,
                &ZRProgressHUD::deviceOrientationDidChange);
}

void ZRProgressHUD::deviceOrientationDidChange() {
    if (!superview_)
        return;
    if (superview_->isWindow()) {
        setTransformForCurrentOrientation(true);
        return;
    }
    setGeometry(superview_->rect());
    update();
}

void ZRProgressHUD::didMoveToSuperview() {
    if (superview_)
        superview_->removeEventFilter(this);
    superview_ = parentWidget();
    refreshPresentation();
    if (!superview_)
        return;
    superview_->installEventFilter(this);
    if (superview_->isWindow())
        setTransformForCurrentOrientation(false);
    setNeedsLayout();
}

} // namespace pomwick
