#include "voice/voice_choice.h"

#include "text/language_ids.h"
#include "voice/mode_ids.h"
#include "voice/utterance.h"
#include "voice/writing.h"

#include <string_view>
#include <utility>

namespace brovin::voice {
namespace {

constexpr const char* kAmericanTag = "en-us";

std::string withVariant(const std::string& voice, const std::string& variant) {
    return variant.empty() ? voice : voice + '+' + variant;
}

} // namespace

VoiceChoice::VoiceChoice(const character::CharacterData& character, std::string usersLanguage)
    : engine_(SpeechEngine::shared()), usersLanguage_(std::move(usersLanguage)), own_(ownTimbre(character)),
      timbre_(own_) {}

bool VoiceChoice::setLanguageId(long id) {
    const auto tag = text::languageTag(id);
    if (tag)
        language_ = *tag;
    return tag.has_value();
}

bool VoiceChoice::setTtsModeId(const std::string& id) {
    if (id.empty()) {
        chosen_.clear();
        timbre_ = own_;
        return true;
    }
    const VoiceCatalogue& voices = engine_->voices();
    if (const auto guid = parseGuid(id)) {
        const auto mode = knownMode(*guid);
        const auto voice =
            mode ? voices.voiceFor(text::languageTag(mode->language).value_or("")) : std::nullopt;
        if (!voice)
            return false;
        chosen_ = *voice;
        timbre_ = numberedTimbre(mode->gender, mode->number);
        return true;
    }
    const auto voice = voices.named(id);
    if (!voice)
        return false;
    chosen_ = voice->identifier;
    timbre_ = namedTimbre(voice->variant);
    return true;
}

std::string VoiceChoice::identifier() const {
    if (!chosen_.empty())
        return chosen_;
    const VoiceCatalogue& voices = engine_->voices();
    for (const std::string& tag : {language_, usersLanguage_, std::string(kAmericanTag)})
        if (const auto voice = tag.empty() ? std::nullopt : voices.voiceFor(tag))
            return *voice;
    return voices.voices.empty() ? std::string() : voices.voices.front().identifier;
}

std::string VoiceChoice::voiceName() const {
    const std::string voice = identifier();
    return voice.empty() ? voice : withVariant(voice, timbre_.variant);
}

SpeechJob VoiceChoice::jobFor(const std::vector<character::SpokenRun>& runs) const {
    std::string voice = identifier();
    std::string text;
    for (const character::SpokenRun& run : runs)
        text += run.text;
    // "gmw/en-US": what stands before the stroke is the family.
    const std::string_view language = std::string_view(voice).substr(voice.find('/') + 1);
    if (const std::string reader = readerOf(text, language); !reader.empty())
        voice = engine_->voices().voiceFor(reader).value_or(std::string());
    if (voice.empty())
        return {};
    return {nullptr, withVariant(voice, timbre_.variant),
            withVariant(voice, timbre_.female ? "whisperf" : "whisper"), makeUtterances(runs, timbre_), 0};
}

} // namespace brovin::voice
