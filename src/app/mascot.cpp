#include "app/mascot.h"

#include "platform/random.h"

namespace brovin::app {

void Mascot::imgBrovin_Click() {
    constexpr int kFirst = 44;
    constexpr std::size_t kAnswers = 6;
    const int number = kFirst + static_cast<int>(platform::drawBelow(random_, kAnswers));
    speech_.announcer.agentMsgBox(speech_.messages.getMessage(number, {speech_.phrases.getDude()}),
                                  platform::box::kInformation, "", companion::ForceBox::No);
}

} // namespace brovin::app
