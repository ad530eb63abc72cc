#pragma once

#include "desktop/character/character_audio.h"
#include "desktop/character/character_folder.h"
#include "desktop/character/desktop_character.h"
#include "desktop/character/event_delivery.h"
#include "platform/character_service.h"
#include "platform/random.h"
#include "platform/standard_random.h"

#include <QObject>
#include <QRect>
#include <QVector>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace brovin::desktop {

/// Animated characters in windows of their own.
class DesktopCharacterService final : public platform::CharacterService {
public:
    struct Needs {
        std::vector<std::string> folders; ///< of character files; the one that wins first
        AudioMaker makeAudio;
        std::function<bool()> busy; ///< a box waits for an answer, and events wait with it
    };
    explicit DesktopCharacterService(Needs needs);

    /// False on a desktop where a program cannot place its windows.
    [[nodiscard]] bool available() const override;
    [[nodiscard]] std::vector<std::string> files() override { return folder_.files(); }
    [[nodiscard]] std::vector<platform::Area> screens() const override;
    void setMenu(const platform::CharacterMenu& menu) override;
    void setSize(int percent) override;
    void setManners(const platform::Manners& manners) override;
    /// What a window should keep clear of, for `placeBeside`.
    [[nodiscard]] QVector<QRect> company() const;
    void setEvents(platform::CharacterEvents events) override { delivery_.setEvents(std::move(events)); }
    /// Also false: the id is in use, or the very same character is loaded, or a file is being read.
    bool load(const std::string& id, const std::string& fileName) override;
    /// Whether a file is being read, and the program waits for it.
    [[nodiscard]] bool loading() const { return loading_; }
    void unload(const std::string& id) override;
    [[nodiscard]] const platform::Character* character(const std::string& id) override;

private:
    [[nodiscard]] bool loaded(const character::Guid& guid) const;
    void add(const std::string& id, character::CharacterData&& loaded);
    void watchScreens();

    CharacterFolder folder_;
    AudioMaker makeAudio_;
    platform::StandardRandom chance_;
    EventDelivery delivery_;
    std::map<std::string, std::unique_ptr<DesktopCharacter>> characters_;
    platform::CharacterMenu menu_;
    int percent_ = 0; ///< of the size
    platform::Manners manners_;
    bool loading_ = false;
    QObject watch_; ///< over the screens; ends with the service
};

} // namespace brovin::desktop
