#pragma once

#include "character/byte_reader.h"
#include "character/byte_writer.h"
#include "character/character_data.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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

/// What a list in a file must keep to.
struct ListBounds {
    std::size_t smallest = 1; ///< bytes of an item, at least
    std::size_t most = std::numeric_limits<std::size_t>::max();
    std::string_view tooMany = {}; ///< the failure where there are more
};

/// The items of a list whose count has been read: those that `read` returns, which may leave one out by
/// nullopt. Memory is taken for no more than the bytes can hold; where any is missing, the reader has failed.
template <class Read>
[[nodiscard]] auto readList(ByteReader& in, std::size_t count, const ListBounds& bounds, Read read) {
    std::vector<typename decltype(std::optional(read()))::value_type> items;
    if (count > bounds.most)
        in.fail(bounds.tooMany);
    if (!in.canHold(count, bounds.smallest))
        return items;
    items.reserve(count);
    for (std::size_t i = 0; i < count && in.ok(); ++i)
        if (auto item = std::optional(read()))
            items.push_back(*std::move(item));
    return items;
}

} // namespace brovin::character
