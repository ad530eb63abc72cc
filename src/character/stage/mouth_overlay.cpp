#include "character/stage/mouth_overlay.h"

#include <algorithm>
#include <array>

namespace brovin::character {
namespace {

using enum Mouth;

/// By mouth position: itself and then the other open ones, the most similar first.
constexpr std::array<std::array<Mouth, kOpenMouths>, kOpenMouths> kNearest = {{
    {OpenWide1, OpenWide2, OpenNarrow, OpenMedium, OpenWide3, OpenWide4},
    {OpenWide2, OpenWide1, OpenWide3, OpenMedium, OpenNarrow, OpenWide4},
    {OpenWide3, OpenWide2, OpenWide4, OpenMedium, OpenWide1, OpenNarrow},
    {OpenWide4, OpenWide3, OpenMedium, OpenWide2, OpenWide1, OpenNarrow},
    {OpenMedium, OpenWide3, OpenWide4, OpenNarrow, OpenWide2, OpenWide1},
    {OpenNarrow, OpenMedium, OpenWide1, OpenWide2, OpenWide3, OpenWide4},
}};

const MouthOverlay* find(const Frame& frame, Mouth mouth) {
    const auto found = std::find_if(frame.mouths.begin(), frame.mouths.end(),
                                    [mouth](const MouthOverlay& overlay) { return overlay.mouth == mouth; });
    return found == frame.mouths.end() ? nullptr : &*found;
}

} // namespace

const MouthOverlay* chooseOverlay(const Frame& frame, std::optional<Mouth> mouth) {
    if (!mouth || frame.mouths.empty())
        return nullptr;
    if (*mouth == Closed)
        return find(frame, Closed);
    for (const Mouth similar : kNearest[static_cast<std::size_t>(*mouth) - 1])
        if (const MouthOverlay* const overlay = find(frame, similar))
            return overlay;
    return nullptr;
}

} // namespace brovin::character
