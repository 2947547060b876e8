#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace pomwick {

// What the user wrote in the composer.
struct MailDraft {
    QStringList toRecipients;
    QString subject;
    QString body;
};

// The draft as an Internet message, built by GMime: From (the local user), To, Subject (encoded
// when not plain ASCII), Date, Message-ID and MIME headers, and the body as UTF-8 plain text in a
// transfer encoding that is safe for any mail path. Lines end in LF, as sendmail expects.
QByteArray composeMailMessage(const MailDraft& draft);

} // namespace pomwick
