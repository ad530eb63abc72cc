#pragma once

#include "platform/character_service.h"

namespace brovin::desktop {

/// The service of a build that cannot show characters.
class AbsentCharacters final : public platform::CharacterService {
public:
    [[nodiscard]] bool available() const override { return false; }
    bool load(const std::string& /*id*/, const std::string& /*fileName*/) override { return false; }
    void unload(const std::string& /*id*/) override {}
    [[nodiscard]] platform::Character* character(const std::string& /*id*/) override { return nullptr; }
};

} // namespace brovin::desktop
