#include "PrivateSessionBus.h"

#include <QProcess>
#include <stdexcept>

namespace pomwick::test {
namespace {

struct Daemon {
    QProcess process;
    QString address;

    Daemon() {
        process.start("dbus-daemon", {"--session", "--nofork", "--nopidfile", "--print-address"});
        if (!process.waitForStarted(5000))
            throw std::runtime_error("dbus-daemon could not be started: is it installed?");
        while (!process.canReadLine() && process.waitForReadyRead(5000)) {
        }
        address = QString::fromUtf8(process.readLine()).trimmed();
        if (address.isEmpty())
            throw std::runtime_error("dbus-daemon printed no address");
        qputenv("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
    }
    ~Daemon() {
        process.terminate();
        if (!process.waitForFinished(2000))
            process.kill();
    }
};

} // namespace

QString PrivateSessionBus::address() {
    static Daemon daemon;
    return daemon.address;
}

} // namespace pomwick::test
