#include "voice/sound_server.h"

#include "voice/statement.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QTimer>

#include <cstring>

namespace brovin::voice {

SoundServer::SoundServer() {
    const QString socket = folder_.filePath("native");
    qputenv("PULSE_SERVER", "unix:" + socket.toUtf8());
    qputenv("PULSE_RUNTIME_PATH", folder_.path().toUtf8());
    qputenv("PULSE_COOKIE", folder_.filePath("cookie").toUtf8());
    server_.setStandardErrorFile(QProcess::nullDevice());
    // "norewinds": else the device begins more than a second late.
    server_.start("pulseaudio", {"--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", "-n",
                                 "--load=module-null-sink sink_name=void norewinds=1",
                                 "--load=module-native-protocol-unix auth-anonymous=1 socket=" + socket});
    passUntil([&] { return QFile::exists(socket); }, std::chrono::seconds{10});
}

SoundServer::~SoundServer() {
    end();
}

void SoundServer::end() {
    server_.kill();
    server_.waitForFinished();
}

Recorder::Recorder() {
    QObject::connect(&recorder_, &QProcess::readyReadStandardOutput, &recorder_, [this] { take(); });
    recorder_.start("parec", {"--raw", "--device=void.monitor", "--format=s16le", "--channels=1",
                              "--rate=" + QString::number(kSpeechRate), "--latency-msec=10"});
    passUntil([this] { return !bytes_.isEmpty(); }, std::chrono::seconds{10});
}

Recorder::~Recorder() {
    recorder_.kill();
    recorder_.waitForFinished();
}

void Recorder::take() {
    const qsizetype before = bytes_.size() / 2;
    bytes_ += recorder_.readAllStandardOutput();
    const std::vector<std::int16_t> all = samples();
    if (!heardAnything() && std::any_of(all.begin() + before, all.end(), Synthesis::audible))
        heardAt_ = Clock::now();
}

void Recorder::awaitSilence() {
    constexpr std::ptrdiff_t kWhile = kSpeechRate * 6 / 10;
    passUntil(
        [this] {
            const std::vector<std::int16_t> all = samples();
            return std::ssize(all) > kWhile &&
                   std::none_of(all.end() - kWhile, all.end(), Synthesis::audible);
        },
        std::chrono::seconds{20});
}

std::vector<std::int16_t> Recorder::samples() const {
    std::vector<std::int16_t> samples(static_cast<std::size_t>(bytes_.size()) / 2);
    if (!samples.empty())
        std::memcpy(samples.data(), bytes_.constData(), samples.size() * 2);
    return samples;
}

bool passUntil(const std::function<bool()>& so, std::chrono::milliseconds longest) {
    const auto deadline = Clock::now() + longest;
    while (!so()) {
        if (Clock::now() > deadline)
            return false;
        pass(std::chrono::milliseconds{5});
    }
    return true;
}

void pass(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace brovin::voice
