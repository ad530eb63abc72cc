#pragma once

namespace brovin::platform {

/// Lets pending events of the windows through, so that they repaint and move during a long job.
class EventPump {
public:
    virtual ~EventPump() = default;

    /// May be called as often as one likes: the machine handles events at most every few milliseconds.
    virtual void pump() = 0;
};

} // namespace brovin::platform
