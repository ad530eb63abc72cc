#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brovin::posix {

/// Bytes that shownName() may append for names of so many bytes. Of a UTF-8 character of two bytes or more
/// the lower case has at most twice as many, and one byte stays one.
[[nodiscard]] constexpr std::size_t roomForShownNames(std::size_t trueBytes) {
    return 2 * trueBytes;
}

/// The name under which the program sees an entry: in lower case, with "?" for a carriage return and for
/// U+F00D, into which file servers turn one. Bytes that are not UTF-8 stay. The result is the true name's own
/// bytes where they serve, else what was appended to `memory`: whoever reserved enough there beforehand may
/// keep it.
[[nodiscard]] std::string_view shownName(std::string_view trueName, std::string& memory);

} // namespace brovin::posix
