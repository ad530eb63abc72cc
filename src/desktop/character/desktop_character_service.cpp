#include "desktop/character/desktop_character_service.h"

#include "character/acs_reader.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <random>
#include <utility>

namespace brovin::desktop {

DesktopCharacterService::StageChance::StageChance() {
    std::random_device device;
    random_.seed(device());
}

DesktopCharacterService::DesktopCharacterService(Needs needs)
    : folder_(needs.folders), makeAudio_(std::move(needs.makeAudio)), delivery_(std::move(needs.busy)) {
    watchScreens();
}

bool DesktopCharacterService::available() const {
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

platform::ScreenSize DesktopCharacterService::screen() const {
    const QScreen* const screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return {};
    return {screen->geometry().width(), screen->geometry().height()};
}

bool DesktopCharacterService::load(const std::string& id, const std::string& fileName) {
    if (!available() || characters_.contains(id))
        return false;
    auto content = folder_.read(fileName);
    if (!content)
        return false;
    auto read = character::readCharacter(character::SharedBytes(std::move(*content)));
    if (!read || loaded(read->guid))
        return false;
    auto data = std::make_shared<const character::CharacterData>(std::move(*read));
    CharacterAudio audio = makeAudio_(data);
    const auto tell = [this, id](character::Event event) { delivery_.add(id, std::move(event)); };
    characters_.emplace(id, std::make_unique<DesktopCharacter>(
                                std::move(data), DesktopCharacter::Needs{std::move(audio), chance_, tell}));
    return true;
}

void DesktopCharacterService::unload(const std::string& id) {
    characters_.erase(id);
    delivery_.forget(id);
}

platform::Character* DesktopCharacterService::character(const std::string& id) {
    const auto found = characters_.find(id);
    return found == characters_.end() ? nullptr : found->second.get();
}

bool DesktopCharacterService::loaded(const character::Guid& guid) const {
    return guid != character::Guid{} &&
           std::any_of(characters_.begin(), characters_.end(),
                       [&guid](const auto& entry) { return entry.second->guid() == guid; });
}

void DesktopCharacterService::watchScreens() {
    const auto watch = [this](QScreen* screen) {
        QObject::connect(screen, &QScreen::geometryChanged, &screens_, [this] { bringCharactersBack(); });
    };
    for (QScreen* const screen : QGuiApplication::screens())
        watch(screen);
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &screens_, watch);
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &screens_, [this] { bringCharactersBack(); });
}

void DesktopCharacterService::bringCharactersBack() {
    for (const auto& [id, character] : characters_)
        character->comeIntoSight();
}

} // namespace brovin::desktop
