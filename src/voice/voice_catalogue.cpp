#include "voice/voice_catalogue.h"

#include "text/strings.h"

#include <algorithm>
#include <cstddef>

namespace brovin::voice {
namespace {

bool same(std::string_view a, std::string_view b) {
    return text::asciiLower(a) == text::asciiLower(b);
}

/// Null: nobody lists exactly this.
const ListedVoice* speakerOf(const std::vector<ListedVoice>& voices, std::string_view tag) {
    const ListedVoice* best = nullptr;
    int bestRank = 0;
    for (const ListedVoice& voice : voices)
        for (const VoiceLanguage& language : voice.languages)
            if (same(language.tag, tag) && (best == nullptr || language.rank < bestRank)) {
                best = &voice;
                bestRank = language.rank;
            }
    return best;
}

} // namespace

std::optional<std::string> VoiceCatalogue::voiceFor(std::string_view tag) const {
    const ListedVoice* voice = speakerOf(voices, tag);
    if (voice == nullptr)
        voice = speakerOf(voices, tag.substr(0, tag.find('-')));
    return voice == nullptr ? std::nullopt : std::optional(voice->identifier);
}

std::optional<NamedVoice> VoiceCatalogue::named(std::string_view name) const {
    const std::size_t plus = name.find('+');
    const std::string_view base = name.substr(0, plus);
    NamedVoice result;
    const auto found = std::ranges::find_if(
        voices, [&](const ListedVoice& v) { return same(v.name, base) || same(v.identifier, base); });
    if (found != voices.end())
        result.identifier = found->identifier;
    else if (const ListedVoice* const speaker = speakerOf(voices, base))
        result.identifier = speaker->identifier;
    else
        return std::nullopt;
    if (plus == std::string_view::npos)
        return result;
    const auto variant =
        std::ranges::find_if(variants, [&](const std::string& v) { return same(v, name.substr(plus + 1)); });
    if (variant == variants.end())
        return std::nullopt;
    result.variant = *variant;
    return result;
}

} // namespace brovin::voice
