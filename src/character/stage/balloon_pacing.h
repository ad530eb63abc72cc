#pragma once

#include "character/character_data.h"
#include "character/stage/balloon_view.h"
#include "character/stage/line_breaker.h"
#include "character/stage/moment.h"

#include <cstddef>
#include <string>
#include <vector>

namespace brovin::character {

/// What the balloon shows of a text while it is being spoken.
class BalloonPacing {
public:
    struct Space {
        int width = 0;     ///< of a line, pixels
        int mostLines = 1; ///< that a balloon sized to its text may have
    };
    BalloonPacing(std::string text, const BalloonSettings& settings, Space space, const MeasureText& measure);

    /// What is shown when the voice has come to byte `reached` of the text. With auto-pace the text up to
    /// there, else all of it; what does not fit scrolls up, so that the word being spoken is in sight.
    [[nodiscard]] BalloonPage page(std::size_t reached) const;

    /// The whole text, scrolled to its end.
    [[nodiscard]] BalloonPage lastPage() const { return page(text_.size()); }

    /// How long a balloon with auto-hide stays when all has been said.
    [[nodiscard]] Milliseconds hideDelay() const;

private:
    std::string text_;
    std::vector<TextLine> lines_;
    bool autoPace_;
    int width_;
    std::size_t height_;
};

} // namespace brovin::character
