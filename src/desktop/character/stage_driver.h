#pragma once

#include "character/stage/stage.h"

#include <QTimer>

#include <functional>

namespace brovin::desktop {

/// Lets the time of a stage pass. Nothing wakes up while there is nothing due, and a character whose pictures
/// are hard to make shows fewer of them.
class StageDriver {
public:
    /// `tell` gets the events, from the event loop and never from within a call of the stage; it must leave
    /// the stage alone.
    StageDriver(character::Stage& stage, std::function<void(character::Event)> tell);

    /// What the stage is to call when it asks for attention.
    void callSoon();

    /// While it is paused the stage has its attention, but no time passes for it.
    void setPaused(bool paused);

private:
    void call();

    character::Stage& stage_;
    std::function<void(character::Event)> tell_;
    QTimer timer_;
    character::Moment rested_{}; ///< not called before, so that others have their time
    bool paused_ = false;
};

} // namespace brovin::desktop
