#pragma once

#include "character/character_data.h"
#include "character/stage/balloon_pacing.h"
#include "character/stage/balloon_view.h"
#include "character/stage/event_list.h"
#include "character/stage/moment.h"

#include <cstddef>
#include <optional>
#include <string>

namespace brovin::character {

/// The word balloon of a character, from its opening to its disappearance.
class Balloon {
public:
    /// `settings` nullopt: the character has none, and everything here does nothing.
    Balloon(BalloonView& view, std::optional<BalloonSettings> settings, EventList& events)
        : view_(view), settings_(std::move(settings)), events_(events) {}

    [[nodiscard]] bool available() const { return settings_.has_value(); }

    /// A statement begins: appears with the text up to the end of its first word, a byte of it, since the
    /// voice is some time about beginning and nobody is to see an empty balloon meanwhile. It must not be on
    /// the screen.
    void open(std::string text, std::size_t firstWordEnd);

    /// The voice has come to a byte of the text.
    void reveal(std::size_t reached);

    /// All has been said: shows everything, and with auto-hide disappears some time later.
    void finish(Moment now);

    /// Disappears at once.
    void hide();

    Wake advance(Moment now);

private:
    void show(BalloonPage page);

    BalloonView& view_;
    std::optional<BalloonSettings> settings_;
    EventList& events_;
    std::optional<BalloonPacing> pacing_; ///< while it is on the screen
    BalloonPage page_;
    Wake hideAt_;
};

} // namespace brovin::character
