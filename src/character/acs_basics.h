#pragma once

#include "character/byte_reader.h"
#include "character/byte_writer.h"
#include "character/character_data.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace brovin::character {

/// The types that the records of a character file are made of.

/// Where a block lies in the file, both in bytes.
struct Locator {
    std::uint32_t offset = 0;
    std::uint32_t size = 0;
};

/// A block that was found to lie within the file.
struct Block {
    std::span<const std::uint8_t> bytes;
    std::uint64_t offset = 0; ///< from the start of the file

    [[nodiscard]] ByteReader reader() const { return ByteReader(bytes, offset); }
};

/// nullopt: some of it lies outside of the file.
[[nodiscard]] std::optional<Block> blockAt(std::span<const std::uint8_t> file, const Locator& locator);

[[nodiscard]] Locator readLocator(ByteReader& in);
void writeLocator(ByteWriter& out, const Locator& locator);

[[nodiscard]] Guid readGuid(ByteReader& in);
void writeGuid(ByteWriter& out, const Guid& guid);

/// A text of at most `mostUnits` UTF-16 units, as UTF-8; more are a failure.
[[nodiscard]] std::string readText(ByteReader& in, std::uint32_t mostUnits);
void writeText(ByteWriter& out, std::string_view text);

/// A byte that says whether something follows; anything but 0 and 1 is a failure.
[[nodiscard]] bool readPresence(ByteReader& in);

} // namespace brovin::character
