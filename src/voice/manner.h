#pragma once

#include <string>
#include <string_view>

namespace brovin::voice {

/// How a character's file says that it speaks, in per cent of the usual.
struct Manner {
    int melody = 100;
    int speed = 100;
    int pitch = 100;
    int loudness = 100;
    bool whispers = false;
    std::string variant; ///< of the synthesizer, such as "m8"; empty: none is named

    bool operator==(const Manner&) const = default;
};

/// What a file's text for the style of a voice asks for: words divided by commas, such as "Calm, voice m8". A
/// word is a tone of voice, or names a variant behind "voice". Upper and lower case make no difference to
/// tones; what nobody knows is passed over.
[[nodiscard]] Manner mannerOf(std::string_view style);

} // namespace brovin::voice
