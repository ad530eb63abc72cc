#pragma once

#include "desktop/x11/x11_watch.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string_view>

namespace brovin::desktop {

/// The whole number that stands under a name in a desktop's shared settings: XSETTINGS, "Format of the
/// _XSETTINGS_SETTINGS property". nullopt: there is none, or the bytes are damaged.
[[nodiscard]] std::optional<std::int32_t> numberInXSettings(std::span<const std::uint8_t> settings,
                                                            std::string_view name);

/// The settings that the desktops of X11 share with all programs. On a desktop without X11 there are none.
class XSettings final : public X11Watch {
public:
    XSettings();

    /// Any of them has changed, or may have.
    std::function<void()> changed;

    /// nullopt: not set.
    [[nodiscard]] std::optional<std::int32_t> number(std::string_view name) const;

private:
    void hear(const xcb_generic_event_t& event, std::uint8_t type) override;
    void follow();

    std::uint32_t root_ = 0;
    std::uint32_t owner_ = 0; ///< the window that has them; 0: nobody
    std::uint32_t ownerAtom_ = 0;
    std::uint32_t settingsAtom_ = 0;
    std::uint32_t managerAtom_ = 0;
};

} // namespace brovin::desktop
