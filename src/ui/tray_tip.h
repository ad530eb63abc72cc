#pragma once

#include "text/utf8.h"

#include <string>
#include <string_view>

namespace brovin::ui {

/// What of a text fits the tip of the icon in the notification area: 64 characters.
[[nodiscard]] inline std::string trayTip(std::string_view text) {
    constexpr std::size_t kMost = 64;
    return std::string(text::firstCharacters(text, kMost));
}

} // namespace brovin::ui
