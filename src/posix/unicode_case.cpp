#include "posix/unicode_case.h"

#include "text/utf8.h"

#include <unicode/uchar.h>

namespace brovin::posix {
namespace {

template <class Map>
std::string mapped(std::string_view bytes, Map map) {
    std::string result;
    result.reserve(bytes.size());
    text::appendMapped(result, bytes, map);
    return result;
}

} // namespace

char32_t lowerCase(char32_t character) {
    return static_cast<char32_t>(u_tolower(static_cast<UChar32>(character)));
}

std::string lowerCase(std::string_view text) {
    return mapped(text, [](char32_t c) { return lowerCase(c); });
}

std::string properCase(std::string_view text) {
    bool wordBegins = true;
    return mapped(text, [&wordBegins](char32_t c) {
        const char32_t shown =
            wordBegins ? static_cast<char32_t>(u_toupper(static_cast<UChar32>(c))) : lowerCase(c);
        wordBegins = c == U' ' || c == U'\t';
        return shown;
    });
}

} // namespace brovin::posix
