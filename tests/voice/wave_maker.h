#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace brovin::voice {

struct WaveFormat {
    std::uint32_t channels = 1;
    std::uint32_t rate = 22'050;
    std::uint32_t coding = 1;
    std::uint32_t bits = 16;
    std::uint32_t block = 2;
};

/// A RIFF WAVE file, as right or as wrong as it is told to be.
inline std::vector<std::uint8_t> makeWave(const WaveFormat& format, const std::vector<std::uint8_t>& data) {
    std::vector<std::uint8_t> file;
    const auto text = [&](std::string_view tag) { file.insert(file.end(), tag.begin(), tag.end()); };
    const auto number = [&](std::uint64_t value, int bytes) {
        for (; bytes > 0; --bytes, value >>= 8U)
            file.push_back(static_cast<std::uint8_t>(value));
    };
    text("RIFF");
    number(36 + data.size(), 4);
    text("WAVEfmt ");
    number(16, 4);
    number(format.coding, 2);
    number(format.channels, 2);
    number(format.rate, 4);
    number(std::uint64_t{format.rate} * format.block, 4);
    number(format.block, 2);
    number(format.bits, 2);
    text("data");
    number(data.size(), 4);
    file.insert(file.end(), data.begin(), data.end());
    return file;
}

} // namespace brovin::voice
