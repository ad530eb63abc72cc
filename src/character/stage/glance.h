#pragma once

#include "character/character_data.h"
#include "character/stage/surface.h"

#include <array>
#include <cstdint>
#include <optional>

namespace brovin::character {

/// The character's animations of looking somewhere, found by their standard names.
class Glance {
public:
    explicit Glance(const CharacterData& character);

    /// The animation that looks this way from the frame's middle, in the frame's pixels. nullopt: what is
    /// there is before the character's nose, or there is no such animation.
    [[nodiscard]] std::optional<std::uint32_t> towards(Place way) const;
    /// The animation that looks at the ground; nullopt: there is none.
    [[nodiscard]] std::optional<std::uint32_t> down() const { return looks_[2][1]; }

private:
    int width_;
    int height_;
    /// Rows up, level, down; columns left on the screen, straight, right on the screen.
    std::array<std::array<std::optional<std::uint32_t>, 3>, 3> looks_;
};

} // namespace brovin::character
