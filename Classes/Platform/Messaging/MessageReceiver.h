#pragma once

#include <QObject>
#include <QString>
#include <functional>

namespace pomwick {

// The object a served center exports: the adaptors generated from the centers' interface XML
// call its slots, one per message, and it hands each message on by name. Which messages the bus
// sees is decided by the adaptor attached, so a center never answers another center's messages.
class MessageReceiver : public QObject {
    Q_OBJECT
public:
    using Delivery = std::function<void(const QString& messageName)>;
    MessageReceiver(Delivery deliver, QObject* parent)
        : QObject(parent), deliver_(std::move(deliver)) {}

public Q_SLOTS:
    void saveBadgeImages() { deliver_(QStringLiteral("saveBadgeImages")); }
    void badgeSavedToTmp() { deliver_(QStringLiteral("badgeSavedToTmp")); }
    void reloadData() { deliver_(QStringLiteral("reloadData")); }

private:
    Delivery deliver_;
};

} // namespace pomwick
