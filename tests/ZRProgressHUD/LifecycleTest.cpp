// When the notice shows and hides. Timers are fired by hand and animations run to their end by
// hand, with a clock the test moves: nothing here waits for real time but the worker threads.
#include "Animations.h"
#include "ZRProgressHUDTestAccess.h"

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

using Access = ZRProgressHUDTestAccess;

class Listener : public QObject {
    Q_OBJECT
public:
    void hudWasHidden(ZRProgressHUD* hud) { events.push_back(hud ? "hidden" : "null"); }
    // Work for showWhileExecuting, run on its thread.
    Q_INVOKABLE void run(const QVariant& value) { received = value.toInt(); }
    std::vector<std::string> events;
    std::atomic<int> received = 0;
};

class NoticeLifecycle : public testing::Test {
protected:
    NoticeLifecycle() {
        host.resize(320, 480);
        hud = new ZRProgressHUD(&host);
        hud->setSuperview(&host);
        Access::setClock(hud, [this] { return now; });
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

TEST_F(NoticeLifecycle, GraceTimeNeverShowsAQuickTaskYetReportsItsEndAndFailedWorkLeavesItUp) {
    hud->setGraceTime(5.0f); // long enough never to fire by itself here
    QThreadPool queue;
    hud->showAnimated(
        false, [] {}, &queue, [this] { listener.events.push_back("work done"); });
    EXPECT_EQ(Access::graceTimer(hud).interval(), 5000);
    QTRY_VERIFY_WITH_TIMEOUT(!hud->taskInProgress(), 10000);
    EXPECT_EQ(listener.events, (std::vector<std::string>{"work done", "hidden"}));
    ASSERT_TRUE(Access::fire(Access::graceTimer(hud)));
    EXPECT_EQ(std::tuple(hud->alpha(), Access::overlay(hud)->isHidden()), std::tuple(0, true));

    // Work that throws leaves the notice up.
    hud->setGraceTime(0);
    hud->showAnimated(
        false, [] { throw std::runtime_error("the work failed"); }, &queue);
    queue.waitForDone();
    QCoreApplication::processEvents(); // any clean-up the failed work queued
    EXPECT_EQ(std::tuple(hud->taskInProgress(), hud->alpha()), std::tuple(true, 1));
}

// A delayed hide waits out the minimum show time too; the end cancels the other delayed hides.
TEST_F(NoticeLifecycle, MinimumShowTimeDelaysTheHideByTheRemainderAndDoneCancelsDelayedHides) {
    hud->setMinShowTime(1.0f);
    hud->show(false);
    hud->hide(true, 0.3);
    hud->hide(false, 5.0);
    ASSERT_EQ(Access::delayedHides(hud).size(), 2u);
    EXPECT_EQ(Access::delayedHides(hud)[0]->interval(), 300);
    now += 300ms;
    ASSERT_TRUE(Access::fire(*Access::delayedHides(hud)[0]));
    EXPECT_EQ(Access::minShowTimer(hud).interval(), 700);
    EXPECT_EQ(hud->alpha(), 1);
    ASSERT_TRUE(Access::fire(Access::minShowTimer(hud)));
    ASSERT_TRUE(Access::finishAnimation(hud));
    EXPECT_EQ(hud->alpha(), 0);
    EXPECT_TRUE(Access::delayedHides(hud).empty());
    EXPECT_EQ(listener.events, (std::vector<std::string>{"completion", "hidden"}));
}

TEST_F(NoticeLifecycle, HidingANeverShownNoticeEndsAtOnceAndOnlyALiveDelegateHearsOfIt) {
    // Twice, and before any show: the completion runs once, the delegate hears each end.
    hud->hide(true);
    hud->hide(false);
    EXPECT_EQ(listener.events, (std::vector<std::string>{"completion", "hidden", "hidden"}));

    // Neither a deleted delegate nor an object without hudWasHidden hears anything.
    hud->setDelegate(std::make_unique<Listener>().get()); // deleted at once
    hud->hide(false);
    hud->setDelegate(&host); // a widget, without hudWasHidden
    hud->hide(false);
    EXPECT_EQ(listener.events.size(), 3u);
}

// The animation type, the zoom the notice shows from, the zoom it hides to.
class NoticeAnimations
    : public NoticeLifecycle,
      public testing::WithParamInterface<std::tuple<ZRProgressHUDAnimation, qreal, qreal>> {};

TEST_P(NoticeAnimations, FadeOrZoomInAndOutStoppingJustShortOfClear) {
    const auto [type, showsFrom, hidesTo] = GetParam();
    hud->setAnimationType(type);
    hud->show(true);
    EXPECT_EQ(hud->zoom(), showsFrom);
    EXPECT_EQ(Access::animation(hud)->totalDuration(), 300);
    ASSERT_TRUE(Access::finishAnimation(hud));
    EXPECT_EQ(std::tuple(hud->alpha(), hud->zoom()), std::tuple(1, 1));

    hud->hide(true);
    QAbstractAnimation* hiding = Access::animation(hud);
    hiding->setCurrentTime(hiding->totalDuration() - 1);
    EXPECT_NEAR(hud->alpha(), 0.02, 0.001);
    EXPECT_NEAR(hud->zoom(), hidesTo, 0.001);
    EXPECT_TRUE(listener.events.empty());
    ASSERT_TRUE(Access::finishAnimation(hud));
    EXPECT_EQ(hud->alpha(), 0); // done() takes it the last step
    EXPECT_EQ(listener.events.size(), 2u);
}

INSTANTIATE_TEST_SUITE_P(Types, NoticeAnimations,
                         testing::Values(std::tuple(ZRProgressHUDAnimationFade, 1.0, 1.0),
                                         std::tuple(ZRProgressHUDAnimationZoomDown, 1.5, 0.5),
                                         std::tuple(ZRProgressHUDAnimationZoomUp, 0.5, 1.5)));

TEST(NoticeOverAView, ClassOperationsFindShowAndRemoveNoticesAndADestroyedViewLeavesNothingBehind) {
    QWidget view;
    EXPECT_THROW(ZRProgressHUD(nullptr), std::invalid_argument);
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

TEST_F(NoticeLifecycle, WorkAndChangesFromOtherThreadsTakeEffectOnTheMainThread) {
    std::thread::id completedOn;
    hud->setCompletionBlock([&] { completedOn = std::this_thread::get_id(); });
    std::thread([this] {
        hud->setLabelText("From a worker");
        hud->hide(false);
    }).join();
    EXPECT_EQ(completedOn, std::thread::id()); // queued, not run on the worker
    QTRY_VERIFY(completedOn == std::this_thread::get_id());
    EXPECT_EQ(Access::overlay(hud)->accessibleName(), "From a worker");

    // A selector's work gets its argument on its own thread; the notice still ends on this one.
    completedOn = {};
    hud->setCompletionBlock([&] { completedOn = std::this_thread::get_id(); });
    hud->showWhileExecuting(&listener, "run", 42, false);
    EXPECT_TRUE(hud->taskInProgress());
    QTRY_VERIFY_WITH_TIMEOUT(completedOn == std::this_thread::get_id(), 10000);
    EXPECT_EQ(listener.received, 42);
}

TEST(NoticeOverAView, ATopLevelWindowTurnsTheNoticeWithTheScreen) {
    QWidget window;
    window.resize(400, 300);
    Access::setOrientation(3);
    auto* hud = ZRProgressHUD::showHUDAddedTo(&window, false);
    EXPECT_DOUBLE_EQ(hud->rotationAngle(), std::numbers::pi / 2);
    // It lays out in its turned bounds, 300 wide: a long label is cut to 300 - 4m.
    hud->setLabelText(QString(200, 'W'));
    hud->layoutSubviews();
    EXPECT_EQ(Access::frames(hud).label.width(), 220);

    Access::setOrientation(4);
    emit QGuiApplication::primaryScreen()->orientationChanged(Qt::LandscapeOrientation);
    QTRY_COMPARE(hud->rotationAngle(), -std::numbers::pi / 2);
    Access::setOrientation(std::nullopt);
}

} // namespace

#include "LifecycleTest.moc"
