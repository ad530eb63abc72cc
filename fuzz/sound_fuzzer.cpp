#include "require.h"
#include "voice/adpcm.h"
#include "voice/wave_file.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// A file with a sound: what comes of it is one that can be played, and never more than its bytes can hold.
/// The same bytes are blocks of both compressed forms, of the length and the channels that the first three
/// say.
// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brovin::voice;
    using brovin::fuzz::require;
    const std::vector<std::uint8_t> file(data, data + size);
    if (const auto sound = readWave(file)) {
        require(sound->channels == 1 || sound->channels == 2);
        require(!sound->samples.empty() && sound->samples.size() <= 2 * size);
        require(sound->samples.size() % static_cast<std::size_t>(sound->channels) == 0);
        require(sound->rate >= 1'000 && sound->rate <= 192'000 && sound->length().count() > 0);
    }
    constexpr std::size_t kFront = 3;
    if (size < kFront)
        return 0;
    const AdpcmBlocks blocks{std::span(file).subspan(kFront), data[0] | std::size_t{data[1]} << 8U,
                             1 + data[2] % 2};
    require(decodeMsAdpcm(blocks).size() <= 2 * size && decodeImaAdpcm(blocks).size() <= 2 * size);
    return 0;
}
