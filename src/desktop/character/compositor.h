#pragma once

#include "desktop/x11/x11_watch.h"

#include <QTimer>

#include <cstdint>
#include <functional>

namespace brovin::desktop {

/// Whether the desktop blends windows with what is below them. Where it does not, half transparent pixels
/// come out dark. One that begins to blend is believed some seconds later, when it shows something. Told by
/// the X server when it changes, so that nobody need ask for each picture; elsewhere than on X11 all desktops
/// blend.
class Compositor final : public X11Watch {
public:
    /// `changed` is called behind each change.
    explicit Compositor(std::function<void()> changed);

    [[nodiscard]] bool blends() const { return blends_; }

private:
    void hear(const xcb_generic_event_t& event, std::uint8_t type) override;

    std::function<void()> changed_;
    std::uint32_t selection_ = 0; ///< whose owner the compositor is
    std::uint8_t event_ = 0;      ///< that tells of another owner; 0: nobody does
    bool blends_ = true;
    QTimer begins_;
};

} // namespace brovin::desktop
