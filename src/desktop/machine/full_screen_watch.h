#pragma once

#include "platform/character_service.h"

#include <QAbstractNativeEventFilter>

#include <cstdint>
#include <functional>
#include <optional>

struct xcb_connection_t;

namespace brovin::desktop {

/// Watches whether the active window has a screen for itself: Extended Window Manager Hints,
/// _NET_ACTIVE_WINDOW and _NET_WM_STATE_FULLSCREEN. On a desktop without X11 none ever has.
class FullScreenWatch final : public QAbstractNativeEventFilter {
public:
    FullScreenWatch();
    ~FullScreenWatch() override;
    FullScreenWatch(const FullScreenWatch&) = delete;
    FullScreenWatch& operator=(const FullScreenWatch&) = delete;

    std::function<void()> changed;

    /// Where that window is; nullopt: there is none.
    [[nodiscard]] const std::optional<platform::Area>& place() const { return place_; }

    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;

private:
    using Window = std::uint32_t;
    using Atom = std::uint32_t;

    void look();
    void follow(Window window);
    void tellOfItsStates(Window window, bool wanted);
    [[nodiscard]] Window activeWindow() const;
    [[nodiscard]] bool isFullScreen(Window window) const;
    [[nodiscard]] std::optional<platform::Area> placeOf(Window window) const;

    xcb_connection_t* server_ = nullptr; ///< null: no X11
    Window root_ = 0;
    Window active_ = 0; ///< 0: none
    Atom activeWindowAtom_ = 0;
    Atom stateAtom_ = 0;
    Atom fullScreenAtom_ = 0;
    std::optional<platform::Area> place_;
};

} // namespace brovin::desktop
