#include "PreviewExchange.h"

#include "MessageNames.h"
#include "MessagingCenter.h"

#include <QDBusConnection>

namespace pomwick {

PreviewExchange::PreviewExchange(int timeoutMilliseconds, QObject* parent)
    : QObject(parent), timeoutMilliseconds_(timeoutMilliseconds) {
    deadline_.setSingleShot(true);
    connect(&deadline_, &QTimer::timeout, this, [this] {
        finish(asked_ ? QStringLiteral("the renderer serving %1 did not answer within %2 ms")
                            .arg(CenterName::renderer)
                            .arg(timeoutMilliseconds_)
                      : QStringLiteral("no renderer serves %1 on this session bus: start "
                                       "pomwick-renderer")
                            .arg(CenterName::renderer));
    });
}

void PreviewExchange::start() {
    if (!sessionBusAvailable())
        return finish(QStringLiteral("no D-Bus session bus: DBUS_SESSION_BUS_ADDRESS is unset or "
                                     "unreachable (start one with dbus-run-session)"));
    MessagingCenter& screen = MessagingCenter::centerNamed(CenterName::preferences);
    if (!screen.runServerOnCurrentThread())
        return finish(QStringLiteral("%1 is served by another process, most likely an open "
                                     "settings window, whose header shows this preview; close it "
                                     "and try again")
                          .arg(CenterName::preferences));
    screen.registerForMessageName(MessageName::badgeSavedToTmp, this, [this](const QString&) {
        if (asked_)
            finish({});
    });
    deadline_.start(timeoutMilliseconds_);

    // The watcher is set up before the question, so that a renderer appearing in between is
    // still seen.
    rendererWatcher_.setConnection(QDBusConnection::sessionBus());
    rendererWatcher_.setWatchMode(QDBusServiceWatcher::WatchForRegistration);
    rendererWatcher_.addWatchedService(CenterName::renderer);
    connect(&rendererWatcher_, &QDBusServiceWatcher::serviceRegistered, this,
            &PreviewExchange::askRenderer);
    if (MessagingCenter::centerNamed(CenterName::renderer).doesServerExist())
        askRenderer();
}

void PreviewExchange::askRenderer() {
    if (asked_ || done_)
        return;
    asked_ = true;
    MessagingCenter::centerNamed(CenterName::renderer)
        .sendMessageName(MessageName::saveBadgeImages);
}

void PreviewExchange::finish(const QString& problem) {
    if (done_)
        return;
    done_ = true;
    deadline_.stop();
    Q_EMIT finished(problem);
}

} // namespace pomwick
