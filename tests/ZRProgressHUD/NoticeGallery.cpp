// Photographs the notice in every mode and the feedback mail's composer and result notices, as
// they appear on the display it runs on (a private Xvfb in the e2e test).
// Usage: pomwick-notice-gallery OUTPUT_FOLDER   (a sendmail must be on PATH for the composer)
#include "BundleInstallation.h"
#include "PomwickPreferencesViewController.h"
#include "PrivateSessionBus.h"
#include "TemporaryDeviceRoot.h"
#include "ViewGeometry.h"
#include "ZRProgressHUD.h"

#include <QAbstractAnimation>
#include <QApplication>
#include <QBoxLayout>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QScreen>
#include <QTest>
#include <clocale>
#include <cstdio>

using namespace pomwick;

namespace {

// A host that looks like a page of a settings app, so the panel's translucency shows.
QWidget* pageLikeHost(QWidget* parent) {
    auto* host = new QWidget(parent);
    host->setFixedSize(250, 250);
    setBackgroundColor(host, QColor(0xef, 0xef, 0xf4));
    for (int row = 0; row < 5; ++row) {
        auto* cell = new QLabel(QString("  Setting %1").arg(row + 1), host);
        cell->setGeometry(0, 20 + row * 45, 250, 44);
        setBackgroundColor(cell, Qt::white);
    }
    return host;
}

bool photograph(QWidget* window, const QDir& out, const char* name) {
    QTest::qWait(450); // the 0.3-second animations, and the window manager's first paint
    if (window->screen()->grabWindow(window->winId()).save(out.filePath(name)))
        return true;
    std::fprintf(stderr, "cannot write %s\n", qPrintable(out.filePath(name)));
    return false;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    if (argc != 2) {
        std::fprintf(stderr, "usage: pomwick-notice-gallery OUTPUT_FOLDER\n");
        return 2;
    }
    const QDir out(QString::fromLocal8Bit(argv[1]));
    QDir().mkpath(out.path());
    test::PrivateSessionBus::address();
    test::TemporaryDeviceRoot root;
    if (installBundleIntoDeviceRoot())
        return 1;

    QWidget gallery;
    gallery.setWindowTitle("Notices");
    auto* grid = new QGridLayout(&gallery);
    grid->setSpacing(8);
    const QImage tick(QString::fromStdString(root.at("/Library/PreferenceBundles/"
                                                     "PomwickPreferences.bundle/HUD_completed.png")
                                                 .string()));
    struct Scene {
        int mode;
        const char* label;
        const char* details;
        float progress;
        bool dim;
    };
    const Scene scenes[] = {
        {ZRProgressHUDModeSpinner, "Loading", nullptr, 0, false},
        {ZRProgressHUDModeRoundProgress, "Downloading", "3 of 12 files", 0.25f, false},
        {ZRProgressHUDModeBarProgress, "Uploading", nullptr, 0.5f, false},
        {ZRProgressHUDModeRingProgress, "Processing", nullptr, 0.75f, false},
        {ZRProgressHUDModeCustomView, "Message Sent!", nullptr, 0, false},
        {ZRProgressHUDModeTextOnly, "Saved", "Your badge settings were stored.", 0, false},
        {ZRProgressHUDModeSpinner, "Please wait", "Dimmed background", 0, true},
    };
    for (int index = 0; const Scene& scene : scenes) {
        QWidget* host = pageLikeHost(&gallery);
        grid->addWidget(host, index / 4, index % 4);
        ++index;
        auto* hud = ZRProgressHUD::showHUDAddedTo(host, true);
        hud->setMode(scene.mode);
        hud->setLabelText(scene.label);
        if (scene.details)
            hud->setDetailsLabelText(scene.details);
        hud->setProgress(scene.progress);
        hud->setDimBackground(scene.dim);
        if (scene.mode == ZRProgressHUDModeCustomView) {
            auto* image = new QLabel;
            image->setPixmap(QPixmap::fromImage(tick));
            image->setScaledContents(true);
            image->setGeometry(0, 0, 50, 50);
            hud->setCustomView(image);
        }
    }
    gallery.show();
    if (!photograph(&gallery, out, "notice-gallery.png"))
        return 1;
    gallery.hide();

    // Five frames of a zoom-down show, side by side.
    QWidget strip;
    strip.setWindowTitle("Frames");
    auto* row = new QHBoxLayout(&strip);
    std::vector<ZRProgressHUD*> frames;
    for (int i = 0; i < 5; ++i) {
        QWidget* host = pageLikeHost(&strip);
        row->addWidget(host);
        auto* hud = new ZRProgressHUD(host);
        hud->setParent(host);
        hud->setAnimationType(ZRProgressHUDAnimationZoomDown);
        hud->setLabelText("Message Sent!");
        hud->show(true);
        frames.push_back(hud);
    }
    strip.show();
    QTest::qWait(100);
    for (int i = 0; ZRProgressHUD * hud : frames) {
        hud->runningAnimation()->pause();
        hud->runningAnimation()->setCurrentTime(i++ * 75);
    }
    if (!photograph(&strip, out, "notice-frames.png"))
        return 1;
    strip.hide();

    PomwickPreferencesViewController screen;
    screen.setInitialViewSize(QSize(375, 623));
    QWidget* page = screen.view();
    page->setWindowTitle("Pomwick");
    page->show();
    screen.contactByMail();
    if (!photograph(page, out, "mail-composer.png"))
        return 1;
    auto* composer = page->findChild<FeedbackMailComposer*>();
    if (composer == nullptr)
        return 1;
    composer->dismissViewControllerAnimated(false);
    const std::pair<MailComposeResult, const char*> results[] = {
        {MailComposeResultSent, "notice-sent.png"},
        {MailComposeResultSaved, "notice-saved.png"},
        {MailComposeResultFailed, "notice-failed.png"},
    };
    for (const auto& [result, file] : results) {
        ZRProgressHUD::hideAllHUDsForView(page, false);
        auto* finished = new FeedbackMailComposer;
        finished->presentOver(page, false);
        screen.didFinishWithResult(finished, result, {});
        if (!photograph(page, out, file))
            return 1;
    }
    return 0;
}
