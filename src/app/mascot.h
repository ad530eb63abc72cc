#pragma once

#include "companion/speech.h"
#include "platform/random.h"

namespace brovin::app {

/// The picture on the last page, which answers when it is poked.
class Mascot {
public:
    Mascot(companion::Speech speech, platform::Random& random) : speech_(speech), random_(random) {}

    void imgBrovin_Click();

private:
    companion::Speech speech_;
    platform::Random& random_;
};

} // namespace brovin::app
