// The other end of a bare ping-pong: answers every "ping" to its bus name with a "reloadData" to
// the screen's center, where the benchmark counts it. Given a bus name, it holds that name too and
// swallows what is sent to it: a renderer that is running but costs nothing.
// Usage: pomwick-bench-echo-peer [NAME]
#include "MessageNames.h"
#include "MessagingCenter.h"

#include <QCoreApplication>
#include <QDBusConnection>

namespace {

class Echo : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.velquor.pomwickbench.echo")
public Q_SLOTS:
    Q_NOREPLY void ping() {
        pomwick::MessagingCenter::centerNamed(pomwick::CenterName::preferences)
            .sendMessageName(pomwick::MessageName::reloadData);
    }
};

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    Echo echo;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.registerObject(QStringLiteral("/com/velquor/pomwickbench/echo"), &echo,
                            QDBusConnection::ExportAllSlots) ||
        !bus.registerService(QStringLiteral("com.velquor.pomwickbench.echo")))
        return 1;
    if (argc > 1 && !bus.registerService(QString::fromLocal8Bit(argv[1])))
        return 1;
    return app.exec();
}

#include "EchoPeer.moc"
