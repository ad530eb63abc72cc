#include "language/alt_letters.h"

#include "language/messages.h"
#include "text/utf8.h"
#include "ui/frm_options.h"

#include <algorithm>
#include <map>

namespace brovin::language {
namespace {

/// The first control of each page in the order of the form, and of the menu behind the last page.
constexpr std::string_view kStarts[] = {"lblFolders", "lblFiles", "frmDeleting", "chkAgent", "lblSay",
                                        "chkBackup",  "lblLang",  "imgBrovin",   "mHelp"};

/// The title of the window is the statistics, tabs have a key together, and nobody reads a frame or a timer.
bool isCaptioned(std::string_view name) {
    constexpr std::string_view kNot[] = {"frmOptions", "Timer1", "lineTimer", "Picture1", "tabFrame"};
    return std::ranges::find(kNot, name) == std::end(kNot) && !name.starts_with("picTab") &&
           !name.starts_with("imgTabs") && !name.starts_with("lblTabs");
}

/// A letter of the Latin, the Western European or the Russian alphabet, capital or small, as a small one.
char32_t small(char32_t letter) {
    const bool capital = (letter >= U'A' && letter <= U'Z') || (letter >= 0xC0 && letter <= 0xDE) ||
                         (letter >= 0x410 && letter <= 0x42F);
    return capital ? letter + 0x20 : letter;
}

/// 0: none.
char32_t altLetter(std::string_view caption) {
    for (std::size_t at = caption.find('&'); at != std::string_view::npos && at + 1 < caption.size();
         at = caption.find('&', at + 2))
        if (caption[at + 1] != '&') // which together are the sign itself
            return small(text::decodeUtf8(caption.substr(at + 1)).codePoint);
    return 0;
}

} // namespace

std::vector<std::string> captionedControls() {
    std::vector<std::string> names;
    const ui::FrmOptions form;
    for (const ui::Control* control : form.controls())
        if (isCaptioned(control->name()))
            names.push_back(control->name());
    return names;
}

std::vector<std::vector<std::string>> captionsSeenTogether() {
    std::vector<std::vector<std::string>> pages(1);
    for (const std::string& name : captionedControls()) {
        if (std::ranges::find(kStarts, name) != std::end(kStarts))
            pages.emplace_back();
        pages.back().push_back("lbl" + name);
    }
    const std::vector<std::string> around = pages.front();
    for (std::size_t page = 1; page + 1 < pages.size(); ++page)
        pages[page].insert(pages[page].begin(), around.begin(), around.end());
    // With a character, two messages stand in for labels of the page on speech.
    for (std::vector<std::string> speech : std::vector(pages))
        if (std::ranges::find(speech, "lbllblSay") != speech.end()) {
            std::ranges::replace(speech, "lbllblSay", keyOf(Message::SayLabel));
            std::ranges::replace(speech, "lbllblDo", keyOf(Message::DoLabel));
            pages.push_back(std::move(speech));
        }
    pages.push_back({keyOf(Message::DownloadButton), keyOf(Message::CancelButton)});  // the download window
    pages.push_back({keyOf(Message::DownloadButton), keyOf(Message::InstallButton)}); // and at its end
    return pages;
}

std::vector<std::pair<std::string_view, std::string_view>>
sharedLetters(const std::vector<Caption>& captions) {
    std::vector<std::pair<std::string_view, std::string_view>> shared;
    std::map<char32_t, std::string_view> owners;
    for (const auto& [key, caption] : captions) {
        const char32_t letter = altLetter(caption);
        if (letter == 0)
            continue;
        const auto [owner, first] = owners.try_emplace(letter, key);
        if (!first)
            shared.emplace_back(key, owner->second);
    }
    return shared;
}

} // namespace brovin::language
