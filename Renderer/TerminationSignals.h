#pragma once

#include <functional>

namespace pomwick {

// Runs `onTermination` on the main thread's event loop when SIGTERM, SIGINT or SIGHUP arrives.
// A program that has not ended two seconds later (its main thread stuck in a call that does not
// return), or that gets a second such signal, ends by the signal's default action.
void handleTerminationSignals(std::function<void()> onTermination);

} // namespace pomwick
