#include "voice/wave_file.h"

#include "voice/adpcm.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace brovin::voice {
namespace {

using Bytes = std::span<const std::uint8_t>;

enum Coding : std::uint32_t { Plain = 1, MsAdpcm = 2, ImaAdpcm = 17, Extensible = 0xFFFE };

constexpr std::size_t kRiffHead = 12;
constexpr std::size_t kChunkHead = 8;
constexpr std::size_t kFormatBytes = 16;
constexpr std::size_t kTrueCoding = 24; // where the extensible form has it
constexpr std::uint32_t kLowestRate = 1'000;
constexpr std::uint32_t kHighestRate = 192'000;
/// A minute and a half at the rate of a disc, which is decoded in a moment. What lies beyond is cut off.
constexpr std::size_t kMostSamples = std::size_t{4} << 20U;
constexpr std::size_t kBitsOfAByte = 8;

/// Little-endian; the bytes are there.
std::uint32_t number(Bytes bytes, std::size_t at, std::size_t size) {
    std::uint32_t result = 0;
    for (std::size_t i = size; i-- > 0;)
        result = (result << 8U) | bytes[at + i];
    return result;
}

bool isTag(Bytes bytes, std::size_t at, std::string_view tag) {
    return std::equal(tag.begin(), tag.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at),
                      [](char c, std::uint8_t byte) { return static_cast<std::uint8_t>(c) == byte; });
}

/// What the chunk of a name holds, or as much of it as there is; empty: there is none.
Bytes chunk(Bytes file, std::string_view tag) {
    Bytes left = file.subspan(kRiffHead);
    while (left.size() >= kChunkHead) {
        const std::size_t size = number(left, 4, 4);
        const Bytes content = left.subspan(kChunkHead, std::min(size, left.size() - kChunkHead));
        if (isTag(left, 0, tag))
            return content;
        left = left.subspan(std::min(kChunkHead + size + size % 2, left.size()));
    }
    return {};
}

struct Format {
    std::uint32_t coding = 0;
    std::uint32_t channels = 0;
    std::uint32_t rate = 0;
    std::uint32_t blockBytes = 0;
    std::uint32_t bits = 0;
};

std::optional<Format> readFormat(Bytes bytes) {
    if (bytes.size() < kFormatBytes)
        return std::nullopt;
    Format format{number(bytes, 0, 2), number(bytes, 2, 2), number(bytes, 4, 4), number(bytes, 12, 2),
                  number(bytes, 14, 2)};
    if (format.coding == Extensible && bytes.size() >= kTrueCoding + 2)
        format.coding = number(bytes, kTrueCoding, 2);
    const bool sound = (format.channels == 1 || format.channels == 2) && format.rate >= kLowestRate &&
                       format.rate <= kHighestRate;
    return sound ? std::optional(format) : std::nullopt;
}

std::vector<std::int16_t> fromBytes(Bytes bytes) {
    constexpr int kMiddle = 128;
    std::vector<std::int16_t> samples(bytes.size());
    std::ranges::transform(bytes, samples.begin(), [](std::uint8_t byte) {
        return static_cast<std::int16_t>((byte - kMiddle) * 256);
    });
    return samples;
}

std::vector<std::int16_t> fromWords(Bytes bytes) {
    std::vector<std::int16_t> samples(bytes.size() / 2);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<std::int16_t>(number(bytes, 2 * i, 2));
    return samples;
}

std::vector<std::int16_t> decode(const Format& format, Bytes data) {
    data = data.first(std::min(data.size(), kMostSamples * format.bits / kBitsOfAByte));
    const AdpcmBlocks blocks{data, format.blockBytes, static_cast<int>(format.channels)};
    if (format.coding == Plain && format.bits == 8)
        return fromBytes(data);
    if (format.coding == Plain && format.bits == 16)
        return fromWords(data);
    if (format.coding == MsAdpcm && format.bits == 4)
        return decodeMsAdpcm(blocks);
    if (format.coding == ImaAdpcm && format.bits == 4)
        return decodeImaAdpcm(blocks);
    return {};
}

} // namespace

character::Milliseconds Sound::length() const {
    const auto frames = static_cast<std::int64_t>(samples.size()) / std::max(channels, 1);
    return character::Milliseconds{rate > 0 ? (frames * 1000 + rate - 1) / rate : 0};
}

std::optional<Sound> readWave(Bytes file) {
    if (file.size() < kRiffHead || !isTag(file, 0, "RIFF") || !isTag(file, 8, "WAVE"))
        return std::nullopt;
    const auto format = readFormat(chunk(file, "fmt "));
    if (!format)
        return std::nullopt;
    Sound sound{static_cast<int>(format->rate), static_cast<int>(format->channels),
                decode(*format, chunk(file, "data"))};
    sound.samples.resize(sound.samples.size() - sound.samples.size() % format->channels);
    return sound.samples.empty() ? std::nullopt : std::optional(std::move(sound));
}

} // namespace brovin::voice
