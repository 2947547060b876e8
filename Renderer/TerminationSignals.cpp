#include "TerminationSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace pomwick {
namespace {

// Time the event loop has to end the program once asked.
constexpr unsigned graceSeconds = 2;

int signalPipe[2] = {-1, -1};
volatile sig_atomic_t pendingSignal = 0;

// Ends the program as the pending signal would have without a handler.
void endByDefaultAction(int) {
    const int number = pendingSignal;
    ::signal(number, SIG_DFL);
    ::raise(number);
}

// Only async-signal-safe work here: the event loop does the rest. The main thread may be stuck
// in a call that does not return (a read of a FIFO nobody writes): should the program not end
// within the grace period, or the signal come again, the signal's default action ends it.
void forwardSignal(int number) {
    if (pendingSignal != 0) {
        endByDefaultAction(number);
        return;
    }
    pendingSignal = number;
    const char byte = static_cast<char>(number);
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
    ::alarm(graceSeconds);
}

void install(int number, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    ::sigaction(number, &action, nullptr);
}

} // namespace

void handleTerminationSignals(std::function<void()> onTermination) {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, signalPipe) != 0)
        return;
    // Owned by the application, which outlives the event loop.
    auto* notifier =
        new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [onTermination] {
        char byte = 0;
        [[maybe_unused]] const ssize_t got = ::read(signalPipe[0], &byte, 1);
        onTermination();
    });
    install(SIGALRM, endByDefaultAction);
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        install(number, forwardSignal);
}

} // namespace pomwick
