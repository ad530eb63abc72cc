#include "voice/sound_sink.h"

#include <pulse/pulseaudio.h>

#include <algorithm>

namespace brovin::voice {
namespace {

using std::chrono::microseconds;

/// What the server holds in advance: enough for a program that is busy for a moment.
constexpr microseconds kAhead{300'000};
/// It begins to play with this much, and after a gap goes on with it.
constexpr microseconds kBegin{10'000};

/// The server fetches pieces of this size. The device holds no more of it, so that silence is silence at once
/// and the clock need not be guessed across a long way.
constexpr microseconds kPiece{20'000};

/// What the server has told is believed for this long.
constexpr microseconds kLongestGuess{250'000};

/// A device that sleeps may take a while to wake up.
constexpr std::chrono::seconds kStuck{3};

/// Between two looks no more than this counts: while nobody looks the device may have had nothing to play.
constexpr std::chrono::milliseconds kLongestLook{100};

} // namespace

SoundSink::~SoundSink() {
    close();
}

bool SoundSink::start() {
    connection_ = PulseConnection::shared();
    if (connection_ && open())
        feed();
    else
        close();
    lastLook_ = Clock::now();
    return stream_ != nullptr;
}

bool SoundSink::open() {
    const pa_sample_spec spec{PA_SAMPLE_S16NE, static_cast<std::uint32_t>(format_.rate),
                              static_cast<std::uint8_t>(format_.channels)};
    const auto bytesOf = [&spec](microseconds time) {
        return static_cast<std::uint32_t>(pa_usec_to_bytes(static_cast<pa_usec_t>(time.count()), &spec));
    };
    constexpr auto kServersChoice = static_cast<std::uint32_t>(-1);
    const pa_buffer_attr buffer{kServersChoice, bytesOf(kAhead), bytesOf(kBegin), bytesOf(kPiece),
                                kServersChoice};
    stream_ = pa_stream_new(connection_->context(), "Brovin", &spec, nullptr);
    if (stream_ == nullptr ||
        pa_stream_connect_playback(stream_, nullptr, &buffer, PA_STREAM_EARLY_REQUESTS, nullptr, nullptr) < 0)
        return false;
    connection_->await([this] { return pa_stream_get_state(stream_) != PA_STREAM_CREATING; });
    return playable();
}

void SoundSink::close() {
    if (stream_ != nullptr) {
        pa_stream_disconnect(stream_);
        pa_stream_unref(stream_);
        connection_->pass(); // silent at once, not when somebody speaks next
    }
    stream_ = nullptr;
    connection_.reset();
}

bool SoundSink::playable() const {
    return pa_stream_get_state(stream_) == PA_STREAM_READY;
}

void SoundSink::feed() {
    if (stream_ == nullptr)
        return;
    connection_->pass();
    const std::size_t room = playable() ? pa_stream_writable_size(stream_) : 0;
    const std::size_t frameBytes = static_cast<std::size_t>(format_.channels) * sizeof(std::int16_t);
    if (frameBytes == 0 || room < frameBytes || room == static_cast<std::size_t>(-1))
        return;
    samples_.resize(room / frameBytes * static_cast<std::size_t>(format_.channels));
    const std::size_t filled = fill_(samples_);
    if (filled > 0)
        pa_stream_write(stream_, samples_.data(), filled * sizeof(std::int16_t), nullptr, 0,
                        PA_SEEK_RELATIVE);
    connection_->pass();
}

microseconds SoundSink::heard() {
    const Clock::time_point now = Clock::now();
    if (stream_ != nullptr) {
        connection_->pass();
        if (!playable())
            close();
    }
    if (stream_ != nullptr) {
        watch(played(), now);
    } else {
        heard_ += std::chrono::duration_cast<microseconds>(now - lastLook_);
    }
    lastLook_ = now;
    return heard_;
}

/// By the last that the server has told, which is asked for anew at each look. From there on the machine's
/// clock counts: the library's own interpolation drifts by hundreds of milliseconds on a busy machine.
microseconds SoundSink::played() {
    microseconds played{0};
    const pa_timing_info* const info = pa_stream_get_timing_info(stream_);
    pa_usec_t told = 0;
    if (info != nullptr && pa_stream_get_time(stream_, &told) >= 0) {
        const microseconds since{pa_timeval_age(&info->timestamp)};
        played = microseconds{told} + (info->playing != 0 ? std::min(since, kLongestGuess) : microseconds{0});
    }
    if (pa_operation* const asking = pa_stream_update_timing_info(stream_, nullptr, nullptr))
        pa_operation_unref(asking);
    connection_->pass();
    return played;
}

void SoundSink::watch(microseconds played, Clock::time_point now) {
    if (played > heard_) {
        heard_ = played;
        still_ = {};
        return;
    }
    still_ += std::min<Clock::duration>(now - lastLook_, kLongestLook);
    if (still_ >= kStuck)
        close();
}

} // namespace brovin::voice
