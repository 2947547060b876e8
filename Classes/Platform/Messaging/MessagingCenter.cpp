#include "MessagingCenter.h"

#include "MessageNames.h"
#include "MessageReceiver.h"
#include "PreferencesCenterAdaptor.h"
#include "PreferencesCenterProxy.h"
#include "RendererCenterAdaptor.h"
#include "RendererCenterProxy.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>

namespace pomwick {

MessagingCenter& MessagingCenter::centerNamed(const QString& name) {
    static std::map<QString, std::unique_ptr<MessagingCenter>> centers;
    auto& center = centers[name];
    if (!center)
        center.reset(new MessagingCenter(name));
    return *center;
}

MessagingCenter::MessagingCenter(QString name) : name_(std::move(name)) {}

QString MessagingCenter::objectPath() const {
    return QLatin1Char('/') + QString(name_).replace(QLatin1Char('.'), QLatin1Char('/'));
}

bool MessagingCenter::doesServerExist() const {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || bus.interface() == nullptr)
        return false;
    return bus.interface()->isServiceRegistered(name_).value();
}

bool MessagingCenter::runServerOnCurrentThread() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || (name_ != CenterName::renderer && name_ != CenterName::preferences))
        return false;
    if (receiver_.isNull()) {
        auto* receiver = new MessageReceiver([this](const QString& message) { deliver(message); },
                                             QCoreApplication::instance());
        if (name_ == CenterName::renderer)
            new RendererCenterAdaptor(receiver);
        else
            new PreferencesCenterAdaptor(receiver);
        if (!bus.registerObject(objectPath(), receiver, QDBusConnection::ExportAdaptors)) {
            delete receiver;
            return false;
        }
        receiver_ = receiver;
    }
    if (bus.registerService(name_))
        return true;
    bus.unregisterObject(objectPath());
    delete receiver_;
    return false;
}

void MessagingCenter::registerForMessageName(const QString& messageName, QObject* target,
                                             Handler handler) {
    registrations_[messageName] = {target, std::move(handler)};
}

void MessagingCenter::sendMessageName(const QString& messageName) const {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    if (proxy_.isNull()) {
        if (name_ == CenterName::renderer)
            proxy_ =
                new RendererCenterProxy(name_, objectPath(), bus, QCoreApplication::instance());
        else if (name_ == CenterName::preferences)
            proxy_ =
                new PreferencesCenterProxy(name_, objectPath(), bus, QCoreApplication::instance());
        else
            return;
    }
    // The proxy's one-way methods return at once; the bus starts the renderer on demand.
    QMetaObject::invokeMethod(proxy_, messageName.toLatin1().constData());
}

void MessagingCenter::deliver(const QString& messageName) {
    const auto found = registrations_.find(messageName);
    if (found == registrations_.end() || found->second.target.isNull())
        return;
    // A copy: the handler may register again and replace this very registration.
    const Handler handler = found->second.handler;
    handler(messageName);
}

bool sessionBusAvailable() {
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return false;
    return QDBusConnection::sessionBus().isConnected();
}

} // namespace pomwick
