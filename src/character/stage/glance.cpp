#include "character/stage/glance.h"

#include "character/name_index.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

namespace brovin::character {
namespace {

/// What is left on the screen is at the right hand of a character that faces the user.
constexpr const char* kLooks[3][3] = {{"LookUpRight", "LookUp", "LookUpLeft"},
                                      {"LookRight", "", "LookLeft"},
                                      {"LookDownRight", "LookDown", "LookDownLeft"}};

/// 0, 1 or 2: before, about at, or behind the middle of an axis, where the other axis has the way `across`.
std::size_t third(int way, int across) {
    if (std::abs(way) * 5 < std::abs(across) * 2)
        return 1;
    return way < 0 ? 0 : 2;
}

} // namespace

Glance::Glance(const CharacterData& character) : width_(character.width), height_(character.height) {
    const NameIndex names(character.animations);
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            if (const auto found = names.find(kLooks[row][column]);
                found && !character.animations[*found].frames.empty())
                looks_[row][column] = found;
}

std::optional<std::uint32_t> Glance::towards(Place way) const {
    const auto [x, y] = way;
    if (std::abs(x) < width_ / 4 && std::abs(y) < height_ / 4)
        return std::nullopt;
    if (const auto slanting = looks_[third(y, x)][third(x, y)])
        return slanting;
    return std::abs(x) >= std::abs(y) ? looks_[1][x < 0 ? 0 : 2] : looks_[y < 0 ? 0 : 2][1];
}

} // namespace brovin::character
