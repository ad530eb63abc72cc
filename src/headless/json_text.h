#pragma once

#include <string>
#include <string_view>

namespace brovin::headless {

/// A text as a JSON string, quotes included (RFC 8259); bytes that are not UTF-8 become U+FFFD.
[[nodiscard]] std::string jsonString(std::string_view text);

} // namespace brovin::headless
