#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace brovin::character {

/// Puts little-endian numbers one behind the other.
class ByteWriter {
public:
    void u8(std::uint8_t value);
    void u16(std::uint16_t value);
    void u32(std::uint32_t value);
    void i16(std::int16_t value);
    void i32(std::int32_t value);
    void bytes(std::span<const std::uint8_t> run);

    /// Overwrites four bytes that were written before; `at` is at most `size()` less four.
    void patchU32(std::size_t at, std::uint32_t value);

    [[nodiscard]] std::size_t size() const { return bytes_.size(); }
    [[nodiscard]] std::vector<std::uint8_t> take() && { return std::move(bytes_); }

private:
    std::vector<std::uint8_t> bytes_;
};

} // namespace brovin::character
