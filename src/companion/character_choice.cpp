#include "companion/character_choice.h"

#include "companion/character_host.h"
#include "text/numbers.h"
#include "text/utf8.h"

#include <cstddef>
#include <utility>

namespace brovin::companion {
namespace {

using platform::CharacterProblem;

/// Letters of what the author of a character says of it: a stranger's may go on for as many as a window takes
/// long to lay out.
constexpr std::size_t kLongestNote = 300;

/// Why a character cannot be had.
language::Text told(CharacterProblem problem) {
    switch (problem) {
    case CharacterProblem::NotACharacter:
        return language::Text("characterIsNone");
    case CharacterProblem::Unsupported:
        return language::Text("characterUnsupported");
    case CharacterProblem::TooLarge:
        return language::Text("characterTooLarge");
    case CharacterProblem::Damaged:
        return language::Text("characterDamaged");
    default:
        return language::Text("characterUnreadable");
    }
}

} // namespace

CharacterChoice::CharacterChoice(const Needs& needs) : needs_(needs) {
    if (needs_.gallery == nullptr)
        return;
    needs_.page.lstChars.card = [this](int index) { return card(index); };
    needs_.page.lstChars.portrait = [this](int index) {
        const bool still = needs_.surroundings != nullptr && needs_.surroundings->lessMotion();
        return still ? nullptr : needs_.gallery->portrait(fileOf(index));
    };
}

std::string CharacterChoice::fileOf(int index) const {
    std::string file = needs_.page.lstChars.items()[static_cast<std::size_t>(index)].text;
    return file.append(kCharacterFileEnding);
}

ui::Gallery::Card CharacterChoice::card(int index) const {
    const auto language = text::leadingInt32(needs_.tables.langLanguageId);
    platform::CharacterCard card = needs_.gallery->card(fileOf(index), language.value_or(0));
    if (card.problem == CharacterProblem::None)
        return {text::displayText(text::firstCharacters(card.about, kLongestNote)), false,
                std::move(card.picture)};
    return {needs_.tables.messageTable.getText(told(card.problem)), true, {}};
}

} // namespace brovin::companion
