#pragma once

#include "character/character_data.h"
#include "character/load_error.h"

#include <functional>

namespace brovin::desktop {

/// Carries out `load` in a thread of its own and waits for it. While it takes longer than a moment the
/// windows go on to repaint and timers run; what the user does waits.
[[nodiscard]] character::LoadResult<character::CharacterData>
loadPatiently(const std::function<character::LoadResult<character::CharacterData>()>& load);

} // namespace brovin::desktop
