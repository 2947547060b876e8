#pragma once

#include "PomwickPlatformExport.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>
#include <map>

class QDBusAbstractInterface;

namespace pomwick {

// A named message center on the session bus: one-way messages without payload between
// processes. The center's name is a D-Bus well-known name; a message is a method call with no
// arguments and no reply, whose member is the message's name, on the object path and interface
// derived from the center's name. Sending never blocks and ignores failure; received messages
// are handled on the main thread; a handler whose target has been destroyed is skipped. Only the
// two centers whose interfaces are declared (the renderer's and the screen's) can be served and
// sent to: the bus refuses a call their interface does not declare, or one with arguments, at
// once when the caller awaits an answer.
class POMWICK_PLATFORM_EXPORT MessagingCenter {
public:
    using Handler = std::function<void(const QString& messageName)>;

    // The process's one center of that name.
    static MessagingCenter& centerNamed(const QString& name);

    // Whether some process serves this center now.
    bool doesServerExist() const;
    // Serves the center from this process, on the main thread's event loop. False when the bus
    // is missing, another process serves it, or the center has no declared interface.
    bool runServerOnCurrentThread();
    // Calls the handler for every message of that name while the target lives; registering a
    // name again replaces the earlier registration.
    void registerForMessageName(const QString& messageName, QObject* target, Handler handler);
    void sendMessageName(const QString& messageName) const;

    QString name() const { return name_; }
    QString objectPath() const;
    QString interfaceName() const { return name_; }

private:
    explicit MessagingCenter(QString name);
    void deliver(const QString& messageName);

    struct Registration {
        QPointer<QObject> target;
        Handler handler;
    };
    QString name_;
    std::map<QString, Registration> registrations_;
    // Owned by the application object, so that they go before the bus connection does.
    QPointer<QObject> receiver_;
    mutable QPointer<QDBusAbstractInterface> proxy_;
};

// Whether a session bus can be reached at all.
POMWICK_PLATFORM_EXPORT bool sessionBusAvailable();

} // namespace pomwick
