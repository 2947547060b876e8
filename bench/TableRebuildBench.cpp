// A full rebuild of the settings table: 4 sections, 14 cells, the settings read afresh, and how
// often the settings file is read for one rebuild; and the whole page built with a pathological
// badge text.
#include "BundleInstallation.h"
#include "MessageNames.h"
#include "MessagingCenter.h"
#include "PomwickPreferencesViewController.h"
#include "PrivateSessionBus.h"
#include "Settings.h"
#include "SettingsSnapshot.h"
#include "TemporaryDeviceRoot.h"

#include <QCoreApplication>
#include <QProcess>
#include <QThread>
#include <benchmark/benchmark.h>

using namespace pomwick;

namespace {

// Every rebuild asks the renderer for a preview once a section. With /1 a peer holds the
// renderer's name as a running renderer does; with /0 nobody does, and each request is a failed
// start for the bus.
void TableRebuild(benchmark::State& state) {
    test::PrivateSessionBus::address();
    test::TemporaryDeviceRoot root;
    QProcess renderer;
    if (state.range(0) == 1) {
        renderer.start(ECHO_PEER, {CenterName::renderer});
        while (!MessagingCenter::centerNamed(CenterName::renderer).doesServerExist())
            QThread::msleep(10);
    }
    installBundleIntoDeviceRoot();
    setPreferencesObjectKey("New:@", SettingsKey::badgeTextFieldText);
    setPreferencesObjectKey("0.700000,-0.100000", SettingsKey::badgeLocation);
    setPreferencesObjectKey("0.900000", SettingsKey::badgeAlpha);
    PomwickPreferencesViewController screen;
    screen.setInitialViewSize(QSize(414, 772));
    screen.view()->show();
    const uint64_t readsBefore = SettingsSnapshot::fileReads();
    for (auto _ : state) {
        screen.reloadTableData();
        // What the event loop then does: lays out and paints the new rows, deletes the old.
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    state.counters["file_reads_per_rebuild"] =
        double(SettingsSnapshot::fileReads() - readsBefore) / double(state.iterations());
    renderer.terminate();
    renderer.waitForFinished();
}

BENCHMARK(TableRebuild)->Arg(1)->Arg(0)->Unit(benchmark::kMicrosecond)->MinTime(2.0);

// The page built, its preview composed and its first frame painted, with a badge text of one
// letter under 100,000 combining marks: one character to the eye, and text that a layout engine
// shapes as a single cluster.
void PageWithCombiningMarkText(benchmark::State& state) {
    test::PrivateSessionBus::address();
    test::TemporaryDeviceRoot root;
    installBundleIntoDeviceRoot();
    std::string text = "a";
    for (int64_t mark = 0; mark < state.range(0); ++mark)
        text += "\u0301";
    setPreferencesObjectKey(text, SettingsKey::badgeTextFieldText);
    for (auto _ : state) {
        PomwickPreferencesViewController screen;
        screen.setInitialViewSize(QSize(414, 772));
        screen.view()->show();
        screen.handleSimpleMessageNamed(MessageName::badgeSavedToTmp);
        QCoreApplication::sendPostedEvents();
        screen.view()->repaint();
    }
}

BENCHMARK(PageWithCombiningMarkText)
    ->Arg(0)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->MinTime(1.0);

} // namespace
