// From starting pomwick-settings to the first preview shown on its page, with the renderer
// already running on a private bus.
#include "PrivateSessionBus.h"
#include "TemporaryDeviceRoot.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QThread>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <vector>

using namespace pomwick;

namespace {

void HostStartToFirstPreview(benchmark::State& state) {
    test::PrivateSessionBus::address();
    test::TemporaryDeviceRoot root;
    const QString rootPath = QString::fromStdString(root.path());
    QProcess renderer;
    renderer.start(RENDERER, {"--root", rootPath});
    QThread::msleep(500);
    std::vector<double> samples;
    for (auto _ : state) {
        QProcess host;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        host.setProcessEnvironment(environment);
        QElapsedTimer timer;
        timer.start();
        host.start(HOST, {"--root", rootPath, "--exit-after-first-preview"});
        while (!host.readAllStandardOutput().contains("first preview shown") &&
               host.state() != QProcess::NotRunning)
            host.waitForReadyRead(5000);
        const double seconds = double(timer.nsecsElapsed()) / 1e9;
        state.SetIterationTime(seconds);
        samples.push_back(seconds * 1e3);
        host.waitForFinished(5000);
    }
    std::sort(samples.begin(), samples.end());
    state.counters["median_ms"] = samples[samples.size() / 2];
    state.counters["max_ms"] = samples.back();
    renderer.terminate();
    renderer.waitForFinished();
}

BENCHMARK(HostStartToFirstPreview)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(15);

} // namespace
