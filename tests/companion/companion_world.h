#pragma once

#include "companion/teller.h"
#include "fakes/fake_machine.h"
#include "ui/frm_options.h"

#include <cstddef>
#include <string>
#include <vector>

namespace brovin::companion {

/// Phrases and messages on a machine in memory, with a character on the screen that does nothing yet. All
/// lists are empty.
struct CompanionWorld : fakes::FakeMachine {
    CompanionWorld() {
        actor.name = "Peedy";
        actor.character = &characters.only.sides;
    }
    void list(language::PhraseList which, const std::string& alternatives) {
        tables.append(which, alternatives);
    }
    [[nodiscard]] const std::vector<std::string>& requests() const { return characters.only.requests; }

    /// A draw that picks number `index` of `count`.
    [[nodiscard]] static double drawOf(std::size_t index, std::size_t count) {
        return (static_cast<double>(index) + 0.5) / static_cast<double>(count);
    }

    ui::FrmOptions form;
    settings::Settings options{settings};
    language::LanguageTables tables;
    Teller teller{{form, options, tables, dialogs, letters, random}};
    Actor& actor = teller.actor;
    PhraseEngine& phrases = teller.phrases;
    Announcer& announcer = teller.announcer;
};

} // namespace brovin::companion
