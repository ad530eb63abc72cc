#pragma once

#include <array>
#include <climits>
#include <string_view>

namespace brovin::posix {

/// Whether a text can only mean an entry of the folder that it is used in: no path, no way up, no hidden end.
[[nodiscard]] bool isPlainName(std::string_view name);

/// A plain name in the form that system calls want, without memory of its own from the heap.
class PlainName {
public:
    explicit PlainName(std::string_view name);

    /// False: not a plain name, or longer than any disk allows.
    explicit operator bool() const { return bytes_.front() != '\0'; }
    [[nodiscard]] const char* text() const { return bytes_.data(); }

private:
    std::array<char, PATH_MAX> bytes_;
};

} // namespace brovin::posix
