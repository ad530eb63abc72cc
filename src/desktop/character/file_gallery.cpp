#include "desktop/character/file_gallery.h"

#include "desktop/character/character_language.h"
#include "desktop/character/patient_loading.h"
#include "desktop/character/portrait.h"

#include <utility>

namespace brovin::desktop {
namespace {

using character::LoadProblem;
using platform::CharacterProblem;

CharacterProblem problemOf(LoadProblem problem) {
    switch (problem) {
    case LoadProblem::Missing:
        return CharacterProblem::Unreadable;
    case LoadProblem::NotACharacterFile:
        return CharacterProblem::NotACharacter;
    case LoadProblem::UnsupportedVersion:
    case LoadProblem::NewerVersion:
        return CharacterProblem::Unsupported;
    case LoadProblem::TooLarge:
        return CharacterProblem::TooLarge;
    default:
        return CharacterProblem::Damaged;
    }
}

} // namespace

FileGallery::Read FileGallery::read(const std::string& fileName) {
    auto read = loadPatiently([this, &fileName] { return folder_.load(fileName); });
    if (!read)
        return problemOf(read.failure().problem);
    return std::make_shared<const character::CharacterData>(std::move(*read));
}

platform::CharacterCard FileGallery::card(const std::string& fileName, long languageId) {
    const Read data = read(fileName);
    if (!data)
        return {{}, {}, data.failure()};
    const auto* const info = character::chooseInfo(
        (*data)->info,
        namesLanguage(languageId) ? static_cast<character::LanguageId>(languageId) : usersLanguage());
    return {info == nullptr ? std::string() : info->description, Portrait(*data, chance_).picture()};
}

std::unique_ptr<platform::CharacterPortrait> FileGallery::portrait(const std::string& fileName) {
    const Read data = read(fileName);
    if (!data)
        return nullptr;
    auto portrait = std::make_unique<Portrait>(*data, chance_);
    return portrait->canWave() ? std::move(portrait) : nullptr;
}

} // namespace brovin::desktop
