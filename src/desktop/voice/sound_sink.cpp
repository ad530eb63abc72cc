#include "desktop/voice/sound_sink.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QString>

#include <algorithm>
#include <utility>

namespace brovin::voice {
namespace {

using std::chrono::microseconds;

/// A device that sleeps may take a while to wake up.
constexpr std::chrono::seconds kStuck{3};

/// Between two looks no more than this counts: while nobody looks the device may have had nothing to play.
constexpr std::chrono::milliseconds kLongestLook{100};

QtMessageHandler handlerBefore = nullptr; // NOLINT(readability-identifier-naming): no constant

/// The toolkit reports each missing sound server. That is no error here: the character is paced by its text.
void passOn(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    constexpr const char* kOfSound[] = {"PulseAudio", "No audio device", "Stream error: "};
    const bool ofSound = std::ranges::any_of(kOfSound, [&](const char* beginning) {
        return text.startsWith(QLatin1String(beginning)) || text.startsWith('"' + QLatin1String(beginning));
    });
    if (type == QtWarningMsg && ofSound)
        return;
    if (handlerBefore != nullptr)
        handlerBefore(type, context, text);
}

void beQuiet() {
    static const bool kDone = [] {
        handlerBefore = qInstallMessageHandler(passOn);
        return true;
    }();
    static_cast<void>(kDone);
}

} // namespace

bool soundDevicePresent() {
    beQuiet();
    return !QMediaDevices::defaultAudioOutput().isNull();
}

SoundSink::SoundSink(const QAudioFormat& format, Fill fill)
    : format_(format), source_(std::move(fill), format.bytesPerFrame()) {
    // Without a buffer between, what is asked for in advance is no more than the device takes.
    source_.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

SoundSink::~SoundSink() {
    if (sink_)
        sink_->reset();
}

bool SoundSink::start() {
    const QAudioDevice device = soundDevicePresent() ? QMediaDevices::defaultAudioOutput() : QAudioDevice();
    if (device.isNull())
        return false;
    sink_ = std::make_unique<QAudioSink>(device, format_);
    sink_->start(&source_);
    if (sink_->error() != QAudio::NoError || sink_->state() == QAudio::StoppedState)
        sink_.reset();
    lastLook_ = Clock::now();
    return sink_ != nullptr;
}

microseconds SoundSink::heard() {
    const Clock::time_point now = Clock::now();
    if (sink_ && sink_->state() == QAudio::StoppedState)
        sink_.reset();
    if (sink_)
        watch(microseconds{sink_->processedUSecs()}, now);
    else
        heard_ += std::chrono::duration_cast<microseconds>(now - lastLook_);
    lastLook_ = now;
    return heard_;
}

void SoundSink::watch(microseconds processed, Clock::time_point now) {
    if (processed > heard_) {
        heard_ = processed;
        still_ = {};
        return;
    }
    still_ += std::min<Clock::duration>(now - lastLook_, kLongestLook);
    if (still_ >= kStuck)
        sink_.reset();
}

qint64 SoundSink::Source::readData(char* data, qint64 most) {
    const qint64 whole = most - most % frameBytes_;
    fill_({data, static_cast<std::size_t>(whole)});
    return whole;
}

} // namespace brovin::voice
