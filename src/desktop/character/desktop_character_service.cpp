#include "desktop/character/desktop_character_service.h"

#include "desktop/character/patient_loading.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <random>
#include <utility>

namespace brovin::desktop {

DesktopCharacterService::DesktopCharacterService(Needs needs)
    : folder_(needs.folders), makeAudio_(std::move(needs.makeAudio)), delivery_(std::move(needs.busy)) {
    chance_.seed(std::random_device{}());
    watchScreens();
}

bool DesktopCharacterService::available() const {
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

std::vector<platform::Area> DesktopCharacterService::screens() const {
    std::vector<platform::Area> areas;
    for (const QScreen* const screen : QGuiApplication::screens()) { // the main one first
        const QRect at = screen->geometry();
        areas.push_back({at.x(), at.y(), at.width(), at.height()});
    }
    return areas;
}

void DesktopCharacterService::setMenu(const platform::CharacterMenu& menu) {
    menu_ = menu;
    for (const auto& [id, character] : characters_)
        character->setMenu(menu_);
}

void DesktopCharacterService::setSize(int percent) {
    percent_ = percent;
    for (const auto& [id, character] : characters_)
        character->setSize(percent_);
}

void DesktopCharacterService::setManners(const platform::Manners& manners) {
    if (manners_ == manners)
        return;
    manners_ = manners;
    for (const auto& [id, character] : characters_)
        character->setManners(manners_);
}

bool DesktopCharacterService::load(const std::string& id, const std::string& fileName) {
    if (!available() || loading_ || characters_.contains(id))
        return false;
    loading_ = true;
    auto read = loadPatiently([this, &fileName] { return folder_.load(fileName); });
    loading_ = false;
    if (!read || loaded(read->guid))
        return false;
    add(id, std::move(*read));
    return true;
}

void DesktopCharacterService::add(const std::string& id, character::CharacterData&& loaded) {
    auto data = std::make_shared<const character::CharacterData>(std::move(loaded));
    CharacterAudio audio = makeAudio_(data);
    DesktopCharacter::Needs needs{std::move(audio),
                                  chance_,
                                  percent_,
                                  [this, id](character::Event event) { delivery_.add(id, std::move(event)); },
                                  [this, id] {
                                      delivery_.add(id, [id](const platform::CharacterEvents& events) {
                                          if (events.nextScreen)
                                              events.nextScreen(id);
                                      });
                                  },
                                  [this, id](std::function<void()> act) {
                                      delivery_.add(
                                          id, [act = std::move(act)](const auto& /*events*/) { act(); });
                                  }};
    const auto made =
        characters_.emplace(id, std::make_unique<DesktopCharacter>(std::move(data), std::move(needs)));
    made.first->second->setMenu(menu_);
    made.first->second->setManners(manners_);
}

QVector<QRect> DesktopCharacterService::company() const {
    QVector<QRect> areas;
    for (const auto& [id, character] : characters_)
        areas.push_back(character->frameWithBalloon());
    for (const auto& [id, character] : characters_)
        areas.push_back(character->frame());
    return areas;
}

void DesktopCharacterService::unload(const std::string& id) {
    characters_.erase(id);
    delivery_.forget(id);
}

const platform::Character* DesktopCharacterService::character(const std::string& id) {
    const auto found = characters_.find(id);
    return found == characters_.end() ? nullptr : &found->second->sides();
}

bool DesktopCharacterService::loaded(const character::Guid& guid) const {
    return guid != character::Guid{} &&
           std::any_of(characters_.begin(), characters_.end(),
                       [&guid](const auto& entry) { return entry.second->guid() == guid; });
}

void DesktopCharacterService::watchScreens() {
    const auto changed = [this] {
        delivery_.add({}, [](const platform::CharacterEvents& events) {
            if (events.screensChanged)
                events.screensChanged();
        });
    };
    const auto watch = [this, changed](QScreen* screen) {
        QObject::connect(screen, &QScreen::geometryChanged, &watch_, changed);
    };
    for (QScreen* const screen : QGuiApplication::screens())
        watch(screen);
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &watch_, watch);
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, &watch_, changed);
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, &watch_, changed);
    QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, &watch_, changed);
}

} // namespace brovin::desktop
