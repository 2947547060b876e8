// The "Contact Us" row: the feedback mail composer, and the notice that tells how it ended.
#include "FeedbackMailFlow.h"

#include "AlertView.h"
#include "DevicePaths.h"
#include "FeedbackAddress.h"
#include "ImageFile.h"
#include "ViewGeometry.h"
#include "ZRProgressHUD.h"

#include <QLabel>

namespace pomwick {

FeedbackMailFlow::FeedbackMailFlow(QWidget* page, QObject* parent)
    : MailComposeDelegate(parent), page_(page) {}

void FeedbackMailFlow::contactByMail() {
    if (!FeedbackMailComposer::canSendMail()) {
        AlertView(tr("Oops!"), tr("Your device cannot send emails!"), tr("Ok")).show();
        return;
    }
    auto* composer = new FeedbackMailComposer;
    composer->setMailComposeDelegate(this);
    composer->setSubject(tr("My Feedback - Pomwick"));
    composer->setMessageBody(tr("Sent from Pomwick Tweak"), false);
    composer->setToRecipients({feedbackAddress});
    composer->setModalPresentationStyle(FeedbackMailComposer::pageSheet);
    composer->presentOver(page_, true);
}

void FeedbackMailFlow::didFinishWithResult(FeedbackMailComposer* composer, MailComposeResult result,
                                           const QString&) {
    ZRProgressHUD* hud = ZRProgressHUD::showHUDAddedTo(page_, true);
    QString label;
    const char* imageFile = nullptr;
    switch (result) {
    case MailComposeResultSaved:
        label = tr("Message Saved!");
        imageFile = "HUD_completed.png";
        break;
    case MailComposeResultSent:
        label = tr("Message Sent!");
        imageFile = "HUD_completed.png";
        break;
    case MailComposeResultFailed:
        label = tr("An Error Occurred!");
        imageFile = "HUD_error.png";
        break;
    default:
        break;
    }
    if (!label.isEmpty()) {
        // "%@/%@" on a folder that already ends in "/": the doubled slash is kept, as built.
        const std::string path = std::string(DevicePath::bundleDirectory) + "/" + imageFile;
        auto* imageView = new QLabel;
        imageView->setScaledContents(true);
        if (const QImage image = imageWithContentsOfFile(hostPath(path)); !image.isNull())
            imageView->setPixmap(QPixmap::fromImage(image));
        setFrame(imageView, QRectF(0, 0, 50, 50));
        hud->setLabelText(label);
        hud->setMode(ZRProgressHUDModeCustomView);
        hud->setCustomView(imageView);
        hud->hide(true, 2.0);
    } else {
        hud->hide(true);
    }
    composer->dismissViewControllerAnimated(true);
}

} // namespace pomwick
