#pragma once

#include "cleaner/speech.h"
#include "platform/random.h"

namespace brovin::app {

/// The picture on the last page, which answers when it is poked.
class Mascot {
public:
    Mascot(cleaner::Speech speech, platform::Random& random) : speech_(speech), random_(random) {}

    void imgBrovin_Click();

private:
    cleaner::Speech speech_;
    platform::Random& random_;
};

} // namespace brovin::app
