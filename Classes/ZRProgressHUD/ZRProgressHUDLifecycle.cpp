// When the notice shows and hides: grace time, minimum show time, delayed hides, the fade and
// zoom animations, work run while shown, and turning with the window's screen.
#include "Animations.h"
#include "ZRProgressHUD.h"

#include <QCoreApplication>
#include <QParallelAnimationGroup>
#include <QPropertyAnimation>
#include <QScreen>
#include <QThreadPool>
#include <QWindow>
#include <numbers>
#include <thread>

namespace pomwick {
namespace {

std::optional<int>& orientationOverride() {
    static std::optional<int> orientation;
    return orientation;
}

int milliseconds(double seconds) {
    return int(std::lround(std::clamp(seconds, 0.0, 1e9) * 1000));
}

// On a worker thread: runs the work, then has the main thread clean the notice up, if it still
// exists. Whatever the work throws stays on its thread, and the notice is simply left up.
void runThenCleanUp(const std::function<void()>& work, const QPointer<ZRProgressHUD>& self,
                    void (ZRProgressHUD::*cleanUp)()) {
    try {
        work();
    } catch (...) {
        return;
    }
    QMetaObject::invokeMethod(
        qApp,
        [self, cleanUp] {
            if (self)
                (self.data()->*cleanUp)();
        },
        Qt::QueuedConnection);
}

} // namespace

void ZRProgressHUD::show(bool animated) {
    onOwnThread([this, animated] {
        useAnimation_ = animated;
        if (graceTime_ > 0) {
            graceTimer_.start(milliseconds(graceTime_));
            return;
        }
        update();
        showUsingAnimation(useAnimation_);
    });
}

void ZRProgressHUD::handleGraceTimer() {
    // A task that ended within the grace time never shows the notice.
    if (!taskInProgress_)
        return;
    update();
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

std::vector<const QTimer*> ZRProgressHUD::pendingDelayedHides() const {
    return {delayedHides_.begin(), delayedHides_.end()};
}

void ZRProgressHUD::showUsingAnimation(bool animated) {
    stopAnimation();
    const bool zooms = animationType_ == ZRProgressHUDAnimationZoomDown ||
                       animationType_ == ZRProgressHUDAnimationZoomUp;
    if (animated && zooms)
        setZoom(animationType_ == ZRProgressHUDAnimationZoomDown ? 1.5 : 0.5);
    showStarted_ = clock_();
    if (!animated) {
        setAlpha(1);
        return;
    }
    std::vector<std::pair<const char*, qreal>> targets{{"alpha", 1.0}};
    if (zooms)
        targets.emplace_back("zoom", 1.0);
    animate(targets, animationMilliseconds, nullptr);
}

void ZRProgressHUD::hideUsingAnimation(bool animated) {
    stopAnimation();
    if (animated && showStarted_) {
        std::vector<std::pair<const char*, qreal>> targets;
        if (animationType_ == ZRProgressHUDAnimationZoomDown)
            targets.emplace_back("zoom", 0.5);
        else if (animationType_ == ZRProgressHUDAnimationZoomUp)
            targets.emplace_back("zoom", 1.5);
        // Not quite to 0: done() takes it the rest of the way.
        targets.emplace_back("alpha", 0.02);
        animate(targets, animationMilliseconds, [this] { done(); });
    } else {
        setAlpha(0);
        done();
    }
    showStarted_.reset();
}

void ZRProgressHUD::animate(const std::vector<std::pair<const char*, qreal>>& targets, int duration,
                            std::function<void()> finished) {
    auto* group = new QParallelAnimationGroup(this);
    for (const auto& [property, value] : targets) {
        auto* step = new QPropertyAnimation(this, property, group);
        step->setDuration(Animations::duration(duration));
        step->setEasingCurve(QEasingCurve::InOutQuad);
        step->setEndValue(value);
        group->addAnimation(step);
    }
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
    if (removeFromSuperViewOnHide_ && parentWidget()) {
        setParent(nullptr);
        deleteLater();
    }
    if (completionBlock_) {
        const auto completion = std::move(completionBlock_);
        completionBlock_ = nullptr;
        completion();
    }
    if (auto* listener = qobject_cast<ZRProgressHUDDelegate*>(delegate_.data()))
        listener->hudWasHidden(this);
}

void ZRProgressHUD::showWhileExecuting(QObject* target, const char* method, const QVariant& object,
                                       bool animated) {
    targetForExecution_ = target;
    methodForExecution_ = method;
    objectForExecution_ = object;
    taskInProgress_ = true;
    std::thread(&ZRProgressHUD::launchExecution, target, methodForExecution_, object,
                QPointer<ZRProgressHUD>(this))
        .detach();
    show(animated);
}

void ZRProgressHUD::launchExecution(QObject* target, const QByteArray& method,
                                    const QVariant& object, const QPointer<ZRProgressHUD>& self) {
    // On the work's own thread, which touches nothing of the notice but its weak pointer.
    runThenCleanUp(
        [&] {
            QMetaObject::invokeMethod(target, method.constData(), Qt::DirectConnection,
                                      Q_ARG(QVariant, object));
        },
        self, &ZRProgressHUD::cleanUp);
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
    queue->start([block = std::move(block), self = QPointer<ZRProgressHUD>(this)] {
        runThenCleanUp(block, self, &ZRProgressHUD::cleanUp);
    });
    show(animated);
}

void ZRProgressHUD::cleanUp() {
    taskInProgress_ = false;
    targetForExecution_ = nullptr;
    objectForExecution_.clear();
    hide(useAnimation_);
}

int ZRProgressHUD::interfaceOrientation(const QWidget* widget) {
    if (orientationOverride())
        return *orientationOverride();
    const QScreen* screen = widget->screen();
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

void ZRProgressHUD::setInterfaceOrientationOverride(std::optional<int> orientation) {
    orientationOverride() = orientation;
}

void ZRProgressHUD::setTransformForCurrentOrientation(bool animated) {
    if (superview_) {
        setGeometry(superview_->rect());
        setNeedsLayout();
        update();
    }
    constexpr qreal pi = std::numbers::pi;
    qreal angle = 0;
    switch (interfaceOrientation(this)) {
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
