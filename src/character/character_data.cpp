#include "character/character_data.h"

#include <algorithm>

namespace brovin::character {

const LocalizedInfo* chooseInfo(const std::vector<LocalizedInfo>& info, LanguageId language) {
    constexpr LanguageId kPrimaryLanguage = 0x03FF;
    constexpr LanguageId kEnglishUs = 0x0409;
    const auto first = [&info](auto&& fits) -> const LocalizedInfo* {
        const auto found = std::find_if(info.begin(), info.end(), fits);
        return found == info.end() ? nullptr : &*found;
    };
    if (const auto* same = first([&](const LocalizedInfo& entry) { return entry.language == language; }))
        return same;
    const auto related = [&](const LocalizedInfo& entry) {
        return (entry.language & kPrimaryLanguage) == (language & kPrimaryLanguage);
    };
    if (const auto* akin = first(related))
        return akin;
    if (const auto* english = first([](const LocalizedInfo& entry) { return entry.language == kEnglishUs; }))
        return english;
    return info.empty() ? nullptr : &info.front();
}

} // namespace brovin::character
