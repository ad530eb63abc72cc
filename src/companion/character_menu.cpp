#include "companion/character_menu.h"

#include <string>
#include <utility>
#include <vector>

namespace brovin::companion {

using platform::MenuEntry;

void CharacterMenu::show() {
    std::vector<MenuEntry> more{
        {}, // a line
        switchEntry(needs_.tray.mQuiet, Quiet::Switch::UntilSwitchedOff),
        switchEntry(needs_.tray.mQuietHour, Quiet::Switch::ForAnHour),
        switchEntry(needs_.tray.mQuietTomorrow, Quiet::Switch::UntilTomorrow),
        {},
        loudness("menuVoice", needs_.page.chkMuteVoice, needs_.page.sldVoice),
        loudness("menuSounds", needs_.page.chkMuteSounds, needs_.page.sldSounds),
    };
    needs_.service.setMenu({needs_.messages.getText("menuNextScreen"), std::move(more)});
}

MenuEntry CharacterMenu::switchEntry(const ui::CheckBox& box, Quiet::Switch how) const {
    return {.caption = box.caption(),
            .checked = needs_.quiet.chosen() == how,
            .chosen = [&quiet = needs_.quiet, how] { quiet.choose(how); }};
}

/// A loudness that is chosen is meant to be heard.
MenuEntry CharacterMenu::loudness(language::Text caption, ui::CheckBox& mute, ui::Volume& volume) const {
    MenuEntry menu{.caption = needs_.messages.getText(caption)};
    menu.entries.push_back({.caption = mute.caption(), .checked = mute.checked(), .chosen = [&mute] {
                                mute.setValue(mute.checked() ? ui::CheckBox::kOff : ui::CheckBox::kOn);
                            }});
    menu.entries.emplace_back();
    for (const int percent : {100, 75, 50, 25})
        menu.entries.push_back({.caption = needs_.messages.getText("menuPercent", {std::to_string(percent)}),
                                .checked = !mute.checked() && volume.percent() == percent,
                                .chosen = [&mute, &volume, percent] {
                                    mute.setValue(ui::CheckBox::kOff);
                                    volume.setPercent(percent);
                                }});
    return menu;
}

} // namespace brovin::companion
