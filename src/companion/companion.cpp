#include "companion/companion.h"

namespace brovin::companion {

using platform::CharacterClick;

Companion::Companion(const CharacterHost::Pages& pages, const Needs& needs)
    : host({pages, needs.settings, needs.tables, needs.teller.actor, needs.teller.phrases, needs.service,
            needs.letters, needs.random}),
      size({pages.character, pages.life, needs.settings, needs.tables.messageTable, needs.teller.actor,
            needs.service}),
      commands({pages.speech, pages.reminders, needs.tables, needs.teller.actor, needs.teller.phrases,
                needs.teller.announcer, needs.random}),
      quiet({pages.speech, needs.trayMenu, needs.settings, needs.teller.actor, needs.service,
             needs.surroundings, needs.clock}),
      news({needs.teller.announcer, needs.teller.actor, needs.tables.messageTable, needs.clock,
            needs.regional}),
      choice_({pages.character, needs.tables, needs.gallery, needs.surroundings}),
      menu_({pages.speech, needs.trayMenu, quiet, needs.tables.messageTable, needs.service}),
      service_(needs.service), surroundings_(needs.surroundings) {
    host.loaded = [this] { quiet.review(); }; // which shows the menu, too
    quiet.changed = [this] { menu_.show(); };
    if (surroundings_ != nullptr)
        surroundings_->setChanged([this] { quiet.review(); });
    pages.speech.chkReadOut.click = [this] { quiet.review(); };
    pages.character.lblNoAgent.setVisible(!service_.available());
    tie(pages.character);
    tie(pages.speech, pages.reminders.cmdSpeak);
    service_.setEvents(
        {.click = [this](const CharacterClick& click) { host.Agent1_Click(click); },
         .dragStart = [this](const CharacterClick& /*click*/) { host.Agent1_DragStart(); },
         .dragComplete = [this](const CharacterClick& /*click*/) { host.Agent1_DragComplete(); },
         .hide = [this](const std::string& /*id*/, int cause) { host.Agent1_Hide(cause); },
         .nextScreen = [this](const std::string& /*id*/) { host.sendToNextScreen(); },
         .screensChanged = [this] { host.screensChanged(); }});
}

/// The machine and its characters outlive the program.
Companion::~Companion() {
    if (surroundings_ != nullptr)
        surroundings_->setChanged({});
    service_.setEvents({});
    service_.setMenu({});
}

void Companion::tie(ui::CharacterPage& page) {
    page.chkAgent.click = [this] { host.chkAgent_Click(); };
    page.cmbSize.click = [this] { size.cmbSize_Click(); };
    page.lstChars.click = [this] { host.lstChars_Click(); };
    page.cmdCheckChars.click = [this] { host.cmdCheckChars_Click(); };
}

void Companion::tie(ui::SpeechPage& page, ui::Button& cmdSpeak) {
    page.cmdSay.click = [this] { commands.cmdSay_Click(); };
    page.cmdDo.click = [this] { commands.cmdDo_Click(); };
    page.cmdRepeat.click = [this] { commands.cmdRepeat_Click(); };
    page.cmdStop.click = [this] { commands.cmdStop_Click(); };
    page.lstAnims.click = [this] { commands.lstAnims_Click(); };
    page.lstAnims.gotFocus = [this] { commands.lstAnims_GotFocus(); };
    page.txtSay.gotFocus = [this] { commands.txtSay_GotFocus(); };
    cmdSpeak.click = [this] { commands.cmdSpeak_Click(); };
}

} // namespace brovin::companion
