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
    /// In two lines; of the second one the middle gives way.
    void show(std::string_view text, std::string_view below) {
        const std::size_t used = text::characterCount(text) + 1;
        if (used + kLeastBelow > kMost)
            show(text);
        else
            show(std::string(text) + "\n" + text::cutInTheMiddle(below, kMost - used));
    }
    /// Adds the icon with this tip. False: this desktop has no place for it.
    bool addIcon(std::string_view text) {
        keep(text);
        return tray_.add(tip_);
    }
    /// Adds the icon again as it was, for a panel that was started anew; else nothing changes. False: this
    /// desktop has no place for it.
    bool addIconAgain() { return tray_.add(tip_); }

private:
    static constexpr std::size_t kMost = 64;
    static constexpr std::size_t kLeastBelow = 8; ///< fewer characters of a path tell nothing

    void keep(std::string_view text) { tip_ = text::firstCharacters(text, kMost); }

    platform::NotificationArea& tray_;
    std::string tip_;
};

} // namespace brovin::ui
