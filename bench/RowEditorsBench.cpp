// One drag step of the position editor and one frame of the font sheet's slide, each with the
// repaint it causes; and the palette the colour grids read, at 3,300 and 33,000 colours (it must
// grow linearly).
#include "AtomicFile.h"
#include "BadgePositionViewController.h"
#include "BundleInstallation.h"
#include "ColorPalette.h"
#include "PomwickPreferencesViewController.h"
#include "PreviewFiles.h"
#include "PrivateSessionBus.h"
#include "TemporaryDeviceRoot.h"
#include "ViewGeometry.h"

#include <QCoreApplication>
#include <QGraphicsOpacityEffect>
#include <QMouseEvent>
#include <benchmark/benchmark.h>
#include <cstdio>

using namespace pomwick;

namespace {

struct Sender : BadgePositionSender {
    QImage badge{30, 24, QImage::Format_ARGB32_Premultiplied};
    QRectF viewBounds() override { return {0, 0, 414, 816}; }
    float iconSize() const override { return 60; }
    QImage finalBadgeImage() const override { return badge; }
};

void send(QWidget* page, QEvent::Type type, QPointF at) {
    QMouseEvent event(type, at, page->mapToGlobal(at), Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
    QCoreApplication::sendEvent(page, &event);
}

void PositionEditorDragStep(benchmark::State& state) {
    test::TemporaryDeviceRoot root;
    installBundleIntoDeviceRoot();
    Sender sender;
    sender.badge.fill(Qt::red);
    BadgePositionViewController editor;
    editor.setSender(&sender);
    QWidget* page = editor.view();
    page->show();
    QCoreApplication::processEvents();
    const QPointF badge = editor.innerView()->mapTo(page, QPointF(65, 65));
    send(page, QEvent::MouseButtonPress, badge);
    qreal offset = 0;
    for (auto _ : state) {
        offset = offset == 0 ? 3 : 0;
        send(page, QEvent::MouseMove, badge + QPointF(offset, offset));
        page->repaint();
    }
    send(page, QEvent::MouseButtonRelease, badge);
}

void FontSheetSlideFrame(benchmark::State& state) {
    test::PrivateSessionBus::address();
    test::TemporaryDeviceRoot root;
    installBundleIntoDeviceRoot();
    PomwickPreferencesViewController screen;
    screen.setInitialViewSize(QSize(414, 816));
    screen.view()->show();
    QCoreApplication::processEvents();
    screen.showFontPicker();
    QWidget* sheet = screen.fontContainerView();
    auto* fade = qobject_cast<QGraphicsOpacityEffect*>(sheet->graphicsEffect());
    int step = 0;
    for (auto _ : state) {
        step = (step + 1) % 30;
        sheet->move(0, 556 + step * 8);
        fade->setOpacity(1.0 - step / 30.0);
        screen.view()->repaint();
    }
}

void PaletteRead(benchmark::State& state) {
    test::TemporaryDeviceRoot root;
    installBundleIntoDeviceRoot();
    std::string palette = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">"
                          "<dict><key>colors</key><array>";
    char entry[64];
    for (int64_t color = 0; color < state.range(0); ++color) {
        std::snprintf(entry, sizeof entry, "<dict><key>hash</key><string>#%06X</string></dict>",
                      unsigned(color * 509) & 0xFFFFFFu);
        palette += entry;
    }
    palette += "</array></dict></plist>\n";
    writeFileAtomically(bundleFile(PreviewFile::palette), palette);
    for (auto _ : state) {
        const std::vector<Color> colors = loadColorPalette();
        if (colors.size() != size_t(state.range(0)))
            state.SkipWithError("the palette was not read whole");
    }
}

BENCHMARK(PositionEditorDragStep)->Unit(benchmark::kMicrosecond)->MinTime(1.0);
BENCHMARK(FontSheetSlideFrame)->Unit(benchmark::kMicrosecond)->MinTime(1.0);
BENCHMARK(PaletteRead)->Arg(3300)->Arg(33000)->Unit(benchmark::kMillisecond)->MinTime(1.0);

} // namespace
