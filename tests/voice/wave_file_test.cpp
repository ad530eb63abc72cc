#include "voice/wave_file.h"

#include "voice/wave_maker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <span>
#include <vector>

namespace brovin::voice {
namespace {

using Bytes = std::vector<std::uint8_t>;
using Samples = std::vector<std::int16_t>;

Samples samplesOf(const Bytes& file) {
    const auto sound = readWave(file);
    return sound ? sound->samples : Samples{};
}

TEST(WaveFile, readsPlainSamples) {
    const auto stereo =
        readWave(makeWave({.channels = 2, .rate = 44'100}, {1, 0, 255, 255, 0, 128, 255, 127}));
    ASSERT_TRUE(stereo);
    EXPECT_EQ(stereo->rate, 44'100);
    EXPECT_EQ(stereo->channels, 2);
    EXPECT_EQ(stereo->samples, (Samples{1, -1, -32768, 32767}));
    EXPECT_EQ(samplesOf(makeWave({.bits = 8}, {0, 128, 255})), (Samples{-32768, 0, 32512}));
    EXPECT_EQ(samplesOf(makeWave({.channels = 2}, {1, 0, 2, 0, 3, 0})), (Samples{1, 2})) << "half a frame";
    EXPECT_EQ(readWave(makeWave({.rate = 8'000}, Bytes(std::size_t{2} * 8'001)))->length(),
              character::Milliseconds{1001});
    constexpr std::size_t kMost = std::size_t{4} << 20U;
    EXPECT_EQ(kMost, samplesOf(makeWave({.bits = 8}, Bytes(kMost + 2))).size()) << "the rest is cut off";
}

TEST(WaveFile, readsAdpcm) {
    // One block: predictor 0, delta 16, last 100, the one before 50, then +1 and -1 steps of 16.
    const Bytes ms = {0, 16, 0, 100, 0, 50, 0, 0x1F};
    EXPECT_EQ(samplesOf(makeWave({.coding = 2, .bits = 4, .block = 8}, ms)), (Samples{50, 100, 116, 100}));
    // One block: begins at 1000 with step 0 (7), then twice up by one and an eighth of a step.
    const Bytes ima = {0xE8, 3, 0, 0, 0x44, 0x44, 0x44, 0x44};
    const Samples decoded = samplesOf(makeWave({.coding = 17, .bits = 4, .block = 8}, ima));
    ASSERT_EQ(decoded.size(), 9U);
    EXPECT_EQ(decoded[0], 1000);
    EXPECT_EQ(decoded[1], 1007);
    EXPECT_EQ(decoded[2], 1017) << "the step has grown to 9, of which an eighth is 1";
    EXPECT_TRUE(std::ranges::is_sorted(decoded));
}

TEST(WaveFile, isNotFooledByBrokenOnes) {
    Bytes good = makeWave({}, Bytes(100));
    EXPECT_TRUE(readWave(good));
    const std::pair<Bytes, const char*> cases[] = {
        {{}, "empty"},
        {makeWave({}, {}), "no samples"},
        {makeWave({.channels = 0}, Bytes(100)), "no channels"},
        {makeWave({.channels = 6}, Bytes(100)), "more channels than ears"},
        {makeWave({.rate = 0}, Bytes(100)), "no rate"},
        {makeWave({.rate = 4'000'000'000U}, Bytes(100)), "a rate beyond all devices"},
        {makeWave({.bits = 24}, Bytes(100)), "24 bits"},
        {makeWave({.coding = 0x55}, Bytes(100)), "another coding"},
        {makeWave({.coding = 2, .bits = 4, .block = 0}, Bytes(100)), "blocks of nothing"},
        {makeWave({.coding = 2, .bits = 4, .block = 8}, {7, 0, 0, 0, 0, 0, 0, 0}), "no such predictor"},
        {makeWave({.coding = 17, .bits = 4, .block = 8}, {0, 0, 89, 0, 0, 0, 0, 0}), "no such step"},
    };
    for (const auto& [file, why] : cases)
        EXPECT_FALSE(readWave(file)) << why;
    for (std::size_t size = 0; size < good.size(); ++size)
        EXPECT_LE(samplesOf(Bytes(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(size))).size(),
                  50U);
}

TEST(WaveFile, survivesAnyBytes) {
    std::mt19937 source(1);
    const auto random = [&] { return static_cast<std::uint32_t>(source()); };
    for (int i = 0; i < 3000; ++i) {
        const std::uint32_t codings[] = {1, 2, 17, 0xFFFE};
        Bytes file = makeWave({.channels = 1 + random() % 2,
                               .coding = codings[random() % 4],
                               .bits = random() % 2 == 0 ? 4U : 8U,
                               .block = random() % 70},
                              Bytes(random() % 200));
        for (int changes = 0; changes < 40; ++changes)
            file[random() % file.size()] = static_cast<std::uint8_t>(random());
        EXPECT_LE(samplesOf(file).size(), 2 * file.size());
    }
}

} // namespace
} // namespace brovin::voice
