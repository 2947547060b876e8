#pragma once

#include <functional>

namespace pomwick {

// Runs `onTermination` on the main thread's event loop when SIGTERM, SIGINT or SIGHUP arrives.
void handleTerminationSignals(std::function<void()> onTermination);

} // namespace pomwick
