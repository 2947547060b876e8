// Sends a flood of one-way messages from a process of its own, as a broken or hostile client
// would, and returns once the bus has them all.
// Usage: pomwick-message-flood CENTER ROUNDS MESSAGE...
#include "MessagingCenter.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QStringList>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() < 4)
        return 2;
    const int rounds = arguments[2].toInt();
    const auto& center = pomwick::MessagingCenter::centerNamed(arguments[1]);
    for (int round = 0; round < rounds; ++round)
        for (qsizetype message = 3; message < arguments.size(); ++message)
            center.sendMessageName(arguments[message]);
    // A round trip to the bus on the same connection: everything sent before it is written.
    return QDBusConnection::sessionBus().interface()->isServiceRegistered(arguments[1]).isValid()
               ? 0
               : 1;
}
