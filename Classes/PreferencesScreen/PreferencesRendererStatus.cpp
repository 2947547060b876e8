// What the preview says while the renderer is away, and "Respring" seen through until the
// renderer answers again.
#include "HomeScreen.h"
#include "PomwickPreferencesViewController.h"
#include "PreviewHeader.h"
#include "RendererPresence.h"
#include "ZRProgressHUD.h"

#include <QTimer>

namespace pomwick {
namespace {

// A renderer the bus is starting takes a moment to take its name: only a longer absence is
// news to the user.
constexpr int absenceNoticedAfterMilliseconds = 1000;
// A renderer that does not come back at all leaves the explanation, not a notice forever.
constexpr int respringGivenUpAfterMilliseconds = 5000;

QTimer* singleShot(int milliseconds, QObject* parent) {
    auto* timer = new QTimer(parent);
    timer->setSingleShot(true);
    timer->setInterval(milliseconds);
    return timer;
}

} // namespace

void PomwickPreferencesViewController::setUpRendererStatus() {
    rendererAbsence_ = singleShot(absenceNoticedAfterMilliseconds, this);
    connect(rendererAbsence_, &QTimer::timeout, this, [this] {
        if (!renderer_->isRunning())
            header_->showUnavailable(true);
    });
    respringGivenUp_ = singleShot(respringGivenUpAfterMilliseconds, this);
    connect(respringGivenUp_, &QTimer::timeout, this,
            &PomwickPreferencesViewController::endRespring);

    renderer_ = new RendererPresence(this);
    connect(renderer_, &RendererPresence::runningChanged, this, [this](bool running) {
        const bool awaited = respringHUD_ || header_->showsUnavailable();
        if (running) {
            rendererAbsence_->stop();
            header_->showUnavailable(false);
        } else {
            rendererAbsence_->start();
        }
        // Back (its supervisor started it), or gone after Respring (asking has the bus start a
        // new one): either way the preview the user waits for is asked for.
        if (awaited)
            requestPreview();
    });
    if (!renderer_->isRunning())
        rendererAbsence_->start();
}

void PomwickPreferencesViewController::respring() {
    const bool wasRunning = renderer_->isRunning();
    restartHomeScreen();
    if (!respringHUD_) {
        respringHUD_ = ZRProgressHUD::showHUDAddedTo(view(), true);
        respringHUD_->setRemoveFromSuperViewOnHide(true);
        respringHUD_->setLabelText(tr("Respringing…"));
    }
    respringGivenUp_->start();
    // Nobody to wait for: ask at once, which has the bus start the renderer.
    if (!wasRunning)
        requestPreview();
}

// The renderer answered (or never will): the notice goes, and the preview shows what it drew.
void PomwickPreferencesViewController::endRespring() {
    respringGivenUp_->stop();
    if (respringHUD_)
        respringHUD_->hide(true);
    respringHUD_ = nullptr;
}

} // namespace pomwick
