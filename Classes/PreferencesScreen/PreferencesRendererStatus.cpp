// What the preview says while the renderer is away, and "Respring" seen through until the
// renderer answers again.
#include "Appearance.h"
#include "HomeScreen.h"
#include "PomwickPreferencesViewController.h"
#include "RendererPresence.h"
#include "ViewGeometry.h"
#include "ZRProgressHUD.h"

namespace pomwick {
namespace {

// A renderer the bus is starting takes a moment to take its name: only a longer absence is
// news to the user.
constexpr int absenceNoticedAfterMilliseconds = 1000;
// A renderer that does not come back at all leaves the explanation, not a notice forever.
constexpr int respringGivenUpAfterMilliseconds = 5000;
// Two lines of the status's text.
constexpr qreal minimumStatusHeight = 32;

} // namespace

void PomwickPreferencesViewController::setUpRendererStatus() {
    rendererAbsence_.setSingleShot(true);
    rendererAbsence_.setInterval(absenceNoticedAfterMilliseconds);
    connect(&rendererAbsence_, &QTimer::timeout, this, [this] {
        if (!renderer_->isRunning())
            showPreviewUnavailable(true);
    });
    respringGivenUp_.setSingleShot(true);
    respringGivenUp_.setInterval(respringGivenUpAfterMilliseconds);
    connect(&respringGivenUp_, &QTimer::timeout, this,
            &PomwickPreferencesViewController::endRespring);

    renderer_ = new RendererPresence(this);
    connect(renderer_, &RendererPresence::runningChanged, this, [this](bool running) {
        const bool awaited =
            respringHUD_ || (previewUnavailableLabel_ && !previewUnavailableLabel_->isHidden());
        if (running) {
            rendererAbsence_.stop();
            showPreviewUnavailable(false);
        } else {
            rendererAbsence_.start();
        }
        // Back (its supervisor started it), or gone after Respring (asking has the bus start a
        // new one): either way the preview the user waits for is asked for.
        if (awaited)
            requestPreview();
    });
    if (!renderer_->isRunning())
        rendererAbsence_.start();
}

// Below the sample icon; over the caption while the icon size is unknown and the header is no
// taller than the caption. Made the first time it is needed: the header holds only the preview
// until then.
void PomwickPreferencesViewController::showPreviewUnavailable(bool unavailable) {
    if (!unavailable) {
        if (previewUnavailableLabel_)
            previewUnavailableLabel_->hide();
        return;
    }
    if (!previewUnavailableLabel_) {
        previewUnavailableLabel_ = new QLabel(
            tr("Preview unavailable — the badge renderer is not running. Respring to start it."),
            tableHeaderView_);
        previewUnavailableLabel_->setWordWrap(true);
        previewUnavailableLabel_->setAlignment(Qt::AlignCenter);
        previewUnavailableLabel_->setFont(Appearance::systemFont(12));
        setBackgroundColor(previewUnavailableLabel_, Appearance::cellBackground);
        setTextColor(previewUnavailableLabel_, Appearance::sectionHeaderText);
    }
    const QRectF header = frame(tableHeaderView_);
    const qreal top = frame(iconImageView_).bottom() + 4;
    const QRectF belowIcon(16, top, header.width() - 32, header.bottom() - top);
    const bool belowFits = belowIcon.height() >= minimumStatusHeight;
    setFrame(previewUnavailableLabel_, belowFits ? belowIcon : frame(infoLabel_));
    // Over the caption it hides it; below the icon it lies on the header's grey.
    previewUnavailableLabel_->setAutoFillBackground(!belowFits);
    previewUnavailableLabel_->raise();
    previewUnavailableLabel_->show();
}

void PomwickPreferencesViewController::respring() {
    const bool wasRunning = renderer_->isRunning();
    restartHomeScreen();
    if (!respringHUD_) {
        respringHUD_ = ZRProgressHUD::showHUDAddedTo(view(), true);
        respringHUD_->setRemoveFromSuperViewOnHide(true);
        respringHUD_->setLabelText(tr("Respringing…"));
    }
    respringGivenUp_.start();
    // Nobody to wait for: ask at once, which has the bus start the renderer.
    if (!wasRunning)
        requestPreview();
}

// The renderer answered (or never will): the notice goes, and the preview shows what it drew.
void PomwickPreferencesViewController::endRespring() {
    respringGivenUp_.stop();
    if (respringHUD_)
        respringHUD_->hide(true);
    respringHUD_ = nullptr;
}

} // namespace pomwick
