#pragma once

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
class QPushButton;

namespace pomwick {

class FeedbackMailComposer;
class SendmailDelivery;

enum MailComposeResult {
    MailComposeResultCancelled = 0,
    MailComposeResultSaved = 1,
    MailComposeResultSent = 2,
    MailComposeResultFailed = 3,
};

// Hears how the composer ended; it then dismisses the composer.
class MailComposeDelegate {
public:
    virtual void didFinishWithResult(FeedbackMailComposer* composer, MailComposeResult result,
                                     const QString& error) = 0;

protected:
    ~MailComposeDelegate() = default;
};

} // namespace pomwick

Q_DECLARE_INTERFACE(pomwick::MailComposeDelegate, "com.velquor.pomwick.MailComposeDelegate")

namespace pomwick {

// The in-app mail composer: a page sheet sliding up over the window with To, Subject and a plain
// text body, Send, and Cancel offering to delete or save the draft. Sending goes through the
// system's sendmail without blocking the window; a saved draft becomes an .eml file in the user's
// data folder.
class FeedbackMailComposer : public QDialog {
    Q_OBJECT
    Q_PROPERTY(qreal presentation READ presentation WRITE setPresentation)
public:
    static constexpr int pageSheet = 1;

    // Whether mail can be sent at all: a sendmail program is installed.
    static bool canSendMail();
    // Where saved drafts go: $XDG_DATA_HOME/pomwick/Drafts.
    static QString draftsFolder();

    FeedbackMailComposer();
    ~FeedbackMailComposer() override;

    // Held weakly; called when it declares MailComposeDelegate.
    void setMailComposeDelegate(QObject* delegate) { delegate_ = delegate; }
    void setSubject(const QString& subject);
    void setMessageBody(const QString& body, bool isHTML);
    void setToRecipients(const QStringList& recipients);
    void setModalPresentationStyle(int style) { presentationStyle_ = style; }
    int modalPresentationStyle() const { return presentationStyle_; }
    void setSendTimeout(std::chrono::milliseconds timeout) { sendTimeout_ = timeout; }

    // Slides the sheet up over the host's window, which then owns it.
    void presentOver(QWidget* host, bool animated);
    // Slides it away and deletes it.
    void dismissViewControllerAnimated(bool animated);

    MailDraft draft() const;
    QString statusText() const;
    QPushButton* sendButton() const { return sendButton_; }
    QPushButton* cancelButton() const { return cancelButton_; }
    // The Delete Draft / Save Draft choice Cancel opens, or null while it is not open.
    QMenu* draftMenu() const { return draftMenu_; }

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
    void buildSheet();
    QRect sheetGeometry() const;
    void finishWith(MailComposeResult result, const QString& error = {});
    void setBusy(bool busy, const QString& status);

    QPointer<QObject> delegate_;
    int presentationStyle_ = 0;
    std::chrono::milliseconds sendTimeout_{30000};
    QWidget* sheet_ = nullptr;
    QLabel* titleLabel_ = nullptr;
    QLineEdit* toField_ = nullptr;
    QLineEdit* subjectField_ = nullptr;
    QPlainTextEdit* bodyField_ = nullptr;
    QLabel* statusLabel_ = nullptr;
    QPushButton* sendButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
    QPointer<QMenu> draftMenu_;
    SendmailDelivery* delivery_ = nullptr;
    qreal presentation_ = 0;
    bool finished_ = false;
};

} // namespace pomwick
