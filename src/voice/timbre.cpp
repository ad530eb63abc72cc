#include "voice/timbre.h"

#include "voice/manner.h"
#include "voice/mode_ids.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>

namespace brovin::voice {
namespace {

using character::Gender;

/// A variant of the synthesizer, with the pitch that was measured for it.
struct Variant {
    const char* name;
    int hertz;
};

constexpr Variant kMen[] = {{"m1", 97},  {"m2", 103}, {"m3", 110}, {"m4", 96},
                            {"m5", 106}, {"m6", 104}, {"m7", 110}, {"m8", 89}};
constexpr Variant kWomen[] = {{"f1", 184}, {"f2", 200}, {"f3", 216}, {"f4", 182}, {"f5", 208}};

/// Others whose pitch or loudness is not that of the plain voice, in case a file names them.
constexpr Variant kOthers[] = {{"UniRobot", 137}};

/// What makes these as loud as the others, in per cent.
constexpr struct {
    const char* name;
    int loudness;
} kLoudness[] = {{"m8", 150}, {"m3", 90}, {"UniRobot", 115}};

/// Above this a man's variant would have to be strained; a woman's carries the voice better, be it a man's.
constexpr int kHighHertz = 150;

constexpr int kChildYears = 14;
constexpr int kOldYears = 65;

/// FNV-1a: the same on every machine and in every version.
class Mixer {
public:
    void add(std::uint64_t value) {
        for (int i = 0; i < 8; ++i, value >>= 8U)
            hash_ = (hash_ ^ (value & 0xFFU)) * 0x100000001B3ULL;
    }
    void add(const character::Guid& guid) {
        add(guid.first);
        add((std::uint64_t{guid.second} << 16U) | guid.third);
        for (const std::uint8_t byte : guid.rest)
            add(byte);
    }
    /// 0 to below `count`; another number at each call.
    [[nodiscard]] int draw(int count) {
        add(1);
        return static_cast<int>((hash_ >> 32U) % static_cast<std::uint64_t>(count));
    }

private:
    std::uint64_t hash_ = 0xCBF29CE484222325ULL;
};

Timbre made(const Variant& variant, bool female) {
    Timbre timbre{variant.name, variant.hertz, variant.hertz, 50, 165, female};
    for (const auto& [name, loudness] : kLoudness)
        if (timbre.variant == name)
            timbre.loudness = loudness;
    return timbre;
}

/// What the file says, or else the voice that it names; without either, as chance will have it.
bool isFemale(const character::VoiceSettings& settings, Mixer& mixer) {
    Gender gender = settings.traits ? settings.traits->gender : Gender::Neutral;
    if (const auto mode = knownMode(settings.mode); gender == Gender::Neutral && mode)
        gender = mode->gender;
    if (gender == Gender::Neutral && !settings.pitchHertz)
        return mixer.draw(2) == 1;
    return gender == Gender::Female;
}

double ageFactor(const character::VoiceSettings& settings) {
    const int years = settings.traits ? settings.traits->ageYears : 0;
    if (years > 0 && years < kChildYears)
        return 1.3;
    return years >= kOldYears ? 0.92 : 1.0;
}

void obey(const Manner& manner, Timbre& timbre) {
    if (manner.whispers)
        timbre.variant = timbre.female ? "whisperf" : "whisper";
    timbre.range = std::min(timbre.range * manner.melody / 100, 99);
    timbre.wordsPerMinute = timbre.wordsPerMinute * manner.speed / 100;
    timbre.ownHertz = timbre.ownHertz * manner.pitch / 100;
    timbre.loudness = timbre.loudness * manner.loudness / 100;
}

/// In a stable way one of those of a kind, with a pitch, a melody and a pace of its own.
Timbre drawn(const character::VoiceSettings& settings, Mixer& mixer) {
    const bool female = isFemale(settings, mixer);
    const bool high = female || settings.pitchHertz.value_or(0) > kHighHertz;
    Timbre timbre = numberedTimbre(
        high ? Gender::Female : Gender::Male,
        static_cast<unsigned>(mixer.draw(static_cast<int>(high ? std::size(kWomen) : std::size(kMen)))));
    timbre.female = female;
    timbre.ownHertz =
        static_cast<int>(timbre.middleHertz * ageFactor(settings) * (92 + mixer.draw(17)) / 100);
    timbre.range = 40 + mixer.draw(31);
    timbre.wordsPerMinute = 155 + mixer.draw(21);
    return timbre;
}

} // namespace

Timbre numberedTimbre(Gender gender, unsigned number) {
    const bool female = gender == Gender::Female;
    const std::span<const Variant> variants = female ? std::span<const Variant>(kWomen) : kMen;
    return made(variants[number % variants.size()], female);
}

Timbre ownTimbre(const character::CharacterData& character) {
    const character::VoiceSettings settings = character.voice.value_or(character::VoiceSettings{});
    Mixer mixer;
    mixer.add(character.guid);
    mixer.add(settings.mode);
    const Manner manner = mannerOf(settings.traits ? settings.traits->style : std::string());
    Timbre timbre = manner.variant.empty() ? drawn(settings, mixer) : namedTimbre(manner.variant);
    if (!manner.variant.empty() && settings.traits)
        timbre.female = settings.traits->gender == Gender::Female;
    obey(manner, timbre);
    return timbre;
}

Timbre namedTimbre(const std::string& variant) {
    for (const Variant& man : kMen)
        if (variant == man.name)
            return made(man, false);
    for (const Variant& woman : kWomen)
        if (variant == woman.name)
            return made(woman, true);
    for (const Variant& other : kOthers)
        if (variant == other.name)
            return made(other, false);
    return made({variant.c_str(), Timbre{}.middleHertz}, false);
}

} // namespace brovin::voice
