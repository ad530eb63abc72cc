#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brovin::character {

/// What stands in the word balloon at one moment.
struct BalloonPage {
    std::vector<std::string> lines; ///< UTF-8, plain text; at most `height`
    int width = 0;                  ///< of the text, pixels
    int height = 0;                 ///< lines that there is room for, at least 1

    bool operator==(const BalloonPage&) const = default;
};

/// The character's word balloon on the screen: above the character with the tip towards it, to its sides or
/// below where there is no room, always inside the screen, and following it. Its font and colours are the
/// character's.
class BalloonView {
public:
    virtual ~BalloonView() = default;

    /// Pixels that a piece of a line takes in the balloon's font.
    [[nodiscard]] virtual int textWidth(std::string_view text) const = 0;

    /// Pixels, at least 1.
    [[nodiscard]] virtual int averageCharacterWidth() const = 0;

    /// Lines that half the height of the screen holds, at least 1.
    [[nodiscard]] virtual int mostLines() const = 0;

    /// A statement begins: all that it says, as it would stand in a balloon. Also where there is none.
    virtual void beginStatement(const std::string& text) = 0;

    /// Opens the balloon, or replaces what is in it.
    virtual void show(const BalloonPage& page) = 0;

    virtual void hide() = 0;
};

} // namespace brovin::character
