#include "PreviewExchange.h"

#include "MessageNames.h"
#include "MessagingCenter.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

namespace pomwick {
namespace {

bool waitForRenderer(const QDeadlineTimer& deadline) {
    MessagingCenter& renderer = MessagingCenter::centerNamed(CenterName::renderer);
    while (!renderer.doesServerExist()) {
        if (deadline.hasExpired())
            return false;
        QThread::msleep(20);
    }
    return true;
}

} // namespace

std::optional<QString> requestFreshBadgeBackground(int timeoutMilliseconds) {
    if (!sessionBusAvailable())
        return QStringLiteral("no D-Bus session bus: DBUS_SESSION_BUS_ADDRESS is unset or "
                              "unreachable (start one with dbus-run-session)");
    const QDeadlineTimer deadline(timeoutMilliseconds);
    if (!waitForRenderer(deadline))
        return QStringLiteral("no renderer serves %1 on this session bus: start pomwick-renderer")
            .arg(CenterName::renderer);

    MessagingCenter& screen = MessagingCenter::centerNamed(CenterName::preferences);
    if (!screen.runServerOnCurrentThread())
        return QStringLiteral("%1 is served by another process, most likely an open settings "
                              "window, whose header shows this preview; close it and try again")
            .arg(CenterName::preferences);

    QEventLoop loop;
    bool answered = false;
    QObject receiver;
    screen.registerForMessageName(MessageName::badgeSavedToTmp, &receiver, [&](const QString&) {
        answered = true;
        loop.quit();
    });
    QTimer::singleShot(std::max<qint64>(0, deadline.remainingTime()), &loop, &QEventLoop::quit);
    MessagingCenter::centerNamed(CenterName::renderer)
        .sendMessageName(MessageName::saveBadgeImages);
    loop.exec();
    if (!answered)
        return QStringLiteral("the renderer serving %1 did not answer within %2 ms")
            .arg(CenterName::renderer)
            .arg(timeoutMilliseconds);
    return std::nullopt;
}

} // namespace pomwick
