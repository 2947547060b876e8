#pragma once

#include "FeedbackMailComposer.h"

#include <QPointer>

namespace pomwick {

// The "Contact Us" row: the feedback mail composer over the page, and the notice that tells how
// it ended.
class FeedbackMailFlow : public MailComposeDelegate {
    Q_OBJECT
public:
    FeedbackMailFlow(QWidget* page, QObject* parent);

    void contactByMail();
    void didFinishWithResult(FeedbackMailComposer* composer, MailComposeResult result,
                             const QString& error) override;

private:
    QPointer<QWidget> page_;
};

} // namespace pomwick
