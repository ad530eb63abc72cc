#include "voice/espeak.h"

#include <espeak-ng/speak_lib.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace brovin::voice {
namespace {

constexpr int kWordGap = 20; // of 10 ms at the usual speed
constexpr int kContinue = 0;
constexpr int kAbort = 1;

std::string_view phonemeName(const espeak_EVENT& event) {
    const char* const begin = &event.id.string[0];
    return {begin, strnlen(begin, sizeof event.id.string)};
}

/// Where loud sounds begin to be held back, and what none gets beyond: 1 dB below full scale.
constexpr double kKnee = 20'000;
constexpr double kCeiling = 29'000;

/// As it is while it is not loud, and softly held below the ceiling: some voices have peaks beyond full
/// scale.
std::int16_t limited(std::int16_t sample) {
    const double size = std::abs(static_cast<double>(sample));
    if (size <= kKnee)
        return sample;
    const double held = kKnee + (kCeiling - kKnee) * std::tanh((size - kKnee) / (kCeiling - kKnee));
    return static_cast<std::int16_t>(std::copysign(held, sample));
}

/// Hands what the synthesizer makes of one utterance on to a stream.
class Transcript {
public:
    Transcript(const Utterance& utterance, SpeechStream& stream)
        : utterance_(utterance), stream_(stream), start_(stream.written()) {}

    /// False: nobody listens any more.
    bool take(std::span<std::int16_t> samples, const espeak_EVENT* events) {
        std::ranges::transform(samples, samples.begin(), limited);
        for (; events->type != espeakEVENT_LIST_TERMINATED; ++events)
            note(*events);
        return stream_.append(samples, std::exchange(events_, {}));
    }

    /// The bookmarks that no word has come after.
    bool finish() {
        passBookmarks(utterance_.origins.size(), stream_.written());
        return stream_.append({}, std::exchange(events_, {}));
    }

private:
    void note(const espeak_EVENT& event) {
        const std::int64_t sample = start_ + std::int64_t{event.audio_position} * kSpeechRate / 1000;
        if (event.type == espeakEVENT_PHONEME)
            events_.push_back({sample, SoundBegins{std::string(phonemeName(event))}});
        if (event.type != espeakEVENT_WORD || event.length <= 0)
            return;
        const auto character = static_cast<std::size_t>(std::max(event.text_position - 1, 0));
        if (event.length == 1 && utterance_.isBlankAt(character))
            return; // the second word of the name of the single character before
        passBookmarks(character, sample);
        events_.push_back({sample, WordBegins{utterance_.originOf(character)}});
    }

    void passBookmarks(std::size_t character, std::int64_t sample) {
        // A word may be reported by the blank before it, and the bookmark stand between the two.
        const std::size_t origin = utterance_.originOf(character);
        for (; next_ < utterance_.bookmarks.size(); ++next_) {
            const PlacedBookmark& bookmark = utterance_.bookmarks[next_];
            if (bookmark.character > character && utterance_.originOf(bookmark.character) > origin)
                break;
            events_.push_back({sample, BookmarkPassed{bookmark.number}});
        }
    }

    const Utterance& utterance_;
    SpeechStream& stream_;
    std::int64_t start_;
    std::vector<SpeechEvent> events_;
    std::size_t next_ = 0; ///< bookmark
};

/// Of the utterance that is being said: the library calls back without saying whose sound it is.
Transcript* current = nullptr; // NOLINT(readability-identifier-naming): no constant

int hear(short* samples, int count, espeak_EVENT* events) {
    if (current == nullptr)
        return kAbort;
    const bool sound = samples != nullptr && count > 0;
    return current->take({samples, sound ? static_cast<std::size_t>(count) : 0}, events) ? kContinue : kAbort;
}

/// The folder with the synthesizer's data, where they lie beside the program because it runs from a folder of
/// its own; empty: the system's are meant.
std::string ownData() {
    std::error_code unknown;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path();
    return std::filesystem::is_directory(folder / "espeak-ng-data", unknown) ? folder.string()
                                                                             : std::string();
}

bool start() {
    const std::string data = ownData();
    constexpr int kOptions =
        espeakINITIALIZE_PHONEME_EVENTS | espeakINITIALIZE_PHONEME_IPA | espeakINITIALIZE_DONT_EXIT;
    if (espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, 0, data.empty() ? nullptr : data.c_str(), kOptions) !=
        kSpeechRate)
        return false;
    espeak_SetSynthCallback(hear);
    return true;
}

void setProsody(const Utterance& utterance) {
    const Prosody& prosody = utterance.prosody;
    espeak_SetParameter(espeakRATE, prosody.rate, 0);
    espeak_SetParameter(espeakPITCH, prosody.pitch, 0);
    espeak_SetParameter(espeakRANGE, prosody.range, 0);
    espeak_SetParameter(espeakVOLUME, prosody.volume, 0);
    espeak_SetParameter(espeakWORDGAP, utterance.wordPauses ? kWordGap : 0, 0);
}

/// The languages come one after another, each a byte of rank and a text with its zero, up to a rank of zero.
std::vector<VoiceLanguage> languagesOf(const espeak_VOICE& voice) {
    std::vector<VoiceLanguage> languages;
    for (const char* at = voice.languages; at != nullptr && *at != 0; at += std::strlen(at) + 1)
        languages.push_back({at + 1, *at});
    return languages;
}

std::string textOf(const char* text) {
    return text == nullptr ? std::string() : text;
}

} // namespace

bool openEspeak() {
    static const bool kReady = start();
    return kReady;
}

VoiceCatalogue listEspeakVoices() {
    VoiceCatalogue catalogue;
    for (const espeak_VOICE** voice = espeak_ListVoices(nullptr); *voice != nullptr; ++voice)
        catalogue.voices.push_back(
            {textOf((*voice)->name), textOf((*voice)->identifier), languagesOf(**voice)});
    espeak_VOICE variants{};
    variants.languages = "variant";
    constexpr std::string_view kFolder = "!v/";
    for (const espeak_VOICE** voice = espeak_ListVoices(&variants); *voice != nullptr; ++voice)
        if (const std::string file = textOf((*voice)->identifier); file.starts_with(kFolder))
            catalogue.variants.push_back(file.substr(kFolder.size()));
    return catalogue;
}

bool sayByEspeak(const std::string& voice, const Utterance& utterance, SpeechStream& stream) {
    if (espeak_SetVoiceByName(voice.c_str()) != EE_OK)
        return false;
    setProsody(utterance);
    Transcript transcript(utterance, stream);
    current = &transcript;
    const unsigned flags = espeakCHARS_UTF8 | (utterance.goesOn ? espeakENDPAUSE : 0U);
    const espeak_ERROR result = espeak_Synth(utterance.text.c_str(), utterance.text.size() + 1, 0,
                                             POS_CHARACTER, 0, flags, nullptr, nullptr);
    current = nullptr;
    return result == EE_OK && transcript.finish();
}

} // namespace brovin::voice
