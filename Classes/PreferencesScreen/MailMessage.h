#pragma once

#include <QByteArray>
#include <QString>

namespace pomwick {

// What the user wrote in the composer. `to` is the field as typed.
struct MailDraft {
    QString to;
    QString subject;
    QString body;
};

// Whether the text names at least one recipient and every one it names is an address mail can
// go to. Addresses are separated by commas or semicolons, may carry display names and may be
// grouped ("Team: a@x, b@y;"); text the parser would skip counts as an invalid address.
bool isDeliverableRecipientList(const QString& to);

// The draft as an Internet message, built by GMime: From the user's $EMAIL when that is an
// address (else none, for the mail transport to add), To (display names as encoded words,
// domains in IDNA), Subject (encoded when not plain ASCII), Date, Message-ID and MIME headers,
// and the body as UTF-8 plain text in a transfer encoding that is safe for any mail path. Lines
// end in LF, as sendmail expects.
QByteArray composeMailMessage(const MailDraft& draft);

} // namespace pomwick
