// When the notice shows and hides. Timers are fired by hand and animations run to their end by
// hand, with a clock the test moves: nothing here waits for real time but the worker threads.
#include "Animations.h"
#include "ZRProgressHUD.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QTest>
#include <QThreadPool>
#include <atomic>
#include <gtest/gtest.h>
#include <latch>
#include <numbers>
#include <stdexcept>
#include <thread>

using namespace pomwick;
using namespace std::chrono_literals;

namespace {

// Runs a pending one-shot timer now.
void fire(const QTimer& timer) {
    ASSERT_TRUE(timer.isActive());
    const_cast<QTimer&>(timer).stop();
    QMetaObject::invokeMethod(const_cast<QTimer*>(&timer), "timeout");
}

void finishAnimation(ZRProgressHUD* hud) {
    QAbstractAnimation* animation = hud->runningAnimation();
    ASSERT_NE(animation, nullptr);
    animation->setCurrentTime(animation->totalDuration());
}

class Listener : public QObject, public ZRProgressHUDDelegate {
    Q_OBJECT
    Q_INTERFACES(pomwick::ZRProgressHUDDelegate)
public:
    void hudWasHidden(ZRProgressHUD* hud) override { events.push_back(hud ? "hidden" : "null"); }
    std::vector<std::string> events;
};

class Work : public QObject {
    Q_OBJECT
public:
    Q_INVOKABLE void run(const QVariant& value) { received = value.toInt(); }
    std::atomic<int> received = 0;
};

class NoticeLifecycle : public testing::Test {
protected:
    NoticeLifecycle() {
        host.resize(320, 480);
        hud = new ZRProgressHUD(&host);
        hud->setParent(&host);
        hud->setClock([this] { return now; });
        hud->setDelegate(&listener);
        hud->setCompletionBlock([this] { listener.events.push_back("completion"); });
    }

