// Memory of the settings window under a flood of 100,000 messages to its center ("reloadData"
// and "badgeSavedToTmp" in turn), with the real renderer answering: resident size at rest,
// the peak during the flood, and once the flood has been handled.
#include "MessageNames.h"
#include "MessagingCenter.h"
#include "PrivateSessionBus.h"
#include "TemporaryDeviceRoot.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFile>
#include <QProcess>
#include <QThread>
#include <benchmark/benchmark.h>

using namespace pomwick;

namespace {

constexpr int messages = 100000;

// A field of /proc/PID/status (VmRSS, VmHWM), in MB.
double statusMegabytes(qint64 pid, const QByteArray& field) {
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith(field + ':'))
            return line.mid(field.size() + 1).trimmed().split(' ').value(0).toDouble() / 1024;
    return 0;
}

// A call that awaits its answer: it comes back once the window has handled everything before it.
bool reloadAndWait() {
    QDBusMessage call =
        QDBusMessage::createMethodCall(CenterName::preferences, "/com/velquor/pomwickpreferences",
                                       CenterName::preferences, MessageName::reloadData);
    return QDBusConnection::sessionBus().call(call, QDBus::Block, 120000).type() ==
           QDBusMessage::ReplyMessage;
}

void HostMemoryUnderAMessageFlood(benchmark::State& state) {
    test::PrivateSessionBus::address();
    test::TemporaryDeviceRoot root;
    const QString rootPath = QString::fromStdString(root.path());
    QProcess renderer;
    renderer.start(RENDERER, {"--root", rootPath});
    QProcess host;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    host.setProcessEnvironment(environment);
    host.start(HOST, {"--root", rootPath});
    while (!MessagingCenter::centerNamed(CenterName::preferences).doesServerExist())
        QThread::msleep(20);
    reloadAndWait();
    QThread::msleep(500);
    const double idle = statusMegabytes(host.processId(), "VmRSS");

    for (auto _ : state) {
        QProcess flood;
        flood.start(MESSAGE_FLOOD, {CenterName::preferences, QString::number(messages / 2),
                                    MessageName::reloadData, MessageName::badgeSavedToTmp});
        flood.waitForFinished(-1);
        if (!reloadAndWait())
            state.SkipWithError("the window did not answer after the flood");
    }
    QThread::msleep(500);
    state.counters["idle_MB"] = idle;
    state.counters["peak_MB"] = statusMegabytes(host.processId(), "VmHWM");
    state.counters["after_MB"] = statusMegabytes(host.processId(), "VmRSS");
    host.terminate();
    host.waitForFinished();
    renderer.terminate();
    renderer.waitForFinished();
}

BENCHMARK(HostMemoryUnderAMessageFlood)->Unit(benchmark::kSecond)->Iterations(1);

} // namespace
