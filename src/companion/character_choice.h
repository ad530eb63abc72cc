#pragma once

#include "language/language_tables.h"
#include "platform/character_gallery.h"
#include "platform/surroundings.h"
#include "ui/pages/character_page.h"

#include <string>

namespace brovin::companion {

/// What the list of characters shows of each: its picture and its author's line, or why it cannot be had.
class CharacterChoice {
public:
    struct Needs {
        ui::CharacterPage& page;
        const language::LanguageTables& tables;
        platform::CharacterGallery* gallery;        ///< null: the list has names alone
        const platform::Surroundings* surroundings; ///< null: nothing is known of them
    };
    explicit CharacterChoice(const Needs& needs);
    CharacterChoice(const CharacterChoice&) = delete;
    CharacterChoice& operator=(const CharacterChoice&) = delete;

private:
    [[nodiscard]] ui::Gallery::Card card(int index) const;
    [[nodiscard]] std::string fileOf(int index) const;

    Needs needs_;
};

} // namespace brovin::companion
