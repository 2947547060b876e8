#include "MailDrafts.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <unistd.h>

namespace pomwick {
namespace {

constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner;

// The folder, private whatever the umask. A link or a folder of someone else there would send
// the user's mail where they did not choose, so it is refused rather than used or changed.
QString whyNoPrivateFolder(const QString& path) {
    if (!QDir().mkpath(path))
        return QCoreApplication::translate("pomwick::MailDrafts", "cannot create %1").arg(path);
    const QFileInfo folder(path);
    if (folder.isSymLink() || !folder.isDir() || folder.ownerId() != ::geteuid())
        return QCoreApplication::translate("pomwick::MailDrafts", "%1 is not a folder of this user")
            .arg(path);
    if (!QFile::setPermissions(path, ownerOnly | QFile::ExeOwner))
        return QCoreApplication::translate("pomwick::MailDrafts", "cannot make %1 private")
            .arg(path);
    return {};
}

// A name no file, folder or link has yet: feedback-DATE.eml, then -2, -3...
QString freeDraftPath(const QDir& folder) {
    const QString stem = "feedback-" + QDateTime::currentDateTime().toString("yyyyMMdd-HHmmss");
    const auto taken = [](const QString& path) {
        const QFileInfo info(path);
        return info.exists() || info.isSymLink();
    };
    QString path = folder.filePath(stem + ".eml");
    for (int copy = 2; taken(path); ++copy)
        path = folder.filePath(QString("%1-%2.eml").arg(stem).arg(copy));
    return path;
}

} // namespace

QString draftsFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           "/pomwick/Drafts";
}

SavedDraft saveMailDraft(const QByteArray& message) {
    if (QString refusal = whyNoPrivateFolder(draftsFolder()); !refusal.isEmpty())
        return {{}, refusal};
    const QString path = freeDraftPath(QDir(draftsFolder()));
    QSaveFile file(path);
    // commit() must not be reached after a failed write: Qt 6.4 then reports success and renames
    // what was written (nothing, on a full disk) into place. The unfinished file goes with
    // `file`.
    const bool written = file.open(QIODevice::WriteOnly) && file.setPermissions(ownerOnly) &&
                         file.write(message) == message.size() && file.flush();
    if (!written || !file.commit())
        return {{},
                QCoreApplication::translate("pomwick::MailDrafts", "cannot write the draft %1: %2")
                    .arg(path, file.errorString())};
    return {path, {}};
}

} // namespace pomwick
