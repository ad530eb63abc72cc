#pragma once

#include <string>
#include <string_view>

namespace brovin::voice {

/// The language, by its tag, whose voice reads a text that is mostly written in foreign letters. A voice
/// would spell out by name each letter that its language does not have. Empty: `language`, such as "en-us",
/// has those letters itself, or none of the text's are known here.
[[nodiscard]] std::string readerOf(std::string_view text, std::string_view language);

} // namespace brovin::voice
