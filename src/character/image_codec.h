#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace brovin::character {

/// The compression of images and regions: literals, and copies of what was put out before. The packed form
/// does not say how long the plain one is; that comes from the record around it.

enum class Unpacked : std::uint8_t {
    Done,
    BadStart,      ///< shorter than the smallest packed run, or its first byte is not zero
    EndsEarly,     ///< the packed bytes, or the data that they stand for, end before the output is full
    TooMuch,       ///< the data would not fit the output
    BadOffset,     ///< a copy from before the beginning
    BadLengthCode, ///< a length code of twelve ones or more
};

/// Fills `plain` with what `packed` stands for, which must be exactly as long. Whatever the bytes are,
/// nothing outside of the two runs is touched, and the time taken is bounded by their lengths. Unless done,
/// the content of `plain` is unspecified.
[[nodiscard]] Unpacked unpack(std::span<const std::uint8_t> packed, std::span<std::uint8_t> plain);

/// The packed form, the same for the same bytes on every machine. It may be longer than the plain one, by an
/// eighth and a few bytes. Takes about 30 bytes of memory for each plain one, of which there may be up to
/// 2^28.
[[nodiscard]] std::vector<std::uint8_t> pack(std::span<const std::uint8_t> plain);

} // namespace brovin::character
