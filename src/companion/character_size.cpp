#include "companion/character_size.h"

#include "companion/standing.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace brovin::companion {
namespace {

/// By the entries of the list; the first is the screen's.
constexpr std::array kPercents = {0, 100, 150, 200, 300};

} // namespace

void CharacterSize::nameSizes() {
    std::vector<ui::ComboBox::Item> items{{needs_.messages.getText("sizeByScreen")}};
    for (std::size_t i = 1; i < kPercents.size(); ++i)
        items.push_back({needs_.messages.getText("menuPercent", {std::to_string(kPercents[i])})});
    const int chosen = std::max(needs_.page.cmbSize.selected(), 0);
    needs_.page.cmbSize.setItems(std::move(items));
    needs_.page.cmbSize.place(chosen);
}

void CharacterSize::cmbSize_Click() {
    needs_.service.setSize(kPercents[static_cast<std::size_t>(needs_.page.cmbSize.selected())]);
    const platform::Character* const character = needs_.actor.character;
    const Screens screens = needs_.service.screens();
    if (needs_.life.loading || character == nullptr || screens.empty())
        return;
    const platform::Area standing = onOneScreen(broughtBack(character->place.area(), screens), screens);
    character->place.put(standing.left, standing.top);
    needs_.settings.write(settings::setting::kAgentX, std::to_string(standing.left));
    needs_.settings.write(settings::setting::kAgentY, std::to_string(standing.top));
}

} // namespace brovin::companion
