#pragma once

#include <functional>

class QObject;
class QThreadPool;

namespace pomwick {

// Runs the work on the pool, or on a thread of its own when the pool is null, and then `then` on
// the context's thread, unless the work threw or the context has been deleted by then. Nothing
// of the context is touched off its thread.
void runThen(QThreadPool* pool, std::function<void()> work, QObject* context,
             std::function<void()> then);

} // namespace pomwick
