#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace brovin::character {

/// One of the four ways in which the packed form writes down how far back a copy begins. Bits are numbered in
/// the order of the stream, the first one lowest.
struct OffsetClass {
    unsigned prefix;           ///< the bit that says "copy" and the bits that name the class
    unsigned prefixBits;       ///< how many these are
    unsigned valueBits;        ///< of the offset itself, less `firstOffset`
    std::uint32_t firstOffset; ///< in bytes
    std::uint32_t lastOffset;
    std::uint32_t shortest; ///< copy of the class, in bytes
};

/// All value bits of the last class set mean the end of the stream, so its last offset is one less than they
/// hold.
inline constexpr std::array<OffsetClass, 4> kOffsetClasses{{
    {0b01, 2, 6, 1, 64, 2},
    {0b011, 3, 9, 65, 576, 2},
    {0b0111, 4, 12, 577, 4672, 2},
    {0b1111, 4, 20, 4673, 1053247, 3},
}};

inline constexpr std::uint32_t kEndOfStream = 0xFFFFF;

/// A copy's length is written as n ones, a zero and n bits: 2^n - 1 and the value of the bits are added to
/// the shortest length of the class.
inline constexpr unsigned kMostLengthOnes = 11;

/// The longest copy of a class that n ones can say.
[[nodiscard]] constexpr std::uint32_t longestCopy(const OffsetClass& offsets, unsigned lengthOnes) {
    return offsets.shortest + (1U << (lengthOnes + 1U)) - 2U;
}

inline constexpr unsigned kLiteralBits = 9;
/// A packed run begins with a zero byte and ends with six bytes 0xFF.
inline constexpr std::size_t kPackedTailBytes = 6;
inline constexpr std::size_t kSmallestPacked = 1 + kPackedTailBytes;

} // namespace brovin::character
