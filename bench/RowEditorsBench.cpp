// One drag step of the position editor and one frame of the font sheet's slide, each with the
// repaint it causes.
#include "BadgePositionViewController.h"
#include "BundleInstallation.h"
#include "PomwickPreferencesViewController.h"
#include "PrivateSessionBus.h"
#include "TemporaryDeviceRoot.h"
#include "ViewGeometry.h"

#include <QCoreApplication>
#include <QGraphicsOpacityEffect>
#include <QMouseEvent>
#include <benchmark/benchmark.h>

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

BENCHMARK(PositionEditorDragStep)->Unit(benchmark::kMicrosecond)->MinTime(1.0);
BENCHMARK(FontSheetSlideFrame)->Unit(benchmark::kMicrosecond)->MinTime(1.0);

} // namespace
