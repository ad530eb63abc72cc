#pragma once

#include "desktop/x11/x11_watch.h"
#include "platform/character_service.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace brovin::desktop {

/// Watches whether the active window has a screen for itself: Extended Window Manager Hints,
/// _NET_ACTIVE_WINDOW and _NET_WM_STATE_FULLSCREEN. On a desktop without X11 none ever has.
class FullScreenWatch final : public X11Watch {
public:
    FullScreenWatch();

    std::function<void()> changed;

    /// Where that window is; nullopt: there is none.
    [[nodiscard]] const std::optional<platform::Area>& place() const { return place_; }

private:
    using Window = std::uint32_t;
    using Atom = std::uint32_t;

    void hear(const xcb_generic_event_t& event, std::uint8_t type) override;
    void look();
    void follow(Window window);
    void tellOfItsStates(Window window, bool wanted);
    [[nodiscard]] Window activeWindow() const;
    [[nodiscard]] bool isFullScreen(Window window) const;
    [[nodiscard]] std::optional<platform::Area> placeOf(Window window) const;

    Window root_ = 0;
    Window active_ = 0; ///< 0: none
    Atom activeWindowAtom_ = 0;
    Atom stateAtom_ = 0;
    Atom fullScreenAtom_ = 0;
    std::optional<platform::Area> place_;
};

} // namespace brovin::desktop
