#include "character/acs_writer.h"
#include "character/image_codec.h"
#include "random_character.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using namespace brovin::character;
using Bytes = std::vector<std::uint8_t>;

constexpr std::uint32_t kSeeds = 100;

bool save(const std::filesystem::path& folder, std::uint32_t seed, const Bytes& bytes) {
    std::ofstream file(folder / ("seed" + std::to_string(seed)), std::ios::binary);
    for (const std::uint8_t byte : bytes)
        file.put(static_cast<char>(byte));
    return file.good();
}

/// Without the large ones, with which a fuzzer gets nowhere.
bool saveCharacter(const std::filesystem::path& folder, std::uint32_t seed) {
    constexpr std::size_t kLargest = 3000;
    const auto file = writeCharacter(RandomCharacter(seed).make());
    return file && (file->size() > kLargest || save(folder, seed, *file));
}

/// A packed run behind the length of what it stands for, both as the fuzzer takes them.
bool saveImage(const std::filesystem::path& folder, std::uint32_t seed) {
    const Bytes plain = RandomCharacter(seed).pixels(std::size_t{seed} * 20);
    Bytes bytes{static_cast<std::uint8_t>(plain.size() & 0xFFU),
                static_cast<std::uint8_t>(plain.size() >> 8U)};
    const Bytes packed = pack(plain);
    bytes.insert(bytes.end(), packed.begin(), packed.end());
    return save(folder, seed, bytes);
}

} // namespace

/// seed_corpus ACS_FOLDER IMAGE_FOLDER: writes what the fuzzers begin with.
int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("usage: seed_corpus ACS_FOLDER IMAGE_FOLDER\n", stderr);
        return 2;
    }
    const std::filesystem::path characters(arguments[1]);
    const std::filesystem::path images(arguments[2]);
    std::filesystem::create_directories(characters);
    std::filesystem::create_directories(images);
    for (std::uint32_t seed = 0; seed < kSeeds; ++seed)
        if (!saveCharacter(characters, seed) || !saveImage(images, seed)) {
            std::fputs("seed_corpus: a seed could not be written\n", stderr);
            return 1;
        }
    return 0;
}
