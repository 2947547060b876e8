// When the notice shows and hides: grace time, minimum show time, delayed hides, the fade and
// zoom animations, work run while shown, and turning with the window's screen.
#include "Animations.h"
#include "NoticeOverlay.h"
#include "NoticeWork.h"
#include "ZRProgressHUD.h"

#include <QParallelAnimationGroup>
#include <QPropertyAnimation>
#include <QScreen>
#include <QThreadPool>
#include <numbers>

namespace pomwick {
namespace {

int milliseconds(double seconds) {
    return int(std::lround(std::clamp(seconds, 0.0, 1e9) * 1000));
}

} // namespace

void ZRProgressHUD::show(bool animated) {
    onOwnThread([this, animated] {
        useAnimation_ = animated;
        if (graceTime_ > 0) {
            graceTimer_.start(milliseconds(graceTime_));
            return;
        }
        overlay_->update();
        showUsingAnimation(useAnimation_);
    });
}

void ZRProgressHUD::handleGraceTimer() {
    // A task that ended within the grace time never shows the notice.
    if (!taskInProgress_)
        return;
    overlay_->update();
    showUsingAnimation(useAnimation_);
}

void ZRProgressHUD::hide(bool animated) {
    onOwnThread([this, animated] {
        useAnimation_ = animated;
        if (minShowTime_ > 0 && showStarted_) {
            const std::chrono::duration<double> elapsed = clock_() - *showStarted_;
            if (elapsed.count() < minShowTime_) {
                minShowTimer_.start(milliseconds(minShowTime_ - elapsed.count()));
                return;
            }
        }
        hideUsingAnimation(useAnimation_);
    });
}

void ZRProgressHUD::handleMinShowTimer() {
    hideUsingAnimation(useAnimation_);
}

void ZRProgressHUD::hide(bool animated, double delaySeconds) {
    onOwnThread([this, animated, delaySeconds] {
        auto* timer = new QTimer(this);
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, [this, timer, animated] {
            std::erase(delayedHides_, timer);
            timer->deleteLater();
            hide(animated);
        });
        delayedHides_.push_back(timer);
        timer->start(milliseconds(delaySeconds));
    });
}

void ZRProgressHUD::showUsingAnimation(bool animated) {
    stopAnimation();
    const bool zooms = animationType_ != ZRProgressHUDAnimationFade;
    if (animated && zooms)
        setZoom(animationType_ == ZRProgressHUDAnimationZoomDown ? 1.5 : 0.5);
    showStarted_ = clock_();
    if (animated)
        animate(1.0, zooms ? std::optional(1.0) : std::nullopt, nullptr);
    else
        setAlpha(1);
}

void ZRProgressHUD::hideUsingAnimation(bool animated) {
    stopAnimation();
    if (animated && showStarted_) {
        std::optional<qreal> zoom;
        if (animationType_ == ZRProgressHUDAnimationZoomDown)
            zoom = 0.5;
        else if (animationType_ == ZRProgressHUDAnimationZoomUp)
            zoom = 1.5;
        // Not quite to 0: done() takes it the rest of the way.
        animate(0.02, zoom, [this] { done(); });
    } else {
        setAlpha(0);
        done();
    }
    showStarted_.reset();
}

void ZRProgressHUD::animate(qreal alpha, std::optional<qreal> zoom,
                            std::function<void()> finished) {
    auto* group = new QParallelAnimationGroup(this);
    const auto step = [this, group](const QByteArray& property, qreal value) {
        auto* animation = new QPropertyAnimation(this, property, group);
        animation->setDuration(Animations::duration(animationMilliseconds));
        animation->setEasingCurve(QEasingCurve::InOutQuad);
        animation->setEndValue(value);
    };
    if (zoom)
        step("zoom", *zoom);
    step("alpha", alpha);
    connect(group, &QAbstractAnimation::finished, this, [this, group, finished] {
        if (animation_ == group)
            animation_ = nullptr;
        group->deleteLater();
        if (finished)
            finished();
    });
    animation_ = group;
    group->start();
}

void ZRProgressHUD::stopAnimation() {
    if (!animation_)
        return;
    QAbstractAnimation* running = animation_;
    animation_ = nullptr;
    running->disconnect(this);
    running->stop();
    running->deleteLater();
}

void ZRProgressHUD::done() {
    for (QTimer* pending : delayedHides_)
        delete pending;
    delayedHides_.clear();
    isFinished_ = true;
    setAlpha(0);
    if (removeFromSuperViewOnHide_ && superview_) {
        setSuperview(nullptr);
        deleteLater();
    }
    if (completionBlock_) {
        const auto completion = std::move(completionBlock_);
        completionBlock_ = nullptr;
        completion();
    }
    emit wasHidden();
}

void ZRProgressHUD::showWhileExecuting(QObject* target, const char* method, const QVariant& object,
                                       bool animated) {
    taskInProgress_ = true;
    runThen(
        nullptr,
        [target, method = QByteArray(method), object] {
            QMetaObject::invokeMethod(target, method.constData(), Qt::DirectConnection,
                                      Q_ARG(QVariant, object));
        },
        this, [this] { cleanUp(); });
    show(animated);
}

void ZRProgressHUD::showAnimated(bool animated, std::function<void()> block) {
    showAnimated(animated, std::move(block), QThreadPool::globalInstance(), nullptr);
}

void ZRProgressHUD::showAnimated(bool animated, std::function<void()> block,
                                 std::function<void()> completion) {
    showAnimated(animated, std::move(block), QThreadPool::globalInstance(), std::move(completion));
}

void ZRProgressHUD::showAnimated(bool animated, std::function<void()> block, QThreadPool* queue) {
    showAnimated(animated, std::move(block), queue, nullptr);
}

void ZRProgressHUD::showAnimated(bool animated, std::function<void()> block, QThreadPool* queue,
                                 std::function<void()> completion) {
    taskInProgress_ = true;
    completionBlock_ = std::move(completion);
    runThen(queue, std::move(block), this, [this] { cleanUp(); });
    show(animated);
}

void ZRProgressHUD::cleanUp() {
    taskInProgress_ = false;
    hide(useAnimation_);
}

int ZRProgressHUD::interfaceOrientation() const {
    if (orientationOverride_)
        return *orientationOverride_;
    const QScreen* screen = overlay_->screen();
    if (screen == nullptr)
        return 1;
    switch (screen->angleBetween(screen->nativeOrientation(), screen->orientation())) {
    case 90:
        return 3;
    case 180:
        return 2;
    case 270:
        return 4;
    default:
        return 1;
    }
}

void ZRProgressHUD::setTransformForCurrentOrientation(bool animated) {
    if (superview_) {
        overlay_->setGeometry(superview_->rect());
        setNeedsLayout();
        overlay_->update();
    }
    constexpr qreal pi = std::numbers::pi;
    qreal angle = 0;
    switch (interfaceOrientation()) {
    case 3:
        angle = pi / 2;
        break;
    case 4:
        angle = -pi / 2;
        break;
    case 2:
        angle = pi;
        break;
    default:
        break;
    }
    if (!animated) {
        setRotationAngle(angle);
        return;
    }
    auto* turn = new QPropertyAnimation(this, "rotationAngle", this);
    turn->setDuration(Animations::duration(200));
    turn->setEndValue(angle);
    turn->start(QAbstractAnimation::DeleteWhenStopped);
}

} // namespace pomwick
