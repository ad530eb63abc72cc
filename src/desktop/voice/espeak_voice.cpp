#include "desktop/voice/espeak_voice.h"

#include "desktop/voice/language_ids.h"
#include "desktop/voice/mode_ids.h"
#include "desktop/voice/utterance.h"

#include <QLocale>
#include <QString>

#include <utility>

namespace brovin::voice {
namespace {

constexpr const char* kAmericanTag = "en-us";

std::string usersLanguage() {
    const QLocale user = QLocale::system();
    return user.language() == QLocale::C ? kAmericanTag : user.bcp47Name().toLower().toStdString();
}

std::string withVariant(const std::string& voice, const std::string& variant) {
    return variant.empty() ? voice : voice + '+' + variant;
}

} // namespace

EspeakVoice::EspeakVoice(const character::CharacterData& character)
    : engine_(SpeechEngine::shared()), own_(ownTimbre(character)), timbre_(own_) {}

EspeakVoice::~EspeakVoice() {
    silence();
}

bool EspeakVoice::setLanguageId(long id) {
    const auto tag = languageTag(id);
    if (tag)
        language_ = *tag;
    return tag.has_value();
}

bool EspeakVoice::setTtsModeId(const std::string& id) {
    if (id.empty()) {
        chosen_.clear();
        timbre_ = own_;
        return true;
    }
    const VoiceCatalogue& voices = engine_->voices();
    if (const auto guid = parseGuid(id)) {
        const auto mode = knownMode(*guid);
        const auto voice = mode ? voices.voiceFor(languageTag(mode->language).value_or("")) : std::nullopt;
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

std::string EspeakVoice::identifier() const {
    if (!chosen_.empty())
        return chosen_;
    const VoiceCatalogue& voices = engine_->voices();
    for (const std::string& tag : {language_, usersLanguage(), std::string(kAmericanTag)})
        if (const auto voice = tag.empty() ? std::nullopt : voices.voiceFor(tag))
            return *voice;
    return voices.voices.empty() ? std::string() : voices.voices.front().identifier;
}

std::string EspeakVoice::voiceName() const {
    const std::string voice = identifier();
    return voice.empty() ? voice : withVariant(voice, timbre_.variant);
}

SpeechJob EspeakVoice::jobFor(const std::vector<character::SpokenRun>& runs) const {
    const std::string voice = identifier();
    return {nullptr, withVariant(voice, timbre_.variant),
            withVariant(voice, timbre_.female ? "whisperf" : "whisper"), makeUtterances(runs, timbre_), 0};
}

bool EspeakVoice::available() const {
    return soundDevicePresent() && !engine_->voices().voices.empty();
}

bool EspeakVoice::say(const std::vector<character::SpokenRun>& runs, character::VoiceListener& listener) {
    silence();
    if (!available())
        return false;
    playback_ = std::make_unique<SpeechPlayback>(engine_, listener);
    if (playback_->start(jobFor(runs)))
        return true;
    playback_.reset();
    return false;
}

void EspeakVoice::silence() {
    if (!playback_)
        return;
    playback_->silence();
    // The listener may have asked for silence because of what it was told just then.
    if (playback_->telling())
        playback_.release()->deleteLater();
    else
        playback_.reset();
}

} // namespace brovin::voice
