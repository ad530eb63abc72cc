#pragma once

#include "language/language_tables.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::language {

/// What a list of alternatives is made of.
enum class ListKind : std::uint8_t {
    Animations,
    Phrases,
    Words, ///< for a token
    Pairs, ///< a character and its word, for a token
};
[[nodiscard]] ListKind kindOf(PhraseList list);

/// The tokens "&word&" in a text, in their order, each as often as it stands there.
[[nodiscard]] std::vector<std::string_view> tokensOf(std::string_view text);

/// The list that fills a token in, such as "&song&"; nullopt: not one that is filled in from one list.
[[nodiscard]] std::optional<PhraseList> listBehind(std::string_view token);

/// What is wrong with one alternative of a list, each fault as a sentence for whoever wrote it.
[[nodiscard]] std::vector<std::string> phraseFaults(PhraseList list, std::string_view phrase);

} // namespace brovin::language
