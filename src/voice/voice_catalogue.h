#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::voice {

/// A language that a voice speaks. Of the voices of a language the one with the lowest rank suits best.
struct VoiceLanguage {
    std::string tag; ///< lower case: "en-us"
    int rank = 0;
};

/// A voice as the synthesizer lists it.
struct ListedVoice {
    std::string name;       ///< "English (America)"
    std::string identifier; ///< "gmw/en-US"; by this it can be asked for
    std::vector<VoiceLanguage> languages;
};

/// A voice and a variant of it, both by the names that the synthesizer takes; an empty variant is the plain
/// voice.
struct NamedVoice {
    std::string identifier;
    std::string variant;
};

/// What the synthesizer has to offer.
struct VoiceCatalogue {
    std::vector<ListedVoice> voices;
    std::vector<std::string> variants; ///< "f3"

    /// The identifier of the best voice for a language: its country too, else the language alone. nullopt:
    /// nobody speaks it.
    [[nodiscard]] std::optional<std::string> voiceFor(std::string_view tag) const;

    /// The voice of a name, an identifier or a language, and of a variant behind a "+". Upper and lower case
    /// make no difference. nullopt: there is none.
    [[nodiscard]] std::optional<NamedVoice> named(std::string_view name) const;
};

} // namespace brovin::voice
