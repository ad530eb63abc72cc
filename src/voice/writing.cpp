#include "voice/writing.h"

#include "text/utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace brovin::voice {
namespace {

/// Letters of one kind. Each voice reads Latin ones, at least as English.
struct Letters {
    char32_t first;
    char32_t last;
    std::string_view reader;
    std::string_view languages; ///< which have them too, each between blanks
};

constexpr std::array kLetters = {
    Letters{U'\u0370', U'\u03FF', "el", " el grc "},
    Letters{U'\u0400', U'\u052F', "ru", " ru uk bg mk sr be kk ky tt ba cv os tg mn "},
    Letters{U'\u0531', U'\u058F', "hy", " hy hyw "},
    Letters{U'\u0590', U'\u05FF', "he", " he yi "},
    Letters{U'\u0600', U'\u06FF', "ar", " ar fa ur sd ug ku ps "},
    Letters{U'\u0900', U'\u097F', "hi", " hi mr ne kok sa bpy "},
    Letters{U'\u0E00', U'\u0E7F', "th", " th "},
    Letters{U'\u10A0', U'\u10FF', "ka", " ka "},
    Letters{U'\u3040', U'\u30FF', "ja", " ja "},
    Letters{U'\u4E00', U'\u9FFF', "cmn", " cmn zh yue hak ja ko "},
    Letters{U'\uAC00', U'\uD7A3', "ko", " ko "},
};

bool isLatinLetter(char32_t c) {
    return (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z') || (c >= U'\u00C0' && c <= U'\u024F');
}

} // namespace

std::string readerOf(std::string_view text, std::string_view language) {
    std::array<std::size_t, kLetters.size()> counts{};
    std::size_t latin = 0;
    while (!text.empty()) {
        const text::Decoded decoded = text::decodeUtf8(text);
        text.remove_prefix(decoded.bytes);
        const char32_t c = decoded.codePoint;
        latin += decoded.valid && isLatinLetter(c) ? 1 : 0;
        for (std::size_t i = 0; i < kLetters.size(); ++i)
            counts[i] += decoded.valid && c >= kLetters[i].first && c <= kLetters[i].last ? 1 : 0;
    }
    const auto most = std::max_element(counts.begin(), counts.end());
    if (*most <= latin)
        return {};
    const Letters& letters = kLetters[static_cast<std::size_t>(most - counts.begin())];
    const std::string plain = ' ' + std::string(language.substr(0, language.find('-'))) + ' ';
    return letters.languages.find(plain) == std::string_view::npos ? std::string(letters.reader)
                                                                   : std::string();
}

} // namespace brovin::voice
