#pragma once

#include "character/character_data.h"

#include <cstdint>
#include <optional>

namespace brovin::character {

/// Pixels from the upper left corner of the screen; of the character: its frame's upper left corner.
struct Place {
    int x = 0;
    int y = 0;

    bool operator==(const Place&) const = default;
};

enum class Shown : std::uint8_t { No, Yes };

/// The character's window. Its shape is that of the picture in it, and it lies above all other windows.
class Surface {
public:
    virtual ~Surface() = default;

    /// The picture from here on. A frame without images is fully transparent. `mouth` may be null. Both stay
    /// valid as long as the stage that shows them.
    virtual void showFrame(const Frame& frame, const MouthOverlay* mouth) = 0;

    /// May be off the screen.
    virtual void setPlace(Place place) = 0;

    virtual void setShown(Shown shown) = 0;

    /// Pixels of the screen for one of the frame's.
    [[nodiscard]] virtual double scale() const { return 1; }

    /// Where the mouse pointer is on the screen; nullopt: the desktop does not tell.
    [[nodiscard]] virtual std::optional<Place> pointer() const { return std::nullopt; }

    /// The middle of the window on which the character's feet are; nullopt: they are on none, or the desktop
    /// does not tell.
    [[nodiscard]] virtual std::optional<Place> ground() const { return std::nullopt; }
};

} // namespace brovin::character
