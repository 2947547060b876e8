#include "HomeScreen.h"

#include "MessageNames.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <csignal>
#include <unistd.h>

namespace pomwick {

void restartHomeScreen() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || bus.interface() == nullptr)
        return;
    const QDBusReply<uint> owner = bus.interface()->servicePid(CenterName::renderer);
    if (!owner.isValid() || owner.value() == 0 || pid_t(owner.value()) == ::getpid())
        return;
    ::kill(pid_t(owner.value()), SIGKILL);
}

} // namespace pomwick
