#pragma once

#include "desktop/machine/full_screen_watch.h"
#include "desktop/machine/motion_wish.h"
#include "desktop/machine/session_state.h"
#include "platform/surroundings.h"

#include <utility>

namespace brovin::desktop {

/// What the user is at, by the window manager and by the services of the session.
class DesktopSurroundings final : public platform::Surroundings {
public:
    [[nodiscard]] bool locked() const override { return session_.locked(); }
    [[nodiscard]] bool doNotDisturb() const override { return session_.doNotDisturb(); }
    [[nodiscard]] std::optional<platform::Area> fullScreen() const override { return windows_.place(); }
    [[nodiscard]] bool lessMotion() const override { return motion_.less(); }
    void setChanged(std::function<void()> changed) override {
        session_.changed = changed;
        motion_.changed = changed;
        windows_.changed = std::move(changed);
    }

private:
    SessionState session_;
    FullScreenWatch windows_;
    MotionWish motion_;
};

} // namespace brovin::desktop
