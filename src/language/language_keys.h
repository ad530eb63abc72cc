#pragma once

#include "language/messages.h"
#include "ui/frm_options.h"

#include <bitset>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::language {

/// The places "%1" to "%9" that a text has for values, by their digits.
using Places = std::bitset<10>;
[[nodiscard]] Places placesOf(std::string_view text);

/// A key that every language file has.
struct LanguageKey {
    std::string key;
    std::optional<Message> message; ///< that it sets
    std::optional<Places> places;   ///< for the values that a message or a text is given
};

/// All of them, in the order of their bytes.
[[nodiscard]] const std::vector<LanguageKey>& languageKeys();

/// The texts that have their parts divided by commas, and how many each has.
struct CommaList {
    std::string_view key;
    std::size_t pieces;
};
inline constexpr CommaList kCommaLists[] = {
    {"envButtons", ui::FrmOptions::kTabs}, {"envDudeOptions", 3}, {"envCheckOptions", 4}};

} // namespace brovin::language
