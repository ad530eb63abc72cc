#pragma once

#include <chrono>
#include <functional>
#include <memory>

struct pa_context;
struct pa_mainloop;

namespace brovin::voice {

/// A connection to the user's sound server. It has no thread: what the server sends is handled when somebody
/// asks for it, all on one thread.
class PulseConnection {
public:
    /// The one of the process, which lives as long as someone uses it; made anew when the server of the last
    /// one is gone. Null: there is no server, or it does not answer.
    [[nodiscard]] static std::shared_ptr<PulseConnection> shared();

    PulseConnection();
    ~PulseConnection();
    PulseConnection(const PulseConnection&) = delete;
    PulseConnection& operator=(const PulseConnection&) = delete;

    [[nodiscard]] bool alive() const;
    /// Handles what has come, and sends what there is to send.
    void pass();
    /// Does so until something is so, but not longer than the server may take. False: it is not.
    bool await(const std::function<bool()>& so);

    [[nodiscard]] pa_context* context() const { return context_; }

private:
    /// False: the server is gone.
    bool turn(std::chrono::microseconds longest);

    pa_mainloop* loop_;
    pa_context* context_;
};

} // namespace brovin::voice
