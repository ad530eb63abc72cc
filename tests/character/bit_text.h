#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace brovin::character {

/// Packed runs written down bit by bit, in the order of the stream, as one would on paper.
class BitText {
public:
    /// '0' and '1'; anything else is for the eye.
    BitText& bits(std::string_view text) {
        for (const char c : text)
            if (c == '0' || c == '1')
                bit(c == '1');
        return *this;
    }

    /// A number, its lowest bit first.
    BitText& number(std::uint32_t value, unsigned count) {
        for (unsigned i = 0; i < count; ++i)
            bit(((value >> i) & 1U) != 0);
        return *this;
    }

    BitText& literal(std::uint8_t byte) { return bits("0").number(byte, 8); }

    /// The run so far: the zero byte before it, filled up with ones, and the six bytes behind it.
    [[nodiscard]] std::vector<std::uint8_t> packed() const {
        std::vector<std::uint8_t> bytes = bytes_;
        if (count_ % 8 != 0)
            bytes.back() = static_cast<std::uint8_t>(bytes.back() | (0xFFU << (count_ % 8)));
        bytes.insert(bytes.end(), 6, 0xFF);
        return bytes;
    }

private:
    void bit(bool one) {
        if (count_ % 8 == 0)
            bytes_.push_back(0);
        if (one)
            bytes_.back() = static_cast<std::uint8_t>(bytes_.back() | (1U << (count_ % 8)));
        ++count_;
    }

    std::vector<std::uint8_t> bytes_{0};
    std::size_t count_ = 0;
};

} // namespace brovin::character
