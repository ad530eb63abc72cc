#pragma once

#include "platform/character_service.h"

#include <functional>
#include <optional>

namespace brovin::platform {

/// What the user is at, as far as the desktop tells; each says no where it does not.
class Surroundings {
public:
    virtual ~Surroundings() = default;

    /// The session is locked, or a screen saver hides it.
    [[nodiscard]] virtual bool locked() const = 0;
    /// The user has asked the desktop for no notifications.
    [[nodiscard]] virtual bool doNotDisturb() const = 0;
    /// Where the active window is while it has a screen for itself; nullopt: it has not.
    [[nodiscard]] virtual std::optional<Area> fullScreen() const = 0;

    /// The user has asked the desktop for as little movement as possible.
    [[nodiscard]] virtual bool lessMotion() const = 0;

    /// `changed` is called after each change of any of them, at any time.
    virtual void setChanged(std::function<void()> changed) = 0;
};

} // namespace brovin::platform
