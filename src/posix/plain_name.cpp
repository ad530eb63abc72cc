#include "posix/plain_name.h"

#include <algorithm>

namespace brovin::posix {

bool isPlainName(std::string_view name) {
    using std::string_view_literals::operator""sv;
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of("/\0"sv) == std::string_view::npos;
}

PlainName::PlainName(std::string_view name) {
    const bool fits = name.size() < bytes_.size() && isPlainName(name);
    const auto end = std::copy_n(name.data(), fits ? name.size() : 0, bytes_.begin());
    *end = '\0';
}

} // namespace brovin::posix
