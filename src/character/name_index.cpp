#include "character/name_index.h"

#include "character/letter_case.h"

namespace brovin::character {

NameIndex::NameIndex(const std::vector<Animation>& animations) {
    for (std::uint32_t i = 0; i < animations.size(); ++i)
        add(animations[i].name, i);
}

bool NameIndex::add(std::string_view name, std::uint32_t place) {
    return !name.empty() && places_.emplace(foldedCase(name), place).second;
}

std::optional<std::uint32_t> NameIndex::find(std::string_view name) const {
    if (name.empty())
        return std::nullopt;
    const auto found = places_.find(foldedCase(name));
    return found == places_.end() ? std::nullopt : std::optional(found->second);
}

} // namespace brovin::character
