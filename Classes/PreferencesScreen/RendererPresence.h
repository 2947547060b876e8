#pragma once

#include <QDBusServiceWatcher>
#include <QObject>

namespace pomwick {

// Whether the badge renderer serves its message center, told as it comes and goes.
class RendererPresence : public QObject {
    Q_OBJECT
public:
    explicit RendererPresence(QObject* parent = nullptr);

    bool isRunning() const { return running_; }

signals:
    void runningChanged(bool running);

private:
    void setRunning(bool running);

    QDBusServiceWatcher watcher_;
    bool running_;
};

} // namespace pomwick
