#include "desktop/voice/espeak_voice.h"

#include <QLocale>
#include <QString>

#include <memory>
#include <string>
#include <utility>

namespace brovin::voice {
namespace {

std::string usersLanguage() {
    const QLocale user = QLocale::system();
    return user.language() == QLocale::C ? "en-us" : user.bcp47Name().toLower().toStdString();
}

} // namespace

EspeakVoice::EspeakVoice(const character::CharacterData& character) : choice_(character, usersLanguage()) {}

EspeakVoice::~EspeakVoice() {
    silence();
}

bool EspeakVoice::available() const {
    server_ = PulseConnection::shared();
    return server_ != nullptr && !choice_.engine()->voices().voices.empty();
}

bool EspeakVoice::say(const std::vector<character::SpokenRun>& runs, character::VoiceListener& listener) {
    silence();
    if (loudness_ == 0 || !available())
        return false;
    SpeechJob job = choice_.jobFor(runs);
    if (job.voice.empty())
        return false;
    playback_ = std::make_unique<SpeechPlayback>(choice_.engine(), listener);
    playback_->setLoudness(loudness_);
    if (playback_->start(std::move(job)))
        return true;
    playback_.reset();
    return false;
}

void EspeakVoice::setLoudness(int percent) {
    loudness_ = percent;
    if (playback_)
        playback_->setLoudness(percent);
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
