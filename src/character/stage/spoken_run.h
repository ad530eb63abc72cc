#pragma once

#include "character/stage/moment.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brovin::character {

enum class Tone : std::uint8_t { Normal, Monotone, Whisper };
enum class Emphasis : std::uint8_t { None, Strong, Reduced };

/// How a text is to be said. The ranges are those that the speech tags are held to; a voice narrows them
/// further where it must.
struct VoiceStyle {
    std::optional<std::int32_t> wordsPerMinute{}; ///< 50 to 400; nullopt: the voice's own speed
    std::int32_t speedPercent = 100;              ///< 25 to 400, of that speed
    std::optional<std::int32_t> pitchHertz{};     ///< 40 to 500; nullopt: the voice's own pitch
    std::int32_t pitchPercent = 100;              ///< 25 to 400, of that pitch
    std::int32_t volume = 65535;                  ///< 0 is silent, 65535 the loudest
    Tone tone = Tone::Normal;
    Emphasis emphasis = Emphasis::None;
    bool melody = true;      ///< false: without the rise and fall of a sentence
    bool spelled = false;    ///< letter by letter
    bool wordPauses = false; ///< with an audible pause after each word

    bool operator==(const VoiceStyle&) const = default;
};

/// A part of a statement that is said in one way. What it consists of comes in the order of the fields.
struct SpokenRun {
    VoiceStyle style;
    std::vector<std::int32_t> bookmarks; ///< to be reported when the voice gets here
    Milliseconds pause{0};
    std::string text;       ///< UTF-8; may be empty
    std::size_t offset = 0; ///< bytes of text in the runs before this one
};

} // namespace brovin::character
