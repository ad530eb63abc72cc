#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brovin::language {

/// The names of the controls of the options window that a language file captions, in the order of the form.
[[nodiscard]] std::vector<std::string> captionedControls();

/// Keys of the captions that a user has before him at one time, so that none may have another's Alt letter:
/// each page with what stands around it, the icon's menu, the download window.
[[nodiscard]] std::vector<std::vector<std::string>> captionsSeenTogether();

struct Caption {
    std::string_view key;
    std::string_view text;
};
/// The keys of captions with the Alt letter of one before them, each with the key of that one.
[[nodiscard]] std::vector<std::pair<std::string_view, std::string_view>>
sharedLetters(const std::vector<Caption>& captions);

} // namespace brovin::language
