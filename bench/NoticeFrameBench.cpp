// One animation frame of the floating notice: the fade-and-zoom animation stepped to a new time
// and the notice (panel, spinner, label, details) drawn at scale 2, as the screen would show it.
#include "../tests/ZRProgressHUD/ZRProgressHUDTestAccess.h"
#include "ZRProgressHUD.h"

#include <QAbstractAnimation>
#include <QApplication>
#include <QImage>
#include <benchmark/benchmark.h>

using namespace pomwick;

namespace {

// A screen at scale 2, as the frame is drawn: set before the shared main starts the application.
[[maybe_unused]] const bool screenAtScale2 = qputenv("QT_SCALE_FACTOR", "2");

void NoticeAnimationFrame(benchmark::State& state) {
    QWidget host;
    host.resize(375, 623);
    host.show();
    auto* hud = new ZRProgressHUD(&host);
    hud->setSuperview(&host);
    hud->setAnimationType(ZRProgressHUDAnimationZoomDown);
    hud->setLabelText("Message Sent!");
    hud->setDetailsLabelText("Your feedback is on its way");
    hud->setDimBackground(state.range(0) != 0);
    QImage frame(host.size() * 2, QImage::Format_ARGB32_Premultiplied);
    frame.setDevicePixelRatio(2);
    int time = 0;
    for (auto _ : state) {
        if (ZRProgressHUDTestAccess::animation(hud) == nullptr || time >= 290) {
            hud->show(true);
            time = 0;
        }
        time += 8; // a 120 Hz frame
        ZRProgressHUDTestAccess::animation(hud)->setCurrentTime(time);
        host.render(&frame);
    }
}

BENCHMARK(NoticeAnimationFrame)
    ->Arg(0)
    ->Arg(1)
    ->ArgName("dimmed")
    ->Unit(benchmark::kMicrosecond)
    ->MeasureProcessCPUTime()
    ->MinTime(2.0);

} // namespace
