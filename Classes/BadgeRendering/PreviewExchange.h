#pragma once

#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

namespace pomwick {

// One exchange with the renderer, for tools without the settings screen: serves the screen's
// center, waits for the renderer to serve its own, asks for a fresh badge background and waits
// for the answer, all from the running event loop. Reports once, through `finished`.
class PreviewExchange : public QObject {
    Q_OBJECT
public:
    explicit PreviewExchange(int timeoutMilliseconds, QObject* parent = nullptr);
    void start();

Q_SIGNALS:
    // `problem` says what went wrong; empty once the background is fresh.
    void finished(const QString& problem);

private:
    void askRenderer();
    void finish(const QString& problem);

    int timeoutMilliseconds_;
    QTimer deadline_;
    QDBusServiceWatcher rendererWatcher_;
    bool asked_ = false;
    bool done_ = false;
};

} // namespace pomwick
