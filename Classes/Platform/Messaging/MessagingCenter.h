#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>
#include <map>
#include <memory>

namespace pomwick {

// A named message center on the session bus: one-way messages without payload between
// processes. The center's name is a D-Bus well-known name; a message is a method call with no
// arguments and no reply, whose member is the message's name, on the object path and interface
// derived from the center's name. Sending never blocks and ignores failure; received messages
// are handled on the main thread; a handler whose target has been destroyed is skipped. A call
// for a message nobody registered, or one that carries arguments, is refused with the standard
// D-Bus error, at once when the caller awaits an answer.
class MessagingCenter {
public:
    using Handler = std::function<void(const QString& messageName)>;

    // The process's one center of that name.
    static MessagingCenter& centerNamed(const QString& name);

    // Whether some process serves this center now.
    bool doesServerExist() const;
    // Serves the center from this process, on the main thread's event loop. False when the bus
    // is missing or another process serves it.
    bool runServerOnCurrentThread();
    // Calls the handler for every message of that name while the target lives; registering a
    // name again replaces the earlier registration.
    void registerForMessageName(const QString& messageName, QObject* target, Handler handler);
    void sendMessageName(const QString& messageName) const;

    QString name() const { return name_; }
    QString objectPath() const;
    QString interfaceName() const { return name_; }

    ~MessagingCenter();

private:
    explicit MessagingCenter(QString name);
    class Server;
    friend class Server;
    bool handles(const QString& messageName) const;
    void deliver(const QString& messageName);

    struct Registration {
        QPointer<QObject> target;
        Handler handler;
    };
    QString name_;
    std::map<QString, Registration> registrations_;
    std::unique_ptr<Server> server_;
};

// Whether a session bus can be reached at all.
bool sessionBusAvailable();

} // namespace pomwick
