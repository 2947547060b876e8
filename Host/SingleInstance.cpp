#include "SingleInstance.h"

#include <QCryptographicHash>
#include <QDBusConnection>
#include <QDBusMessage>

namespace pomwick {
namespace {

constexpr const char* objectPath = "/com/velquor/Pomwick/Settings";
constexpr const char* interfaceName = "com.velquor.Pomwick.Settings";
constexpr int answerTimeoutMs = 5000;

} // namespace

SingleInstance::SingleInstance(const std::filesystem::path& deviceRoot) {
    // Bus names allow only letters, digits, '_' and '-': the root goes in as a digest.
    const QByteArray digest =
        QCryptographicHash::hash(QByteArray::fromStdString(deviceRoot.string()),
                                 QCryptographicHash::Sha256)
            .toHex()
            .left(24);
    name_ = QString("com.velquor.Pomwick.Settings.root_%1").arg(QString::fromLatin1(digest));
}

SingleInstance::Outcome SingleInstance::claim() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return Outcome::noBus;
    bus.registerObject(objectPath, this, QDBusConnection::ExportScriptableSlots);
    if (bus.registerService(name_))
        return Outcome::first;
    bus.unregisterObject(objectPath);

    const QDBusMessage answer =
        bus.call(QDBusMessage::createMethodCall(name_, objectPath, interfaceName, "Activate"),
                 QDBus::Block, answerTimeoutMs);
    if (answer.type() == QDBusMessage::ReplyMessage)
        return Outcome::forwarded;
    problem_ = "a settings window for this device root is already open, but it did not come "
               "forward (" +
               answer.errorMessage() + ")";
    return Outcome::unanswered;
}

void SingleInstance::Activate() {
    emit activationRequested();
}

} // namespace pomwick
