#pragma once

#include <optional>
#include <string>

namespace brovin::voice {

/// The language that a Windows language identifier stands for, as a lower-case tag such as "pt-br" or "de":
/// with its country where voices of it differ by country. nullopt: no such language is known.
[[nodiscard]] std::optional<std::string> languageTag(long id);

} // namespace brovin::voice
