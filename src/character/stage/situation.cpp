#include "character/stage/situation.h"

#include "character/letter_case.h"
#include "character/name_index.h"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>

namespace brovin::character {
namespace {

struct Standard {
    std::string_view state; ///< in small letters
    std::initializer_list<std::string_view> animations;
};

const std::array<Standard, kSituationCount> kStandard = {{
    {"showing", {"Show"}},
    {"hiding", {"Hide"}},
    {"speaking", {"RestPose"}},
    {"movingup", {"MoveUp"}},
    {"movingdown", {"MoveDown"}},
    {"movingleft", {"MoveLeft"}},
    {"movingright", {"MoveRight"}},
    {"gesturingup", {"GestureUp"}},
    {"gesturingdown", {"GestureDown"}},
    {"gesturingleft", {"GestureLeft"}},
    {"gesturingright", {"GestureRight"}},
    {"idlinglevel1", {"Blink", "Idle1_1", "Idle1_2"}},
    {"idlinglevel2", {"Blink", "Idle1_1", "Idle1_2", "Idle2_1", "Idle2_2"}},
    {"idlinglevel3", {"Idle3_1", "Idle3_2"}},
}};

/// The place in the table; nullopt: a state of no concern, such as those of voice input.
std::optional<std::size_t> rowOf(std::string_view state) {
    const std::string folded = foldedCase(state);
    const auto* const found = std::find_if(kStandard.begin(), kStandard.end(),
                                           [&folded](const Standard& row) { return row.state == folded; });
    if (found == kStandard.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - kStandard.begin());
}

} // namespace

SituationTable::SituationTable(const CharacterData& character) {
    const auto addPlayable = [&](std::vector<std::uint32_t>& row, std::uint32_t animation) {
        if (!character.animations[animation].frames.empty())
            row.push_back(animation);
    };
    for (const State& state : character.states)
        if (const auto row = rowOf(state.name))
            for (const std::uint32_t animation : state.animations)
                addPlayable(table_[*row], animation);

    const NameIndex names(character.animations);
    for (std::size_t row = 0; row < table_.size(); ++row)
        if (table_[row].empty())
            for (const std::string_view name : kStandard[row].animations)
                if (const auto animation = names.find(name))
                    addPlayable(table_[row], *animation);
}

std::optional<std::uint32_t> SituationTable::pick(Situation situation, platform::Random& chance) const {
    const auto& row = animations(situation);
    if (row.empty())
        return std::nullopt;
    return row[drawBelow(chance, row.size())];
}

} // namespace brovin::character
