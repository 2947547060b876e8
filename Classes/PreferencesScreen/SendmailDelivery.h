#pragma once

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QTimer>
#include <chrono>
#include <optional>

namespace pomwick {

// Hands a message to the system's mail transport through the standard `sendmail -t -oi`
// interface (recipients from the headers, a lone dot is no end of input), without blocking.
class SendmailDelivery : public QObject {
    Q_OBJECT
public:
    // The sendmail program: the first on PATH, else the usual system places; none when no mail
    // transport is installed.
    static std::optional<QString> program();

    explicit SendmailDelivery(QObject* parent = nullptr);
    ~SendmailDelivery() override;

    // How long sendmail may take before it counts as failed (30 s unless set).
    void setTimeout(std::chrono::milliseconds timeout) { timeout_ = timeout; }
    // Starts the delivery; finished() follows exactly once.
    void send(const QByteArray& message);

signals:
    // error is empty when sendmail took the message (exit status 0).
    void finished(const QString& error);

private:
    void finish(const QString& error);

    QProcess process_;
    QTimer deadline_;
    std::chrono::milliseconds timeout_{30000};
    bool finished_ = false;
};

} // namespace pomwick
