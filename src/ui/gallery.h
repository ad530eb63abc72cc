#pragma once

#include "platform/character_gallery.h"
#include "ui/controls.h"

#include <functional>
#include <memory>
#include <string>

namespace brovin::ui {

/// A list whose entries are pictures as well.
class Gallery : public ListBox {
public:
    using ListBox::ListBox;

    struct Card {
        std::string note; ///< one line; may be empty
        bool broken = false;
        platform::Picture picture;
    };
    /// Of an entry. It takes some milliseconds, so a shell asks for what is in sight, and once for each
    /// revision of the cards. Empty: entries are texts alone.
    std::function<Card(int index)> card;
    /// The picture that moves while the mouse is over the entry; null: it does not. May be empty.
    std::function<std::unique_ptr<platform::CharacterPortrait>(int index)> portrait;

    /// Grows when cards may have changed and the items have not.
    [[nodiscard]] unsigned long cardRevision() const { return cardRevision_; }
    void renewCards() { change(cardRevision_, cardRevision_ + 1); }

private:
    unsigned long cardRevision_ = 0;
};

} // namespace brovin::ui
