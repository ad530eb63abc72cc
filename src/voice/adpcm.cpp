#include "voice/adpcm.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace brovin::voice {
namespace {

using Bytes = std::span<const std::uint8_t>;
using Samples = std::vector<std::int16_t>;

std::int16_t word(Bytes bytes, std::size_t at) {
    return static_cast<std::int16_t>(bytes[at] | (bytes[at + 1] << 8U));
}

std::int16_t clampSample(int value) {
    return static_cast<std::int16_t>(std::clamp(value, -32768, 32767));
}

constexpr struct {
    int first;
    int second;
} kPredictors[] = {{256, 0}, {512, -256}, {0, 0}, {192, 64}, {240, 0}, {460, -208}, {392, -232}};
constexpr int kAdaptation[] = {230, 230, 230, 230, 307, 409, 512, 614,
                               768, 614, 512, 409, 307, 230, 230, 230};
constexpr int kSmallestDelta = 16;
constexpr int kLargestDelta = 1 << 20;
constexpr std::size_t kMsHead = 7; // bytes a channel

struct MsChannel {
    std::size_t predictor = 0;
    int delta = 0;
    int last = 0;
    int beforeLast = 0;

    std::int16_t next(unsigned nibble) {
        const int step = nibble < 8 ? static_cast<int>(nibble) : static_cast<int>(nibble) - 16;
        const auto& weights = kPredictors[predictor];
        const int sample =
            clampSample((last * weights.first + beforeLast * weights.second) / 256 + step * delta);
        delta = std::clamp(delta * kAdaptation[nibble] / 256, kSmallestDelta, kLargestDelta);
        beforeLast = last;
        last = sample;
        return static_cast<std::int16_t>(sample);
    }
};

bool decodeMsBlock(Bytes block, std::size_t channels, Samples& samples) {
    if (block.size() < kMsHead * channels)
        return false;
    std::array<MsChannel, 2> state;
    for (std::size_t c = 0; c < channels; ++c) {
        state[c] = {block[c], word(block, channels + 2 * c), word(block, 3 * channels + 2 * c),
                    word(block, 5 * channels + 2 * c)};
        if (state[c].predictor >= std::size(kPredictors))
            return false;
    }
    for (std::size_t c = 0; c < channels; ++c)
        samples.push_back(static_cast<std::int16_t>(state[c].beforeLast));
    for (std::size_t c = 0; c < channels; ++c)
        samples.push_back(static_cast<std::int16_t>(state[c].last));
    for (const std::uint8_t pair : block.subspan(kMsHead * channels)) {
        samples.push_back(state[0].next(pair >> 4U));
        samples.push_back(state[channels - 1].next(pair & 15U));
    }
    return true;
}

constexpr int kSteps[] = {
    7,    8,     9,     10,    11,    12,    13,    14,    16,    17,    19,    21,    23,    25,   28,
    31,   34,    37,    41,    45,    50,    55,    60,    66,    73,    80,    88,    97,    107,  118,
    130,  143,   157,   173,   190,   209,   230,   253,   279,   307,   337,   371,   408,   449,  494,
    544,  598,   658,   724,   796,   876,   963,   1060,  1166,  1282,  1411,  1552,  1707,  1878, 2066,
    2272, 2499,  2749,  3024,  3327,  3660,  4026,  4428,  4871,  5358,  5894,  6484,  7132,  7845, 8630,
    9493, 10442, 11487, 12635, 13899, 15289, 16818, 18500, 20350, 22385, 24623, 27086, 29794, 32767};
constexpr int kLastStep = static_cast<int>(std::size(kSteps)) - 1;
constexpr int kStepChanges[] = {-1, -1, -1, -1, 2, 4, 6, 8};
constexpr std::size_t kImaHead = 4; // bytes a channel
constexpr std::size_t kImaWord = 4; // bytes of one channel, then of the other

struct ImaChannel {
    int last = 0;
    int step = 0;

    std::int16_t next(unsigned nibble) {
        const int size = kSteps[step];
        int change = size >> 3;
        if ((nibble & 4U) != 0)
            change += size;
        if ((nibble & 2U) != 0)
            change += size >> 1;
        if ((nibble & 1U) != 0)
            change += size >> 2;
        last = clampSample((nibble & 8U) != 0 ? last - change : last + change);
        step = std::clamp(step + kStepChanges[nibble & 7U], 0, kLastStep);
        return static_cast<std::int16_t>(last);
    }
};

bool decodeImaBlock(Bytes block, std::size_t channels, Samples& samples) {
    if (block.size() < kImaHead * channels)
        return false;
    std::array<ImaChannel, 2> state;
    for (std::size_t c = 0; c < channels; ++c) {
        state[c] = {word(block, kImaHead * c), block[kImaHead * c + 2]};
        if (state[c].step > kLastStep)
            return false;
        samples.push_back(static_cast<std::int16_t>(state[c].last));
    }
    block = block.subspan(kImaHead * channels);
    for (; block.size() >= kImaWord * channels; block = block.subspan(kImaWord * channels)) {
        const std::size_t first = samples.size();
        samples.resize(first + 2 * kImaWord * channels);
        for (std::size_t c = 0; c < channels; ++c)
            for (std::size_t i = 0; i < 2 * kImaWord; ++i) {
                const unsigned pair = block[kImaWord * c + i / 2];
                samples[first + i * channels + c] = state[c].next(i % 2 == 0 ? pair & 15U : pair >> 4U);
            }
    }
    return true;
}

template <class DecodeBlock>
Samples decodeAll(const AdpcmBlocks& blocks, DecodeBlock decodeBlock) {
    Samples samples;
    Bytes left = blocks.bytes;
    while (!left.empty()) {
        const std::size_t size = std::min(left.size(), blocks.blockBytes);
        if (size == 0 || !decodeBlock(left.first(size), static_cast<std::size_t>(blocks.channels), samples))
            break;
        left = left.subspan(size);
    }
    return samples;
}

} // namespace

std::vector<std::int16_t> decodeMsAdpcm(const AdpcmBlocks& blocks) {
    return decodeAll(blocks, decodeMsBlock);
}

std::vector<std::int16_t> decodeImaAdpcm(const AdpcmBlocks& blocks) {
    return decodeAll(blocks, decodeImaBlock);
}

} // namespace brovin::voice
