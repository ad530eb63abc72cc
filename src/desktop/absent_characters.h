#pragma once

#include "platform/character_service.h"

namespace brovin::desktop {

/// The service of a build that cannot show characters.
class AbsentCharacters final : public platform::CharacterService {
public:
    [[nodiscard]] bool available() const override { return false; }
    [[nodiscard]] std::vector<std::string> files() override { return {}; }
    [[nodiscard]] platform::ScreenSize screen() const override { return {}; }
    void setEvents(platform::CharacterEvents /*events*/) override {}
    bool load(const std::string& /*id*/, const std::string& /*fileName*/) override { return false; }
    void unload(const std::string& /*id*/) override {}
    [[nodiscard]] platform::Character* character(const std::string& /*id*/) override { return nullptr; }
};

} // namespace brovin::desktop
