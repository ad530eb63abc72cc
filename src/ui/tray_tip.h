#pragma once

#include "platform/notification_area.h"
#include "text/utf8.h"

#include <string>
#include <string_view>

namespace brovin::ui {

/// What the resting mouse shows over the icon in the notification area: 64 characters of a text.
class TrayTip {
public:
    explicit TrayTip(platform::NotificationArea& tray) : tray_(tray) {}

    void show(std::string_view text) {
        keep(text);
        tray_.setTip(tip_);
    }
    /// Adds the icon with this tip. False: this desktop has no place for it.
    bool addIcon(std::string_view text) {
        keep(text);
        return tray_.add(tip_);
    }
    /// Adds the icon again as it was, for a panel that was started anew; else nothing changes.
    void addIconAgain() { tray_.add(tip_); }

private:
    void keep(std::string_view text) {
        constexpr std::size_t kMost = 64;
        tip_ = text::firstCharacters(text, kMost);
    }

    platform::NotificationArea& tray_;
    std::string tip_;
};

} // namespace brovin::ui
