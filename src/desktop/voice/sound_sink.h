#pragma once

#include "character/stage/moment.h"

#include <QAudioFormat>
#include <QAudioSink>
#include <QIODevice>

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <span>

namespace brovin::voice {

/// Whether there is anything to play sound on.
[[nodiscard]] bool soundDevicePresent();

/// Plays samples on the default device. It asks for them in advance, as many as the device can take.
class SoundSink {
public:
    /// Fills the bytes, a whole number of frames; what it has nothing for it fills with silence.
    using Fill = std::function<void(std::span<char> bytes)>;

    SoundSink(const QAudioFormat& format, Fill fill);
    ~SoundSink();
    SoundSink(const SoundSink&) = delete;
    SoundSink& operator=(const SoundSink&) = delete;

    /// False: the device cannot be opened.
    [[nodiscard]] bool start();

    /// How much has been heard since `start`. Never runs backward. Where the device is lost or gets stuck,
    /// time goes on as if it had not, so that whoever follows the sound comes to an end.
    [[nodiscard]] std::chrono::microseconds heard();

    /// The device is lost: nobody asks for samples any more.
    [[nodiscard]] bool lost() const { return sink_ == nullptr; }

private:
    using Clock = std::chrono::steady_clock;

    class Source final : public QIODevice {
    public:
        Source(Fill fill, qint64 frameBytes) : fill_(std::move(fill)), frameBytes_(frameBytes) {}
        [[nodiscard]] bool isSequential() const override { return true; }
        [[nodiscard]] qint64 bytesAvailable() const override { return 1 << 20; }

    protected:
        qint64 readData(char* data, qint64 most) override;
        qint64 writeData(const char* /*data*/, qint64 /*size*/) override { return -1; }

    private:
        Fill fill_;
        qint64 frameBytes_;
    };

    void watch(std::chrono::microseconds processed, Clock::time_point now);

    QAudioFormat format_;
    Source source_;
    std::unique_ptr<QAudioSink> sink_;
    std::chrono::microseconds heard_{0};
    Clock::time_point lastLook_;
    Clock::duration still_{0}; ///< how long it has been seen not to go on
};

} // namespace brovin::voice
