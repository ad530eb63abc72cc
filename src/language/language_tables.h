#pragma once

#include "language/message_table.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brovin::language {

/// The lists of alternatives that a language file supplies, named by the file's own keys.
enum class PhraseList : std::uint8_t {
    AniCritical,
    AniQuestion,
    AniInformation,
    AniExclamation,
    AniClick,
    AniNukeFiles,
    AniRandomPopOut,
    SpkClick,
    SpkClickPeedy,
    SpkClickMerlin,
    SpkClickRobby,
    SpkClickGenie,
    SpkClickNoMore,
    SpkCharMove,
    SpkDo,
    SpkSay,
    SpkTypeSomething,
    SpkRepeat,
    SpkHello,
    SpkRandomHidden,
    SpkRandomVisible,
    SpkStupid,
    SpkCharCols,
    SpkPoo,
    SpkJobs,
    SpkNames,
    SpkSongs,
    SpkAnimal,
    SpkMusic,
    SpkCrowning,
    SpkTeeth,
    SpkDudeM,
    SpkDudeF,
};

/// The keys, in the order of the enumeration.
inline constexpr std::array<std::string_view, 33> kPhraseListKeys = {
    "aniCritical",      "aniQuestion",      "aniInformation", "aniExclamation", "aniClick",
    "aniNukeFiles",     "aniRandomPopOut",  "spkClick",       "spkClickPeedy",  "spkClickMerlin",
    "spkClickRobby",    "spkClickGenie",    "spkClickNoMore", "spkCharMove",    "spkDo",
    "spkSay",           "spkTypeSomething", "spkRepeat",      "spkHello",       "spkRandomHidden",
    "spkRandomVisible", "spkStupid",        "spkCharCols",    "spkPoo",         "spkJobs",
    "spkNames",         "spkSongs",         "spkAnimal",      "spkMusic",       "spkCrowning",
    "spkTeeth",         "spkDudeM",         "spkDudeF",
};

/// nullopt: the key names no list.
[[nodiscard]] constexpr std::optional<PhraseList> phraseListOf(std::string_view key) {
    for (std::size_t i = 0; i < kPhraseListKeys.size(); ++i)
        if (kPhraseListKeys[i] == key)
            return static_cast<PhraseList>(i);
    return std::nullopt;
}

/// All that a language file supplies besides captions. Filled by a load, empty where the file is silent.
struct LanguageTables {
    MessageTable messageTable;
    std::string langModeId;     ///< speech engine mode for the character; empty: the character's own
    std::string langLanguageId; ///< speech language for the character, a decimal number; empty: its own

    [[nodiscard]] const std::string& list(PhraseList which) const {
        return lists_[static_cast<std::size_t>(which)];
    }
    /// Alternatives are divided by "|"; nothing is put between what was there and what is added.
    void append(PhraseList which, std::string_view alternatives) {
        lists_[static_cast<std::size_t>(which)].append(alternatives);
    }

private:
    std::array<std::string, kPhraseListKeys.size()> lists_;
};

} // namespace brovin::language
