#pragma once

#include "MailComposeResult.h"
#include "MailMessage.h"

#include <QDialog>
#include <QMenu>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <chrono>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace pomwick {

class FeedbackMailComposer;
class SendmailDelivery;

// Hears how the composer ended; it then dismisses the composer.
class MailComposeDelegate : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    virtual void didFinishWithResult(FeedbackMailComposer* composer, MailComposeResult result,
                                     const QString& error) = 0;
};

// The in-app mail composer: a page sheet sliding up over the window with To, Subject and a plain
// text body, Send (only while To holds valid addresses), and Cancel offering to save or delete
// the draft. Sending goes through the system's sendmail without blocking the window; a saved
// draft, or a message that could not be sent, becomes an .eml file in the drafts folder.
class FeedbackMailComposer : public QDialog {
    Q_OBJECT
    Q_PROPERTY(qreal presentation READ presentation WRITE setPresentation)
public:
    static constexpr int pageSheet = 1;

    // Whether mail can be sent at all: a sendmail program is installed.
    static bool canSendMail();

    FeedbackMailComposer();
    ~FeedbackMailComposer() override;

    // Held weakly.
    void setMailComposeDelegate(MailComposeDelegate* delegate) { delegate_ = delegate; }
    void setSubject(const QString& subject);
    void setMessageBody(const QString& body, bool isHTML);
    void setToRecipients(const QStringList& recipients);
    void setModalPresentationStyle(int style) { presentationStyle_ = style; }
    int modalPresentationStyle() const { return presentationStyle_; }

    // Slides the sheet up over the host's window, which then owns it.
    void presentOver(QWidget* host, bool animated);
    // Slides it away and deletes it.
    void dismissViewControllerAnimated(bool animated);

    MailDraft draft() const;

    qreal presentation() const { return presentation_; }
    void setPresentation(qreal shown);

    void send();
    void cancel();
    void deleteDraft();
    void saveDraft();

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void reject() override;

private:
    friend struct FeedbackMailComposerTestAccess;
    void buildSheet();
    QRect sheetGeometry() const;
    void finishWith(MailComposeResult result, const QString& error = {});
    void setBusy(bool busy, const QString& status);
    void checkRecipients();
    void reportFailedSend(const QString& error);

    QPointer<MailComposeDelegate> delegate_;
    int presentationStyle_ = 0;
    std::chrono::milliseconds sendTimeout_{30000};
    QWidget* sheet_ = nullptr;
    QLabel* titleLabel_ = nullptr;
    QLineEdit* toField_ = nullptr;
    QLineEdit* subjectField_ = nullptr;
    QPlainTextEdit* bodyField_ = nullptr;
    QLabel* statusLabel_ = nullptr;
    // Shown in the bar while the mail transport has the message.
    QProgressBar* busyIndicator_ = nullptr;
    QPushButton* sendButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
    // The Save Draft / Delete Draft choice Cancel opens, or null while it is not open.
    QPointer<QMenu> draftMenu_;
    SendmailDelivery* delivery_ = nullptr;
    qreal presentation_ = 0;
    bool finished_ = false;
};

} // namespace pomwick
