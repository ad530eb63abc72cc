#pragma once

#include "character/stage/event.h"
#include "platform/character_service.h"

#include <QTimer>

#include <deque>
#include <functional>
#include <string>

namespace brovin::desktop {

/// Tells the program what the user does with its characters: one event at a time, from the event loop, and
/// none while the program is busy or has not come back from the event before.
class EventDelivery {
public:
    explicit EventDelivery(std::function<bool()> busy);

    void setEvents(platform::CharacterEvents events) { events_ = std::move(events); }

    using Telling = std::function<void(const platform::CharacterEvents&)>;

    void add(const std::string& id, character::Event event);
    /// Something that happens beside the stage; without an id, beside all characters.
    void add(const std::string& id, Telling tell);
    /// There is no such character any more, and nothing to be told of it.
    void forget(const std::string& id);

private:
    struct Waiting {
        std::string id;
        Telling tell;
    };

    void deliver();

    std::function<bool()> busy_;
    platform::CharacterEvents events_;
    std::deque<Waiting> waiting_;
    bool delivering_ = false;
    QTimer timer_;
};

} // namespace brovin::desktop
