#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace brovin::character {

/// Bytes of a record, written down field by field without a thought for what is allowed.
class Raw {
public:
    Raw() = default;
    explicit Raw(std::vector<std::uint8_t> bytes) : bytes_(std::move(bytes)) {}

    Raw& u8(std::uint32_t value) { return number(value, 1); }
    Raw& u16(std::uint32_t value) { return number(value, 2); }
    Raw& u32(std::uint32_t value) { return number(value, 4); }
    Raw& zeros(std::size_t count) {
        bytes_.resize(bytes_.size() + count);
        return *this;
    }
    Raw& raw(std::span<const std::uint8_t> bytes) {
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
        return *this;
    }
    Raw& text(std::u16string_view text) {
        u32(static_cast<std::uint32_t>(text.size()));
        for (const char16_t unit : text)
            u16(unit);
        return text.empty() ? *this : u16(0);
    }
    /// Offset and size of a block.
    Raw& locator(std::array<std::uint32_t, 2> place) { return u32(place[0]).u32(place[1]); }

    [[nodiscard]] const std::vector<std::uint8_t>& bytes() const { return bytes_; }

private:
    Raw& number(std::uint32_t value, std::size_t size) {
        for (std::size_t i = 0; i < size; ++i, value >>= 8U)
            bytes_.push_back(static_cast<std::uint8_t>(value & 0xFFU));
        return *this;
    }

    std::vector<std::uint8_t> bytes_;
};

enum class Table : std::uint8_t { Information, Animations, Images, Sounds };

/// A character file put together by hand, of blocks that need not make sense.
class RawFile {
public:
    using Place = std::array<std::uint32_t, 2>;

    RawFile() { bytes_ = Raw().u32(0xABCDABC3).zeros(32).bytes(); }

    Place add(const Raw& block) {
        const Place place{static_cast<std::uint32_t>(bytes_.size()),
                          static_cast<std::uint32_t>(block.bytes().size())};
        bytes_.insert(bytes_.end(), block.bytes().begin(), block.bytes().end());
        return place;
    }

    void point(Table table, const Place& place) {
        const std::vector<std::uint8_t> locator = Raw().locator(place).bytes();
        std::copy(locator.begin(), locator.end(),
                  bytes_.begin() + 4 + 8 * static_cast<std::ptrdiff_t>(table));
    }

    void set(Table table, const Raw& block) { point(table, add(block)); }

    [[nodiscard]] const std::vector<std::uint8_t>& bytes() const { return bytes_; }

private:
    std::vector<std::uint8_t> bytes_;
};

/// The fixed part of the character information, 41 bytes.
inline Raw informationHead(std::uint32_t flags, const RawFile::Place& localized = {},
                           std::uint32_t width = 16, std::uint32_t height = 12) {
    Raw head;
    head.u16(1).u16(2).locator(localized);
    head.u32(0xCA141FD0).u16(0xAC7F).u16(0x11D1).u32(0x6000A397).u32(0x08302708);
    return head.u16(width).u16(height).u8(10).u32(flags).u16(2).u16(0);
}

/// A palette of two colours (blue first), no icon, no states.
inline Raw& plainTail(Raw& information) {
    return information.u32(2).u32(0x00FF0000).u32(0x000000FF).u8(0).u16(0);
}

/// A file with the smallest that each table can be.
inline RawFile smallestFile() {
    RawFile file;
    Raw information = informationHead(0x110);
    file.set(Table::Information, plainTail(information));
    for (const Table table : {Table::Animations, Table::Images, Table::Sounds})
        file.set(table, Raw().u32(0));
    return file;
}

} // namespace brovin::character
