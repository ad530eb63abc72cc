#include "voice/pulse_connection.h"

#include <pulse/pulseaudio.h>

namespace brovin::voice {
namespace {

using std::chrono::microseconds;
using std::chrono::steady_clock;

/// A server on this machine answers in one or two milliseconds; one that hangs must not hold the program up.
constexpr std::chrono::milliseconds kPatience{400};

} // namespace

std::shared_ptr<PulseConnection> PulseConnection::shared() {
    static std::weak_ptr<PulseConnection> last;
    std::shared_ptr<PulseConnection> connection = last.lock();
    if (connection)
        connection->pass();
    if (!connection || !connection->alive()) {
        connection = std::make_shared<PulseConnection>();
        last = connection;
    }
    return connection->alive() ? connection : nullptr;
}

PulseConnection::PulseConnection()
    : loop_(pa_mainloop_new()), context_(pa_context_new(pa_mainloop_get_api(loop_), "Brovin")) {
    if (pa_context_connect(context_, nullptr, PA_CONTEXT_NOFLAGS, nullptr) >= 0)
        await([this] { return alive(); });
}

PulseConnection::~PulseConnection() {
    pa_context_disconnect(context_);
    pa_context_unref(context_);
    pa_mainloop_free(loop_);
}

bool PulseConnection::alive() const {
    return pa_context_get_state(context_) == PA_CONTEXT_READY;
}

void PulseConnection::pass() {
    while (pa_mainloop_iterate(loop_, 0, nullptr) > 0) {
    }
}

bool PulseConnection::await(const std::function<bool()>& so) {
    const auto until = steady_clock::now() + kPatience;
    while (!so()) {
        const auto left = std::chrono::duration_cast<microseconds>(until - steady_clock::now());
        if (left.count() <= 0 || !turn(left))
            return so();
    }
    return true;
}

bool PulseConnection::turn(microseconds longest) {
    const bool turned = pa_mainloop_prepare(loop_, static_cast<int>(longest.count())) >= 0 &&
                        pa_mainloop_poll(loop_) >= 0 && pa_mainloop_dispatch(loop_) >= 0;
    return turned && PA_CONTEXT_IS_GOOD(pa_context_get_state(context_)) != 0;
}

} // namespace brovin::voice
