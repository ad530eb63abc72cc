#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brovin::text {

/// The language that a Windows language identifier stands for, as a lower-case tag such as "pt-br" or "de":
/// with its country where that makes a difference to a voice. nullopt: no such language is known.
[[nodiscard]] std::optional<std::string> languageTag(long id);

/// The shortest tag that `languageId` turns into this very identifier; nullopt: there is none.
[[nodiscard]] std::optional<std::string> exactLanguageTag(long id);

/// The identifier of a language, upper and lower case as they please: of a tag without a country that of the
/// country one thinks of first. nullopt: it is not known.
[[nodiscard]] std::optional<std::uint16_t> languageId(std::string_view tag);

} // namespace brovin::text
