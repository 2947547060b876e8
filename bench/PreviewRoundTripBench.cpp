// The preview round trip against a real renderer on a private bus ("saveBadgeImages" sent, the
// renderer draws and writes, "badgeSavedToTmp" comes back, the preview badge is composed),
// measured beside a bare two-message ping-pong with a peer process on the same bus, which runs
// first: the round trips report their median and 99th percentile as multiples of its median, and
// how often the screen's side reads the settings file for one composition.
#include "DevicePaths.h"
#include "MessageNames.h"
#include "MessagingCenter.h"
#include "PreviewComposition.h"
#include "PrivateSessionBus.h"
#include "Settings.h"
#include "SettingsSnapshot.h"
#include "TemporaryDeviceRoot.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <filesystem>
#include <memory>
#include <vector>

using namespace pomwick;

namespace {

const QString echoCenter = QStringLiteral("com.velquor.pomwickbench.echo");

struct Peers {
    test::TemporaryDeviceRoot root;
    QProcess renderer;
    QProcess echo;
    QObject receiver;
    int answers = 0;

    Peers() {
        test::PrivateSessionBus::address();
        renderer.start(RENDERER, {"--root", QString::fromStdString(root.path())});
        echo.start(ECHO_PEER, {});
        MessagingCenter& screen = MessagingCenter::centerNamed(CenterName::preferences);
        screen.runServerOnCurrentThread();
        for (const QString& name : {MessageName::badgeSavedToTmp, MessageName::reloadData})
            screen.registerForMessageName(name, &receiver, [this](const QString&) { ++answers; });
        while (!MessagingCenter::centerNamed(CenterName::renderer).doesServerExist() ||
               !MessagingCenter::centerNamed(echoCenter).doesServerExist())
            QThread::msleep(10);
        // The renderer answers once unasked when it starts.
        const int before = answers;
        while (answers == before)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    ~Peers() {
        renderer.terminate();
        echo.terminate();
        renderer.waitForFinished();
        echo.waitForFinished();
    }

    void awaitAnswer(int before) {
        while (answers == before)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
};

Peers& peers() {
    static Peers instance;
    return instance;
}

// The ping-pong's median in this run, in microseconds.
double pingPongMedian = 0;

// Times each iteration by hand, after an untimed preparation, and reports the median and the 99th
// percentile beside the mean.
template <typename Prepare, typename Exchange>
void measure(benchmark::State& state, Prepare prepare, Exchange exchange) {
    std::vector<double> samples;
    QElapsedTimer timer;
    for (auto _ : state) {
        prepare();
        timer.start();
        exchange();
        const double seconds = double(timer.nsecsElapsed()) / 1e9;
        state.SetIterationTime(seconds);
        samples.push_back(seconds * 1e6);
    }
    std::sort(samples.begin(), samples.end());
    state.counters["median_us"] = samples[samples.size() / 2];
    state.counters["p99_us"] = samples[std::min(samples.size() - 1, samples.size() * 99 / 100)];
    if (pingPongMedian > 0) {
        state.counters["median_x_pingpong"] = state.counters["median_us"].value / pingPongMedian;
        state.counters["p99_x_pingpong"] = state.counters["p99_us"].value / pingPongMedian;
    }
}

template <typename Exchange> void measure(benchmark::State& state, Exchange exchange) {
    measure(
        state, [] {}, exchange);
}

template <typename Prepare> void measureRoundTrips(benchmark::State& state, Prepare prepare) {
    Peers& bus = peers();
    const QRectF icon(0, 45, 60, 60);
    const uint64_t readsBefore = SettingsSnapshot::fileReads();
    measure(state, prepare, [&] {
        const int before = bus.answers;
        MessagingCenter::centerNamed(CenterName::renderer)
            .sendMessageName(MessageName::saveBadgeImages);
        bus.awaitAnswer(before);
        benchmark::DoNotOptimize(composePreviewBadge(icon, 60));
    });
    state.counters["file_reads_per_composition"] =
        double(SettingsSnapshot::fileReads() - readsBefore) / double(state.iterations());
}

// state.range(0): 0 for the defaults (no settings file: a round badge), 1 for a file that holds a
// longer text (a pill).
void PreviewRoundTrip(benchmark::State& state) {
    peers();
    if (state.range(0))
        setPreferencesObjectKey("Alert:@", SettingsKey::badgeTextFieldText);
    else
        std::filesystem::remove(hostPath(DevicePath::preferencesFile));
    measureRoundTrips(state, [] {});
}

// The pill right after its color changed, as when the user picks one: the renderer draws and
// encodes, and the screen decodes, every time. The change itself is not timed.
void PreviewRoundTripAfterAChange(benchmark::State& state) {
    peers();
    setPreferencesObjectKey("Alert:@", SettingsKey::badgeTextFieldText);
    int step = 0;
    measureRoundTrips(state, [&] {
        setPreferencesObjectKey(++step % 2 == 0 ? "1.000000,0.000000,0.000000,1.000000"
                                                : "0.000000,0.000000,1.000000,1.000000",
                                SettingsKey::badgeBackgroundColor);
    });
}

void DBusPingPong(benchmark::State& state) {
    Peers& bus = peers();
    measure(state, [&] {
        const int before = bus.answers;
        QDBusConnection::sessionBus().send(QDBusMessage::createMethodCall(
            echoCenter, QStringLiteral("/com/velquor/pomwickbench/echo"), echoCenter,
            QStringLiteral("ping")));
        bus.awaitAnswer(before);
    });
    pingPongMedian = state.counters["median_us"].value;
}

BENCHMARK(DBusPingPong)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(2000);
BENCHMARK(PreviewRoundTrip)
    ->ArgName("pill")
    ->Arg(0)
    ->Arg(1)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(2000);
BENCHMARK(PreviewRoundTripAfterAChange)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(2000);

} // namespace
