#include "voice/manner.h"

#include "text/strings.h"

#include <algorithm>
#include <cctype>
#include <cstddef>

namespace brovin::voice {
namespace {

constexpr struct {
    std::string_view name;
    int melody;
    int speed;
    int pitch;
    int loudness;
} kTones[] = {
    {"angry", 130, 108, 105, 100}, {"business", 85, 104, 100, 100}, {"calm", 75, 90, 96, 95},
    {"depressed", 35, 80, 90, 85}, {"excited", 150, 115, 112, 100}, {"falsetto", 110, 100, 150, 95},
    {"happy", 135, 105, 106, 100}, {"loud", 110, 100, 100, 120},    {"monotone", 0, 100, 100, 100},
    {"perky", 150, 108, 110, 100}, {"quiet", 85, 96, 100, 65},      {"sarcastic", 160, 92, 98, 100},
    {"scared", 130, 118, 115, 90}, {"shout", 120, 100, 108, 130},   {"tense", 60, 108, 104, 100},
};

/// Nothing that could lead the synthesizer to another file than one of its variants.
bool couldBeAVariant(std::string_view name) {
    return !name.empty() && std::ranges::all_of(name, [](unsigned char c) { return std::isalnum(c) != 0; });
}

void obey(std::string_view word, Manner& manner) {
    constexpr std::string_view kVoice = "voice ";
    const std::string lower = text::asciiLower(word);
    if (const auto name = word.substr(std::min(kVoice.size(), word.size()));
        lower.starts_with(kVoice) && couldBeAVariant(name))
        manner.variant = name;
    manner.whispers = manner.whispers || lower == "whisper";
    for (const auto& tone : kTones)
        if (lower == tone.name) {
            manner.melody = manner.melody * tone.melody / 100;
            manner.speed = manner.speed * tone.speed / 100;
            manner.pitch = manner.pitch * tone.pitch / 100;
            manner.loudness = manner.loudness * tone.loudness / 100;
        }
}

} // namespace

Manner mannerOf(std::string_view style) {
    Manner manner;
    for (std::size_t comma = 0; comma != std::string_view::npos;) {
        comma = style.find(',');
        obey(text::trim(style.substr(0, comma)), manner);
        style.remove_prefix(comma == std::string_view::npos ? style.size() : comma + 1);
    }
    return manner;
}

} // namespace brovin::voice
