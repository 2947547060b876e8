#include "MessagingCenter.h"

#include "MessageNames.h"
#include "MessagingInterfaces.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusVirtualObject>

namespace pomwick {
namespace {

QString introspectionOf(const QString& centerName) {
    const QString xml =
        QString::fromUtf8(centerName == CenterName::renderer ? MessagingInterfaces::renderer
                                                             : MessagingInterfaces::preferences);
    const qsizetype start = xml.indexOf(QLatin1String("<interface"));
    const qsizetype end = xml.lastIndexOf(QLatin1String("</interface>"));
    if (start < 0 || end < 0)
        return {};
    return xml.mid(start, end + qsizetype(strlen("</interface>")) - start);
}

} // namespace

// Receives every method call on the center's object and hands it to the center.
class MessagingCenter::Server : public QDBusVirtualObject {
public:
    explicit Server(MessagingCenter& center) : center_(center) {}

    QString introspect(const QString&) const override { return introspectionOf(center_.name()); }

    // Messages carry nothing and expect nothing; a caller that waits for an answer gets one at
    // once (an empty return, or the standard error when the call is not one of ours) instead of
    // waiting out its timeout.
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        if (message.type() != QDBusMessage::MethodCallMessage ||
            (!message.interface().isEmpty() && message.interface() != center_.interfaceName()))
            return false;
        QDBusMessage answer;
        if (!center_.handles(message.member()))
            answer = message.createErrorReply(
                QDBusError::UnknownMethod,
                QStringLiteral("No such method '%1' in interface '%2' at object path '%3'")
                    .arg(message.member(), center_.interfaceName(), message.path()));
        else if (!message.arguments().isEmpty())
            answer = message.createErrorReply(
                QDBusError::InvalidArgs,
                QStringLiteral("'%1' takes no arguments").arg(message.member()));
        else {
            answer = message.createReply();
            center_.deliver(message.member());
        }
        if (message.isReplyRequired())
            connection.send(answer);
        return true;
    }

private:
    MessagingCenter& center_;
};

MessagingCenter& MessagingCenter::centerNamed(const QString& name) {
    static std::map<QString, std::unique_ptr<MessagingCenter>> centers;
    auto& center = centers[name];
    if (!center)
        center.reset(new MessagingCenter(name));
    return *center;
}

MessagingCenter::MessagingCenter(QString name) : name_(std::move(name)) {}

MessagingCenter::~MessagingCenter() = default;

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
    if (!bus.isConnected())
        return false;
    if (!server_) {
        server_ = std::make_unique<Server>(*this);
        if (!bus.registerVirtualObject(objectPath(), server_.get())) {
            server_.reset();
            return false;
        }
    }
    if (bus.registerService(name_))
        return true;
    bus.unregisterObject(objectPath());
    server_.reset();
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
    QDBusMessage message =
        QDBusMessage::createMethodCall(name_, objectPath(), interfaceName(), messageName);
    // The bus may start the receiver on demand: the renderer is an activatable service.
    message.setAutoStartService(true);
    // send() expects no reply and returns at once.
    bus.send(message);
}

bool MessagingCenter::handles(const QString& messageName) const {
    const auto found = registrations_.find(messageName);
    return found != registrations_.end() && !found->second.target.isNull();
}

void MessagingCenter::deliver(const QString& messageName) {
    if (!handles(messageName))
        return;
    // A copy: the handler may register again and replace this very registration.
    const Handler handler = registrations_.at(messageName).handler;
    handler(messageName);
}

bool sessionBusAvailable() {
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return false;
    return QDBusConnection::sessionBus().isConnected();
}

} // namespace pomwick
