#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::character {

enum class SegmentKind : std::uint8_t {
    Text,         ///< `spoken` and `shown` are the same
    Substitute,   ///< speaks `spoken`, shows `shown`
    Bookmark,     ///< `number`: 1 to 2147483645
    Pause,        ///< `number`: milliseconds, 0 to 60000
    Emphasize,    ///< the next word
    Deemphasize,  ///< the next word
    Repeat,       ///< the last statement
    Reset,        ///< all settings are back to what they were
    Tone,         ///< `number`: a `Tone`
    Pitch,        ///< `number`: hertz, 40 to 500
    PitchPercent, ///< `number`: 25 to 400
    Speed,        ///< `number`: words per minute, 50 to 400
    SpeedPercent, ///< `number`: 25 to 400
    Volume,       ///< `number`: 0 to 65535
    Melody,       ///< `number`: 0 off, 1 on
    Spelling,     ///< `number`: 0 off, 1 on
    WordPauses,   ///< `number`: 0 off, 1 on
};

/// A piece of what a character is told to say.
struct SpeechSegment {
    SegmentKind kind = SegmentKind::Text;
    std::int32_t number = 0;
    std::string spoken;
    std::string shown;

    bool operator==(const SpeechSegment&) const = default;
};

/// Reads a text with speech tags: "\name\" and "\name=value\". Two backslashes outside of a tag stand for
/// one. What lies between two backslashes is a tag when it begins with three or four letters that "=" or the
/// end follows; else the backslash is plain text. Without a closing backslash the rest is plain text.
///
/// Tags that are unknown, malformed or of no concern leave nothing behind; numbers out of range become the
/// nearest one allowed, but bookmarks out of range are left out. Any bytes will do, in time proportional to
/// their number.
[[nodiscard]] std::vector<SpeechSegment> parseSpeech(std::string_view text);

enum class Repetition : std::uint8_t {
    None,
    Alone, ///< the whole text asks for the last statement, and for nothing else
    Mixed, ///< it asks for other things besides, which is not allowed
};
[[nodiscard]] Repetition repetitionIn(const std::vector<SpeechSegment>& segments);

} // namespace brovin::character
