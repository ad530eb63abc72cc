#include "app/mascot.h"

#include "platform/random.h"

#include <iterator>

namespace brovin::app {

void Mascot::imgBrovin_Click() {
    using enum language::Message;
    constexpr language::Message kAnswers[] = {MascotPoked1, MascotPoked2, MascotPoked3,
                                              MascotPoked4, MascotPoked5, MascotPoked6};
    const language::Message answer = kAnswers[platform::drawBelow(random_, std::size(kAnswers))];
    speech_.announcer.agentMsgBox(speech_.messages.getMessage(answer, {speech_.phrases.getDude()}),
                                  platform::box::kInformation, "", companion::ForceBox::No);
}

} // namespace brovin::app
