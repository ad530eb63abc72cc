#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::language {

/// Something in a language file that its author would want to mend.
struct LanguageFault {
    std::size_t line = 0; ///< from 1; 0: something that stands nowhere
    std::string text;     ///< what is wrong, in English, without a full stop
};

/// What is wrong with a language file: keys that are missing, and in the order of its lines keys that are
/// unknown or set twice, places for values, lists and phrases, Alt letters that two captions of a page share.
struct LanguageFaults {
    std::vector<std::string_view> missing; ///< of a file that is not begun yet, hundreds; they live for ever
    std::vector<LanguageFault> others;

    [[nodiscard]] bool none() const { return missing.empty() && others.empty(); }
};
[[nodiscard]] LanguageFaults checkLanguage(std::string_view bytes);

} // namespace brovin::language
