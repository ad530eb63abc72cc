#pragma once

#include "ui/control.h"

#include <string>

namespace brovin::ui {

enum class WindowState { Normal, Minimized };

/// The window itself: its title is the caption. Hidden until the program shows it.
class Window : public Control {
public:
    Window(Form& form, std::string name) : Control(form, std::move(name)) { setVisible(false); }

    /// The window was minimised or brought back.
    Event<> resize;
    /// Somebody wants the window gone: its close box.
    Event<> close;
    /// The mouse moves over the window's background.
    Event<> mouseMove;

    [[nodiscard]] WindowState state() const { return state_; }
    /// Fires the resize when the state becomes another one.
    void setState(WindowState state) {
        if (change(state_, state))
            resize();
    }

private:
    WindowState state_ = WindowState::Normal;
};

} // namespace brovin::ui
