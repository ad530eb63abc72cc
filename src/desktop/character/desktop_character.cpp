#include "desktop/character/desktop_character.h"

#include "desktop/character/character_language.h"

#include <QDateTime>
#include <QGuiApplication>
#include <QScreen>

#include <utility>

namespace brovin::desktop {
namespace {

character::TimeOfYear timeOfYear() {
    const QDateTime now = QDateTime::currentDateTime();
    return {now.date().month(), now.time().hour()};
}

} // namespace

DesktopCharacter::DesktopCharacter(std::shared_ptr<const character::CharacterData> data, Needs needs)
    : data_(std::move(data)), audio_(std::move(needs.audio)), window_(*data_, needs.percent),
      balloon_(data_->balloon.value_or(character::BalloonSettings{}), window_),
      stage_(data_, {.surface = window_,
                     .balloon = balloon_,
                     .sound = *audio_.sound,
                     .voice = *audio_.voice,
                     .chance = needs.chance,
                     .attention = [this] { driver_.callSoon(); },
                     .today = timeOfYear}),
      driver_(stage_, std::move(needs.tell)) {
    window_.attach(stage_);
    window_.nextScreen = std::move(needs.nextScreen);
    window_.chosen = std::move(needs.chosen);
    window_.moved = [this] { balloon_.follow(); };
    balloon_.setClosed([this] { stage_.closeBalloon(); });
    const character::LanguageId language = usersLanguage();
    if (const auto* const info = character::chooseInfo(data_->info, language))
        window_.setWindowTitle(QString::fromStdString(info->name));
    speakIn(language);
}

DesktopCharacter::~DesktopCharacter() {
    window_.detach();
}

void DesktopCharacter::setManners(const platform::Manners& manners) {
    driver_.setPaused(manners.paused);
    stage_.setStill(manners.still);
    stage_.setCurious(manners.curious);
    balloon_.setReadOut(manners.readOut);
    if (audio_.setLoudness)
        audio_.setLoudness(manners.loudness);
}

platform::Area DesktopCharacter::area() const {
    return {window_.place().x(), window_.place().y(), window_.width(), window_.height()};
}

platform::Area DesktopCharacter::areaOn(const platform::Area& screen) const {
    const QRect wanted(screen.left, screen.top, screen.width, screen.height);
    for (const QScreen* const candidate : QGuiApplication::screens())
        if (candidate->geometry() == wanted) {
            const QSize size = window_.sizeOn(*candidate);
            return {window_.place().x(), window_.place().y(), size.width(), size.height()};
        }
    return area();
}

void DesktopCharacter::put(int left, int top) {
    stage_.setPlace({left, top}, character::MoveCause::Program);
}

bool DesktopCharacter::show() {
    stage_.show(character::Manner::Animated);
    return true;
}

bool DesktopCharacter::hide() {
    stage_.hide(character::Manner::Animated);
    return true;
}

bool DesktopCharacter::play(const std::string& animation) {
    return static_cast<bool>(stage_.play(animation));
}

bool DesktopCharacter::speak(const std::string& text) {
    return static_cast<bool>(stage_.speak(text));
}

/// It lands, too: nothing else may be asked of it for long, and it would stand there as it travels.
bool DesktopCharacter::moveTo(int x, int y) {
    stage_.moveTo({x, y}, character::kUsualMoveTime);
    play("RestPose");
    return true;
}

bool DesktopCharacter::gestureAt(int x, int y) {
    stage_.gestureAt({x, y});
    return true;
}

void DesktopCharacter::setLanguageId(long id) {
    if (namesLanguage(id))
        speakIn(static_cast<character::LanguageId>(id));
}

void DesktopCharacter::setTtsModeId(const std::string& id) {
    if (audio_.setMode)
        audio_.setMode(id);
}

std::vector<std::string> DesktopCharacter::animationNames() const {
    return stage_.animationNames();
}

void DesktopCharacter::speakIn(character::LanguageId language) {
    window_.setHideCaption(hideCaption(language));
    balloon_.setDirection(writingDirection(language));
    if (audio_.setLanguage)
        audio_.setLanguage(language);
}

} // namespace brovin::desktop
