#pragma once

#include "character/stage/attention.h"
#include "character/stage/event.h"

#include <deque>
#include <optional>

namespace brovin::character {

/// The events that the program has yet to hear of. It fetches them one by one, outside of every call that
/// caused them, so that a handler may ask for anything, even for the character's end.
class EventList {
public:
    explicit EventList(Attention& attention) : attention_(attention) {}

    void add(Event event);

    /// The oldest, taken out; nullopt: there is none. Events of requests that nobody keeps are left out.
    [[nodiscard]] std::optional<Event> take();

private:
    Attention& attention_;
    std::deque<Event> waiting_;
};

} // namespace brovin::character
