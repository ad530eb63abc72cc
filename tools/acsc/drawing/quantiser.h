#pragma once

#include "acsc/drawing/perceived_colour.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace brovin::acsc {

/// How many pixels have a colour 0xFFRRGGBB.
using ColourCounts = std::map<std::uint32_t, std::uint64_t>;

/// At most `most` colours that, together with the `fixed` ones, stand for all that were counted as well as
/// the eye can tell: median cut, then k-means around the fixed ones. The same for the same counts.
[[nodiscard]] std::vector<std::uint32_t>
findColours(const ColourCounts& counts, const std::vector<std::uint32_t>& fixed, std::size_t most);

} // namespace brovin::acsc
