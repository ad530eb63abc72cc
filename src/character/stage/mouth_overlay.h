#pragma once

#include "character/character_data.h"

#include <cstddef>
#include <optional>

namespace brovin::character {

/// All but the closed one.
inline constexpr std::size_t kOpenMouths = kMouthCount - 1;

/// The overlay that gives a frame this mouth, or the nearest open one that the frame has. Null: nothing is to
/// be laid over the frame, which for a closed mouth without an overlay is the right picture. nullopt: the
/// character does not speak.
[[nodiscard]] const MouthOverlay* chooseOverlay(const Frame& frame, std::optional<Mouth> mouth);

} // namespace brovin::character
