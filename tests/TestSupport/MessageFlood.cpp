// Sends a flood of one-way messages from a process of its own, as a broken or hostile client
// would, and returns once the bus has them all. A bare bus client: it knows nothing of our
// interfaces, so it can send names they do not declare.
// Usage: pomwick-message-flood CENTER ROUNDS MESSAGE...
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QStringList>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() < 4)
        return 2;
    const QString center = arguments[1];
    const QString path =
        QLatin1Char('/') + QString(center).replace(QLatin1Char('.'), QLatin1Char('/'));
    const int rounds = arguments[2].toInt();
    QDBusConnection bus = QDBusConnection::sessionBus();
    for (int round = 0; round < rounds; ++round)
        for (qsizetype message = 3; message < arguments.size(); ++message)
            bus.send(QDBusMessage::createMethodCall(center, path, center, arguments[message]));
    // A round trip to the bus on the same connection: everything sent before it is written.
    return bus.interface()->isServiceRegistered(center).isValid() ? 0 : 1;
}
