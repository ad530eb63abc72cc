#pragma once

#include <QByteArray>
#include <QProcess>
#include <QTemporaryDir>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace brovin::voice {

using Clock = std::chrono::steady_clock;

/// A sound server of the test's own, with a device that plays into the void and can be listened to. It ends
/// with this object.
class SoundServer {
public:
    SoundServer();
    ~SoundServer();
    [[nodiscard]] bool running() const { return server_.state() == QProcess::Running; }
    /// As when the user logs out of it.
    void end();

private:
    QTemporaryDir folder_;
    QProcess server_;
};

/// Records what the server plays, from its making on; one channel at the rate of speech.
class Recorder {
public:
    Recorder();
    ~Recorder();

    /// Until nothing has been audible for a while.
    void awaitSilence();
    [[nodiscard]] std::vector<std::int16_t> samples() const;
    /// When the first audible sample came in. The recording's own delay is part of it.
    [[nodiscard]] Clock::time_point heardAt() const { return heardAt_; }
    [[nodiscard]] bool heardAnything() const { return heardAt_ != Clock::time_point{}; }

private:
    void take();

    QProcess recorder_;
    QByteArray bytes_;
    Clock::time_point heardAt_;
};

/// Lets the application's events come until something is so. False: it took longer than this.
bool passUntil(const std::function<bool()>& so, std::chrono::milliseconds longest);
void pass(std::chrono::milliseconds time);

[[nodiscard]] inline double inMs(Clock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

} // namespace brovin::voice
