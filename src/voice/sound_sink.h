#pragma once

#include "voice/pulse_connection.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

struct pa_stream;

namespace brovin::voice {

struct SoundFormat {
    int rate = 0;     ///< frames a second
    int channels = 1; ///< 1 or 2; samples of 16 bits, by turns
};

/// Plays samples on the default device. All on one thread.
class SoundSink {
public:
    /// Fills in what there is, a whole number of frames, and says how many samples that was. While there are
    /// too few the device stands still, and so does `heard`.
    using Fill = std::function<std::size_t(std::span<std::int16_t> samples)>;

    SoundSink(const SoundFormat& format, Fill fill) : format_(format), fill_(std::move(fill)) {}
    ~SoundSink();
    SoundSink(const SoundSink&) = delete;
    SoundSink& operator=(const SoundSink&) = delete;

    /// False: there is no device, or it cannot be opened.
    [[nodiscard]] bool start();

    /// Asks for as many samples as the device can take. It has some in advance, but wants to be asked again
    /// within `kFeedInterval`.
    void feed();
    static constexpr std::chrono::milliseconds kFeedInterval{100};

    /// How much has been heard since `start`. Never runs backward. Where the device is lost or gets stuck,
    /// time goes on as if it had not, so that whoever follows the sound comes to an end.
    [[nodiscard]] std::chrono::microseconds heard();

    /// The device is lost: nobody asks for samples any more.
    [[nodiscard]] bool lost() const { return stream_ == nullptr; }

private:
    using Clock = std::chrono::steady_clock;

    [[nodiscard]] bool open();
    void close();
    [[nodiscard]] bool playable() const;
    [[nodiscard]] std::chrono::microseconds played();
    void watch(std::chrono::microseconds played, Clock::time_point now);

    SoundFormat format_;
    Fill fill_;
    std::shared_ptr<PulseConnection> connection_;
    pa_stream* stream_ = nullptr;
    std::vector<std::int16_t> samples_;
    std::chrono::microseconds heard_{0};
    Clock::time_point lastLook_;
    Clock::duration still_{0}; ///< how long it has been seen not to go on
};

} // namespace brovin::voice
