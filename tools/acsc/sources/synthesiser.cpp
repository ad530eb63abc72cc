#include "acsc/sources/sounds.h"

#include <QtEndian>

#include <algorithm>
#include <cmath>

namespace brovin::acsc {
namespace {

constexpr int kRate = 22050; // samples a second
constexpr double kFullTurn = 6.283185307179586;
constexpr Range kSeconds{0, 30};

struct Point {
    double time = 0;
    double value = 0;
};

std::vector<Point> readCurve(JsonSource& voice, const QString& key, const Range& range) {
    std::vector<Point> curve;
    for (const JsonSource& item : voice.items(key)) {
        const auto pair = item.items();
        if (pair.size() != 2) {
            item.report(QStringLiteral("[seconds, value] is expected"));
            continue;
        }
        curve.push_back({pair[0].number(kSeconds), pair[1].number(range, range.lowest)});
    }
    if (curve.empty())
        voice.report(QStringLiteral("\"%1\" needs points [[seconds, value], ...]").arg(key));
    return curve;
}

double valueAt(const std::vector<Point>& curve, double time) {
    const auto next =
        std::find_if(curve.begin(), curve.end(), [=](const Point& point) { return point.time > time; });
    if (next == curve.begin())
        return curve.front().value;
    if (next == curve.end())
        return curve.back().value;
    const Point& from = *(next - 1);
    return from.value + (next->value - from.value) * (time - from.time) / (next->time - from.time);
}

double waveAt(const QString& wave, double turns, std::uint32_t& noise) {
    const double phase = turns - std::floor(turns);
    if (wave == QLatin1String("square"))
        return phase < 0.5 ? 1 : -1;
    if (wave == QLatin1String("triangle"))
        return 1 - 4 * std::abs(phase - 0.5);
    if (wave == QLatin1String("noise")) {
        noise = noise * 1664525U + 1013904223U;
        return static_cast<double>(noise >> 8U) / static_cast<double>(1U << 23U) - 1;
    }
    return std::sin(kFullTurn * phase);
}

void addVoice(JsonSource& voice, std::vector<double>& sound) {
    const QString wave = voice.text(QStringLiteral("wave"), QStringLiteral("sine"));
    const double seconds = static_cast<double>(sound.size()) / kRate;
    const double from = voice.number(QStringLiteral("from"), 0, kSeconds);
    const double to = voice.number(QStringLiteral("to"), seconds, kSeconds);
    if (wave != QLatin1String("sine") && wave != QLatin1String("square") &&
        wave != QLatin1String("triangle") && wave != QLatin1String("noise"))
        voice.report(QStringLiteral("the wave is none of sine, triangle, square, noise"));
    const bool pitched = wave != QLatin1String("noise") || voice.has(QStringLiteral("hz"));
    const auto hertz =
        pitched ? readCurve(voice, QStringLiteral("hz"), {1, 11025}) : std::vector<Point>{{0, 1}};
    const auto gain = readCurve(voice, QStringLiteral("gain"), {0, 1});
    voice.expectNoMore();
    if (hertz.empty() || gain.empty())
        return;
    double turns = 0;
    std::uint32_t noise = 1;
    const auto begin = static_cast<std::size_t>(from * kRate);
    const auto end = std::min(static_cast<std::size_t>(to * kRate), sound.size());
    for (std::size_t i = begin; i < end; ++i) {
        const double time = static_cast<double>(i - begin) / kRate;
        sound[i] += waveAt(wave, turns, noise) * valueAt(gain, time);
        turns += valueAt(hertz, time) / kRate;
    }
}

void append(QByteArray& bytes, quint32 value) {
    const quint32 little = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&little), 4);
}

QByteArray waveFile(const std::vector<double>& sound) {
    const auto dataBytes = static_cast<quint32>(sound.size() * 2);
    QByteArray bytes = "RIFF";
    append(bytes, 36 + dataBytes);
    bytes += "WAVEfmt ";
    append(bytes, 16);
    append(bytes, 1U << 16U | 1U); // PCM, one channel
    append(bytes, kRate);
    append(bytes, kRate * 2);
    append(bytes, 16U << 16U | 2U); // bytes and bits a sample
    bytes += "data";
    append(bytes, dataBytes);
    for (const double value : sound) {
        const auto sample = static_cast<qint16>(std::lround(std::clamp(value, -1.0, 1.0) * 32767));
        const qint16 little = qToLittleEndian(sample);
        bytes.append(reinterpret_cast<const char*>(&little), 2);
    }
    return bytes;
}

} // namespace

QByteArray synthesise(JsonSource recipe) {
    const double seconds = recipe.number(QStringLiteral("seconds"), 0, {0.001, kSeconds.highest});
    if (seconds <= 0)
        recipe.report(QStringLiteral("\"seconds\" is missing"));
    std::vector<double> sound(static_cast<std::size_t>(seconds * kRate));
    for (JsonSource& voice : recipe.items(QStringLiteral("voices")))
        addVoice(voice, sound);
    recipe.expectNoMore();
    return waveFile(sound);
}

} // namespace brovin::acsc
