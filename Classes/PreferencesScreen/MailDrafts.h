#pragma once

#include <QByteArray>
#include <QString>

namespace pomwick {

// Where saved drafts go: $XDG_DATA_HOME/pomwick/Drafts. Mail is private: the folder is made
// 0700 and each draft 0600, whatever the umask.
QString draftsFolder();

// A draft written whole, or why it was not (nothing is then left in the folder).
struct SavedDraft {
    QString path;
    QString error;
};

// Writes the message as a new .eml in the drafts folder, named after the time, never over a
// draft already there.
SavedDraft saveMailDraft(const QByteArray& message);

} // namespace pomwick
