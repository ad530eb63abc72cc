#pragma once

#include "character/stage/event_list.h"
#include "character/stage/surface.h"

namespace brovin::character {

/// The nearest place whose coordinates have 16 bits; the character is at no other.
[[nodiscard]] Place nearestAllowed(Place place);

/// Where the character is, and whether it is to be seen.
class Presence {
public:
    Presence(Surface& surface, EventList& events) : surface_(surface), events_(events) {}

    [[nodiscard]] bool visible() const { return visible_; }
    void appear(VisibilityCause cause);
    void disappear(VisibilityCause cause);
    [[nodiscard]] VisibilityCause visibilityCause() const { return visibilityCause_; }

    [[nodiscard]] Place place() const { return place_; }
    /// The way from the middle of a frame of this size to a place, in the frame's pixels.
    [[nodiscard]] Place wayTo(Place target, int width, int height) const;
    /// Moves without telling the program, as on the way to somewhere.
    void put(Place place);
    /// Tells the program that the character has moved.
    void reportMove(MoveCause cause);
    [[nodiscard]] MoveCause moveCause() const { return moveCause_; }

    /// The user holds the character. Where it disappears meanwhile, he holds nothing any more.
    void setDragged(bool dragged) { dragged_ = dragged; }
    [[nodiscard]] bool dragged() const { return dragged_; }

private:
    Surface& surface_;
    EventList& events_;
    bool visible_ = false;
    bool dragged_ = false;
    Place place_;
    VisibilityCause visibilityCause_ = VisibilityCause::NeverShown;
    MoveCause moveCause_ = MoveCause::NeverMoved;
};

} // namespace brovin::character
