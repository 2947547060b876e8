// A full rebuild of the settings table: 4 sections, 14 cells, the settings read afresh, and how
// often the settings file is read for one rebuild.
#include "BundleInstallation.h"
#include "PomwickPreferencesViewController.h"
#include "PrivateSessionBus.h"
#include "Settings.h"
#include "SettingsSnapshot.h"
#include "TemporaryDeviceRoot.h"

#include <QCoreApplication>
#include <benchmark/benchmark.h>

using namespace pomwick;

namespace {

void TableRebuild(benchmark::State& state) {
    test::PrivateSessionBus::address();
    test::TemporaryDeviceRoot root;
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
}

BENCHMARK(TableRebuild)->Unit(benchmark::kMicrosecond)->MinTime(2.0);

} // namespace