    // The fades are stepped through by hand, at their real lengths.
    Animations::ScaleOverride realLengths{1};
    QWidget host;
    Listener listener;
    ZRProgressHUD* hud;
    std::chrono::steady_clock::time_point now{};
};

TEST_F(NoticeLifecycle, GraceTimeNeverShowsAQuickTaskYetReportsItsEnd) {
    hud->setGraceTime(5.0f); // long enough never to fire by itself here
    QThreadPool queue;
    hud->showAnimated(
        false, [] {}, &queue, [this] { listener.events.push_back("work done"); });
    EXPECT_EQ(hud->graceTimer().interval(), 5000);
    QTRY_VERIFY_WITH_TIMEOUT(!hud->taskInProgress(), 10000);
    EXPECT_EQ(listener.events, (std::vector<std::string>{"work done", "hidden"}));
    fire(hud->graceTimer());
    EXPECT_EQ(std::tuple(hud->alpha(), hud->isHidden()), std::tuple(0, true));
}

TEST_F(NoticeLifecycle, MinimumShowTimeDelaysTheHideByTheRemainder) {
    hud->setMinShowTime(1.0f);
    hud->show(false);
    now += 300ms;
    hud->hide(true);
    EXPECT_EQ(hud->minShowTimer().interval(), 700);
    EXPECT_EQ(hud->alpha(), 1);
    fire(hud->minShowTimer());
    finishAnimation(hud);
    EXPECT_EQ(hud->alpha(), 0);
    EXPECT_EQ(listener.events, (std::vector<std::string>{"completion", "hidden"}));
}

TEST_F(NoticeLifecycle, HidingANeverShownNoticeEndsAtOnceAndOnlyALiveDelegateHearsOfIt) {
    // Twice, and before any show: the completion runs once, the delegate hears each end.
    hud->hide(true);
    hud->hide(false);
    EXPECT_EQ(listener.events, (std::vector<std::string>{"completion", "hidden", "hidden"}));

    // Neither a deleted delegate nor an object without the interface hears anything.
    auto* gone = new Listener;
    hud->setDelegate(gone);
    delete gone;
    hud->hide(false);
    QObject plain;
    hud->setDelegate(&plain);
    hud->hide(false);
    EXPECT_EQ(listener.events.size(), 3u);
}

// The animation type, the zoom the notice shows from, the zoom it hides to.
class NoticeAnimations : public NoticeLifecycle,
                         public testing::WithParamInterface<std::tuple<int, qreal, qreal>> {};

TEST_P(NoticeAnimations, FadeOrZoomInAndOutStoppingJustShortOfClear) {
    const auto [type, showsFrom, hidesTo] = GetParam();
    hud->setAnimationType(type);
    hud->show(true);
    EXPECT_EQ(hud->zoom(), showsFrom);
    EXPECT_EQ(hud->runningAnimation()->totalDuration(), 300);
    finishAnimation(hud);
    EXPECT_EQ(std::tuple(hud->alpha(), hud->zoom()), std::tuple(1, 1));

    hud->hide(true);
    QAbstractAnimation* hiding = hud->runningAnimation();
    hiding->setCurrentTime(hiding->totalDuration() - 1);
    EXPECT_NEAR(hud->alpha(), 0.02, 0.001);
    EXPECT_NEAR(hud->zoom(), hidesTo, 0.001);
    EXPECT_TRUE(listener.events.empty());
    finishAnimation(hud);
    EXPECT_EQ(hud->alpha(), 0); // done() takes it the last step
    EXPECT_EQ(listener.events.size(), 2u);
}

INSTANTIATE_TEST_SUITE_P(Types, NoticeAnimations,
                         testing::Values(std::tuple(ZRProgressHUDAnimationFade, 1.0, 1.0),
                                         std::tuple(ZRProgressHUDAnimationZoomDown, 1.5, 0.5),
                                         std::tuple(ZRProgressHUDAnimationZoomUp, 0.5, 1.5)));

TEST_F(NoticeLifecycle, DoneCancelsPendingDelayedHides) {
    hud->show(false);
    hud->hide(false, 2.0);
    hud->hide(false, 5.0);
    ASSERT_EQ(hud->pendingDelayedHides().size(), 2u);
    EXPECT_EQ(hud->pendingDelayedHides()[0]->interval(), 2000);
    fire(*hud->pendingDelayedHides()[0]);
    EXPECT_TRUE(hud->pendingDelayedHides().empty());
    EXPECT_EQ(listener.events.size(), 2u);
}

TEST(NoticeOverAView, ClassOperationsFindShowAndRemoveNoticesAndADestroyedViewLeavesNothingBehind) {
    QWidget view;
    EXPECT_FALSE(ZRProgressHUD::hideHUDForView(&view, true));

    ZRProgressHUD* first = ZRProgressHUD::showHUDAddedTo(&view, false);
    ZRProgressHUD* second = ZRProgressHUD::showHUDAddedTo(&view, false);
    EXPECT_EQ(ZRProgressHUD::HUDForView(&view), second);
    EXPECT_EQ(ZRProgressHUD::allHUDsForView(&view), (std::vector<ZRProgressHUD*>{first, second}));

    EXPECT_TRUE(ZRProgressHUD::hideHUDForView(&view, false));
    EXPECT_EQ(ZRProgressHUD::allHUDsForView(&view), (std::vector<ZRProgressHUD*>{first}));
    EXPECT_EQ(ZRProgressHUD::hideAllHUDsForView(&view, false), 1);
    EXPECT_EQ(ZRProgressHUD::HUDForView(&view), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    // The work never ends while the view is there, yet the loop goes on and the view may go.
    std::latch release(1);
    QThreadPool queue;
    QPointer<ZRProgressHUD> hud;
    {
        QWidget doomed;
        hud = ZRProgressHUD::showHUDAddedTo(&doomed, true);
        hud->hide(true, 2.0);
        hud->showAnimated(
            true, [&release] { release.wait(); }, &queue);
        QCoreApplication::processEvents();
        EXPECT_TRUE(hud->taskInProgress());
    }
    EXPECT_TRUE(hud.isNull());
    release.count_down();
    queue.waitForDone();
    QCoreApplication::processEvents(); // the work's queued clean-up finds no notice
}

TEST_F(NoticeLifecycle, WorkThatThrowsLeavesTheNoticeUp) {
    QThreadPool queue;
    hud->showAnimated(
        false, [] { throw std::runtime_error("the work failed"); }, &queue);
    queue.waitForDone();
    QCoreApplication::processEvents(); // any clean-up the failed work queued
    EXPECT_EQ(std::tuple(hud->taskInProgress(), hud->alpha()), std::tuple(true, 1));
}

TEST_F(NoticeLifecycle, WorkAndChangesFromOtherThreadsTakeEffectOnTheMainThread) {
    std::thread::id completedOn;
    hud->setCompletionBlock([&] { completedOn = std::this_thread::get_id(); });
    std::thread([this] {
        hud->setLabelText("From a worker");
        hud->hide(false);
    }).join();
    EXPECT_FALSE(hud->isFinished()); // queued, not run on the worker
    QTRY_VERIFY(hud->isFinished());
    EXPECT_EQ(completedOn, std::this_thread::get_id());
    EXPECT_EQ(hud->label()->text(), "From a worker");

    // A selector's work gets its argument on its own thread; the notice still ends on this one.
    completedOn = {};
    hud->setCompletionBlock([&] { completedOn = std::this_thread::get_id(); });
    Work work;
    hud->showWhileExecuting(&work, "run", 42, false);
    EXPECT_TRUE(hud->taskInProgress());
    QTRY_VERIFY_WITH_TIMEOUT(completedOn == std::this_thread::get_id(), 10000);
    EXPECT_EQ(work.received, 42);
}

TEST(NoticeOverAView, ATopLevelWindowTurnsTheNoticeWithTheScreen) {
    QWidget window;
    window.resize(400, 300);
    ZRProgressHUD::setInterfaceOrientationOverride(3);
    auto* hud = ZRProgressHUD::showHUDAddedTo(&window, false);
    EXPECT_DOUBLE_EQ(hud->rotationAngle(), std::numbers::pi / 2);
    // It lays out in its turned bounds, 300 wide: a long label is cut to 300 - 4m.
    hud->setLabelText(QString(200, 'W'));
    hud->layoutSubviews();
    EXPECT_EQ(hud->label()->width(), 220);

    ZRProgressHUD::setInterfaceOrientationOverride(4);
    emit QGuiApplication::primaryScreen()->orientationChanged(Qt::LandscapeOrientation);
    QTRY_COMPARE(hud->rotationAngle(), -std::numbers::pi / 2);
    ZRProgressHUD::setInterfaceOrientationOverride(std::nullopt);
}

} // namespace

#include "LifecycleTest.moc"
