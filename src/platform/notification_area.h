#pragma once

#include <string>

namespace brovin::platform {

/// The program's icon in the notification area. The mouse events on it arrive at the options window.
class NotificationArea {
public:
    virtual ~NotificationArea() = default;

    /// Whether this desktop has such an area at this moment.
    [[nodiscard]] virtual bool available() const = 0;

    /// Shows the icon; where it is shown already, nothing happens. False: this desktop has no such area.
    virtual bool add(const std::string& tip) = 0;

    /// Replaces the text that a resting mouse shows.
    virtual void setTip(const std::string& tip) = 0;

    virtual void remove() = 0;
};

} // namespace brovin::platform
