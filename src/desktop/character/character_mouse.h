#pragma once

#include "character/stage/stage.h"

#include <QMouseEvent>
#include <QPoint>

#include <optional>

namespace brovin::desktop {

/// Makes clicks and drags of what the mouse does on a character. A drag is one of the left button, beyond
/// the distance that the desktop sets; what remains below it is a click.
class CharacterMouse {
public:
    explicit CharacterMouse(character::Stage& stage) : stage_(stage) {}

    void press(const QMouseEvent& event);
    /// The second press of a double click comes in the place of a press.
    void pressAgain(const QMouseEvent& event);
    void move(const QMouseEvent& event);

    enum class Released { Nothing, RightClick };
    /// `inside`: the pointer is still on the character.
    Released release(const QMouseEvent& event, bool inside);

    /// The mouse is no longer to be heard, because a box waits for an answer: what is dragged is let go.
    void letGo();
    /// The character has gone from under the pointer.
    void forget() { held_.reset(); }

private:
    struct Held {
        Qt::MouseButton button;
        character::Pointer pointer; ///< at the press; while dragging, the latest
        bool second;                ///< of a double click
        bool dragging;
    };

    character::Stage& stage_;
    std::optional<Held> held_; ///< the button that was pressed first
};

} // namespace brovin::desktop
