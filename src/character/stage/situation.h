#pragma once

#include "character/character_data.h"
#include "platform/random.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace brovin::character {

/// What a character may have animations for that no program asks for by name. Left and right are its own.
enum class Situation : std::uint8_t {
    Showing,
    Hiding,
    Speaking,
    MovingUp,
    MovingDown,
    MovingLeft,
    MovingRight,
    GesturingUp,
    GesturingDown,
    GesturingLeft,
    GesturingRight,
    IdlingLevel1,
    IdlingLevel2,
    IdlingLevel3,
};
inline constexpr std::size_t kSituationCount = 14;

/// The character's animations by situation: those that its file assigns, or else the standard ones by name.
/// Ones without frames are left out.
class SituationTable {
public:
    explicit SituationTable(const CharacterData& character);

    [[nodiscard]] const std::vector<std::uint32_t>& animations(Situation situation) const {
        return table_[static_cast<std::size_t>(situation)];
    }

    /// One of them at random; nullopt: there is none.
    [[nodiscard]] std::optional<std::uint32_t> pick(Situation situation, platform::Random& chance) const;

private:
    std::array<std::vector<std::uint32_t>, kSituationCount> table_;
};

} // namespace brovin::character
