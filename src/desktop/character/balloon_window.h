#pragma once

#include "character/character_data.h"
#include "character/stage/balloon_view.h"
#include "desktop/character/announcement.h"
#include "desktop/character/bubble.h"
#include "desktop/character/character_window.h"

#include <QRect>
#include <QSize>
#include <QStringList>

#include <functional>
#include <optional>

namespace brovin::desktop {

/// The word balloon of a character, in the character's colours and in its font, or the installed one that
/// comes nearest, in the size of the desktop's letters. It begins as large as its first words and grows.
class BalloonWindow final : public character::BalloonView {
public:
    BalloonWindow(const character::BalloonSettings& settings, const CharacterWindow& speaker);

    void setClosed(std::function<void()> closed) { bubble_.closed = std::move(closed); }
    /// The direction of texts that do not show one by their letters.
    void setDirection(Qt::LayoutDirection direction) { direction_ = direction; }
    /// Whether statements are announced to screen readers.
    void setReadOut(bool readOut) { readOut_ = readOut; }
    /// The speaker has moved.
    void follow();
    /// Where a balloon of full width would be at this moment.
    [[nodiscard]] QRect reach() const;

    [[nodiscard]] int textWidth(std::string_view text) const override;
    [[nodiscard]] int averageCharacterWidth() const override;
    [[nodiscard]] int mostLines() const override;
    void beginStatement(const std::string& text) override;
    void show(const character::BalloonPage& page) override;
    void hide() override;

private:
    [[nodiscard]] QRect room() const;
    [[nodiscard]] int linesIn(int height) const;
    [[nodiscard]] Qt::LayoutDirection directionOf(const QStringList& lines);

    const CharacterWindow& speaker_;
    int charactersPerLine_;
    int usualWidth_ = 1; ///< of a character in the size that the file has
    Qt::LayoutDirection direction_ = Qt::LeftToRight;
    std::optional<Qt::LayoutDirection> textDirection_; ///< as soon as the text shows one
    /// The speaker's picture in its frame when the balloon opened, so that the balloon does not dance with
    /// it; nullopt: the balloon is closed.
    std::optional<QRect> figure_;
    double figureScale_ = 1; ///< of the speaker, at that time
    bool grows_;             ///< else it is as large at once as the file says
    QSize full_;             ///< when all is said: the window has room for that from the beginning on
    QSize size_;             ///< so far
    QRect bubbleBefore_;     ///< in the full one; invalid: a statement begins
    Qt::LayoutDirection linesBegin_ = Qt::LeftToRight;
    bool readOut_ = false;
    Announcement announcement_;
    Bubble bubble_;
};

} // namespace brovin::desktop
