// Photographs the notice in every mode, each over a page like a settings app's so that the
// panel's translucency shows, as it appears on the display it runs on (a private Xvfb in the e2e
// test). Usage: pomwick-notice-gallery OUTPUT_FILE.png
#include "ViewGeometry.h"
#include "ZRProgressHUD.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QScreen>
#include <QTest>

using namespace pomwick;

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc != 2)
        return 2;
    const struct {
        ZRProgressHUDMode mode;
        const char *label, *details;
        float progress;
        bool dim;
    } scenes[] = {
        {ZRProgressHUDModeSpinner, "Loading", "", 0, false},
        {ZRProgressHUDModeRoundProgress, "Downloading", "3 of 12 files", 0.25f, false},
        {ZRProgressHUDModeBarProgress, "Uploading", "", 0.5f, false},
        {ZRProgressHUDModeRingProgress, "Processing", "", 0.75f, false},
        {ZRProgressHUDModeCustomView, "Message Sent!", "", 0, false},
        {ZRProgressHUDModeTextOnly, "Saved", "Your badge settings were stored.", 0, false},
        {ZRProgressHUDModeSpinner, "Please wait", "Dimmed background", 0, true},
    };
    QWidget gallery;
    auto* grid = new QGridLayout(&gallery);
    for (const auto& scene : scenes) {
        auto* page = new QWidget;
        page->setFixedSize(250, 250);
        setBackgroundColor(page, QColor(0xef, 0xef, 0xf4));
        for (int row = 0; row < 5; ++row) {
            auto* cell = new QLabel(QString("  Setting %1").arg(row + 1), page);
            cell->setGeometry(0, 20 + row * 45, 250, 44);
            setBackgroundColor(cell, Qt::white);
        }
        grid->addWidget(page, grid->count() / 4, grid->count() % 4); // four to a row
        // Shown at once: a fade would be waited out before the picture.
        auto* hud = ZRProgressHUD::showHUDAddedTo(page, false);
        auto* tick = new QLabel("\u2713"); // shown in the custom view mode only
        tick->setStyleSheet("color: white; font-size: 40px");
        tick->setGeometry(0, 0, 50, 50);
        hud->setCustomView(tick);
        hud->setMode(scene.mode);
        hud->setLabelText(scene.label);
        hud->setDetailsLabelText(scene.details);
        hud->setProgress(scene.progress);
        hud->setDimBackground(scene.dim);
    }
    gallery.show();
    QTest::qWait(200); // the window manager's first paint
    return gallery.screen()->grabWindow(gallery.winId()).save(argv[1]) ? 0 : 1;
}
