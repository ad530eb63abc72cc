#include "character/acs_voice.h"

#include "character/acs_basics.h"
#include "character/acs_format.h"
#include "character/acs_limits.h"

#include <cstdint>
#include <optional>

namespace brovin::character {
namespace {

std::optional<std::uint16_t> within(std::uint32_t value, std::uint16_t lowest, std::uint16_t highest) {
    if (value < lowest || value > highest)
        return std::nullopt;
    return static_cast<std::uint16_t>(value);
}

Gender genderOf(std::uint16_t number) {
    switch (number) {
    case 1:
        return Gender::Female;
    case 2:
        return Gender::Male;
    default:
        return Gender::Neutral;
    }
}

VoiceTraits readTraits(ByteReader& in) {
    VoiceTraits traits;
    traits.language = in.u16();
    traits.dialect = readText(in, kMostTextUnits);
    traits.gender = genderOf(in.u16());
    traits.ageYears = in.u16();
    traits.style = readText(in, kMostTextUnits);
    return traits;
}

} // namespace

VoiceSettings readVoice(ByteReader& in) {
    VoiceSettings voice;
    voice.engine = readGuid(in);
    voice.mode = readGuid(in);
    voice.wordsPerMinute = within(in.u32(), kLowestWordsPerMinute, kHighestWordsPerMinute);
    voice.pitchHertz = within(in.u16(), kLowestPitch, kHighestPitch);
    if (readPresence(in))
        voice.traits = readTraits(in);
    return voice;
}

void writeVoice(ByteWriter& out, const VoiceSettings& voice) {
    writeGuid(out, voice.engine);
    writeGuid(out, voice.mode);
    out.u32(voice.wordsPerMinute.value_or(0));
    out.u16(voice.pitchHertz.value_or(kDefaultPitch));
    out.u8(voice.traits ? 1 : 0);
    if (!voice.traits)
        return;
    out.u16(voice.traits->language);
    writeText(out, voice.traits->dialect);
    out.u16(static_cast<std::uint16_t>(voice.traits->gender));
    out.u16(voice.traits->ageYears);
    writeText(out, voice.traits->style);
}

} // namespace brovin::character
