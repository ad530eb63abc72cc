#pragma once

#include "character/character_data.h"
#include "desktop/character/character_folder.h"
#include "platform/character_gallery.h"
#include "platform/result.h"
#include "platform/standard_random.h"

#include <memory>
#include <string>
#include <vector>

namespace brovin::desktop {

/// The characters that lie in the folders of character files.
class FileGallery final : public platform::CharacterGallery {
public:
    /// Paths, the one that wins first.
    explicit FileGallery(const std::vector<std::string>& folders) : folder_(folders) {}

    [[nodiscard]] platform::CharacterCard card(const std::string& fileName, long languageId) override;
    [[nodiscard]] std::unique_ptr<platform::CharacterPortrait> portrait(const std::string& fileName) override;

private:
    using Read =
        platform::Result<std::shared_ptr<const character::CharacterData>, platform::CharacterProblem>;
    [[nodiscard]] Read read(const std::string& fileName);

    CharacterFolder folder_;
    platform::StandardRandom chance_;
};

} // namespace brovin::desktop
