#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace brovin::text {

/// UTF-16LE as UTF-8, up to the first zero unit. Half a surrogate pair becomes U+FFFD.
[[nodiscard]] std::string fromUtf16(std::span<const std::uint8_t> bytes);

/// UTF-8 as UTF-16; a byte that belongs to no code point becomes U+FFFD.
[[nodiscard]] std::u16string toUtf16(std::string_view text);

} // namespace brovin::text
