#include "posix/stop_signals.h"

#include <poll.h>

#include <cerrno>
#include <csignal>

namespace brovin::posix {
namespace {

constexpr int kStopping[] = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t lastSignal = 0; // a handler reaches nothing else

void remember(int number) {
    lastSignal = number;
}

void setAction(int number, void (*handler)(int), int flags) {
    struct sigaction before {};
    ::sigaction(number, nullptr, &before);
    if (before.sa_handler == SIG_IGN)
        return;
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    ::sigaction(number, &action, nullptr);
}

} // namespace

StopSignals::StopSignals() {
    lastSignal = 0;
    // Only the first one is caught. A call that it finds waiting goes on, so that nothing fails by it.
    for (const int number : kStopping)
        setAction(number, remember, static_cast<int>(SA_RESTART | SA_RESETHAND));
}

StopSignals::~StopSignals() {
    for (const int number : kStopping)
        setAction(number, SIG_DFL, 0);
}

int StopSignals::caught() {
    return lastSignal;
}

bool StopSignals::waitToRead(int descriptor) {
    pollfd wanted{descriptor, POLLIN, 0};
    while (lastSignal == 0) {
        constexpr int kLookAgain = 200; // milliseconds: a signal may come right before the call
        const int ready = ::poll(&wanted, 1, kLookAgain);
        if (ready > 0 || (ready < 0 && errno != EINTR))
            return true;
    }
    return false;
}

} // namespace brovin::posix
