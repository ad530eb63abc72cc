#pragma once

#include "character/stage/request.h"
#include "character/stage/surface.h"

#include <cstdint>
#include <memory>
#include <variant>

namespace brovin::character {

enum class VisibilityCause : std::uint8_t {
    NeverShown,
    UserHid, ///< by a menu of the desktop
    UserShowed,
    ProgramHid,
    ProgramShowed,
    OtherProgramHid,
    OtherProgramShowed,
    UserHidByMenu, ///< by the character's own menu
};

enum class MoveCause : std::uint8_t { NeverMoved, User, Program, OtherProgram, Service };

/// What the user does with the mouse, and where.
struct Pointer {
    std::uint16_t button = 1; ///< 1 left, 2 right, 4 middle
    std::uint16_t shift = 0;  ///< 1 Shift, 2 Ctrl, 4 Alt, added up
    Place at;

    bool operator==(const Pointer&) const = default;
};

/// What the program is told.
namespace event {

struct Clicked {
    Pointer pointer;
};
struct DoubleClicked {
    Pointer pointer;
};
struct DragStarted {
    Pointer pointer;
};
struct DragCompleted {
    Pointer pointer;
};
struct Appeared {
    VisibilityCause cause;
};
struct Disappeared {
    VisibilityCause cause;
};
struct Moved {
    Place place;
    MoveCause cause;
};
struct BalloonShown {};
struct BalloonHidden {};
struct BookmarkReached {
    std::int32_t bookmark;
};
struct IdleStarted {};
struct IdleEnded {};
struct RequestStarted {
    std::weak_ptr<const Request> request;
};
struct RequestEnded {
    std::weak_ptr<const Request> request;
};

} // namespace event

using Event = std::variant<event::Clicked, event::DoubleClicked, event::DragStarted, event::DragCompleted,
                           event::Appeared, event::Disappeared, event::Moved, event::BalloonShown,
                           event::BalloonHidden, event::BookmarkReached, event::IdleStarted, event::IdleEnded,
                           event::RequestStarted, event::RequestEnded>;

} // namespace brovin::character
