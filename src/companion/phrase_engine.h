#pragma once

#include "companion/actor.h"
#include "language/language_tables.h"
#include "platform/letters.h"
#include "platform/random.h"
#include "settings/settings.h"
#include "ui/pages/character_page.h"

#include <optional>
#include <string>
#include <string_view>

namespace brovin::companion {

/// Picks a phrase from a list of alternatives and fills in its tokens.
class PhraseEngine {
public:
    struct Needs {
        const ui::CharacterPage& characterPage;
        const settings::Settings& settings;
        const language::LanguageTables& tables;
        const Actor& actor;
        const platform::Letters& letters;
        platform::Random& random;
    };
    explicit PhraseEngine(const Needs& needs) : needs_(needs) {}

    /// One alternative of the list, which divides them by "|", with every token replaced. A sequence of
    /// speech and animations is performed at once, and a blank stands for it. nullopt: the list, or one that
    /// a token needs, is empty, or its tokens lead round in a circle.
    [[nodiscard]] std::optional<std::string> pickPhrase(std::string_view list);
    [[nodiscard]] std::optional<std::string> pickPhrase(language::PhraseList list);

    /// From a list of names and values in turn, in lower case: the value behind the character's name, else
    /// the one behind "else", else nothing. nullopt: a name at the end of the list has no value.
    [[nodiscard]] std::optional<std::string> getSpecific(std::string_view list) const;

    /// Performs the parts between "+" in their order: an animation after "&ani&", anything else is spoken.
    void playSequence(std::string_view phrase);

    /// How the user is addressed: ", " and a name, or nothing where the user wants none of it.
    [[nodiscard]] std::string getDude();

    /// The animation that leads back from the one that was picked last, until it is played; empty: none.
    std::string pendingReturnAnimation;

private:
    struct Token;

    std::optional<std::string> pickOne(std::string_view list);
    std::optional<std::string> expand(std::string phrase);
    std::optional<std::string> valueFor(const Token& token);

    Needs needs_;
    int picks_ = 0; ///< how many picks and replacements the running outermost one has needed
    int depth_ = 0; ///< how deep it is in them
};

} // namespace brovin::companion
