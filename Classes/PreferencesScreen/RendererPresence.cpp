#include "RendererPresence.h"

#include "MessageNames.h"
#include "MessagingCenter.h"

#include <QDBusConnection>

namespace pomwick {

RendererPresence::RendererPresence(QObject* parent)
    : QObject(parent), watcher_(CenterName::renderer, QDBusConnection::sessionBus(),
                                QDBusServiceWatcher::WatchForOwnerChange),
      running_(MessagingCenter::centerNamed(CenterName::renderer).doesServerExist()) {
    connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, this, [this] { setRunning(true); });
    connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { setRunning(false); });
}

void RendererPresence::setRunning(bool running) {
    if (running_ == running)
        return;
    running_ = running;
    emit runningChanged(running);
}

} // namespace pomwick
