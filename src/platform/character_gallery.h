#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brovin::platform {

/// The top row first, a pixel 0xAARRGGBB whose alpha is 255 or 0. Nothing: no picture.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

enum class CharacterProblem : std::uint8_t {
    None,
    Unreadable,
    NotACharacter,
    Unsupported,
    TooLarge,
    Damaged
};

/// What can be told of a character that is not loaded.
struct CharacterCard {
    std::string about; ///< a line of its author's in the language asked for; may be empty
    Picture picture;   ///< as it stands when nothing happens
    CharacterProblem problem = CharacterProblem::None;
};

/// A picture that can wave.
class CharacterPortrait {
public:
    virtual ~CharacterPortrait() = default;

    /// What is to be seen, `since` its waving began. How long until that is something else; nullopt: it
    /// stands still again, for good.
    virtual std::optional<std::chrono::milliseconds> wave(std::chrono::milliseconds since) = 0;
    [[nodiscard]] virtual const Picture& picture() const = 0;
};

/// Character files as something to choose from. Each answer costs the reading of a file.
class CharacterGallery {
public:
    virtual ~CharacterGallery() = default;

    /// Upper and lower case in the file's name make no difference, here and below. `languageId` is one that
    /// language files give; where it names no language, the user's own serves.
    [[nodiscard]] virtual CharacterCard card(const std::string& fileName, long languageId) = 0;
    /// Null: this character does not wave.
    [[nodiscard]] virtual std::unique_ptr<CharacterPortrait> portrait(const std::string& fileName) = 0;
};

} // namespace brovin::platform
