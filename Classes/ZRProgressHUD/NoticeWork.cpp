#include "NoticeWork.h"

#include <QPointer>
#include <QThread>
#include <QThreadPool>

namespace pomwick {

void runThen(QThreadPool* pool, std::function<void()> work, QObject* context,
             std::function<void()> then) {
    // The worker reports to a relay of its own on the context's thread, which outlives the work
    // whatever happens to the context; the context's pointer is only read there.
    auto* relay = new QObject;
    relay->moveToThread(context->thread());
    auto report = [relay, guarded = QPointer<QObject>(context), then = std::move(then)](bool ok) {
        QMetaObject::invokeMethod(
            relay,
            [relay, guarded, then, ok] {
                relay->deleteLater();
                if (ok && guarded)
                    then();
            },
            Qt::QueuedConnection);
    };
    auto task = [work = std::move(work), report = std::move(report)] {
        bool ok = true;
        try {
            work();
        } catch (...) {
            ok = false; // whatever the work throws stays on its thread
        }
        report(ok);
    };
    if (pool != nullptr) {
        pool->start(std::move(task));
        return;
    }
    QThread* thread = QThread::create(std::move(task));
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

} // namespace pomwick
