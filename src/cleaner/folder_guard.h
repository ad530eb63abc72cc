#pragma once

#include "language/texts.h"
#include "platform/landmarks.h"

#include <cstdint>
#include <optional>
#include <string>

namespace brovin::cleaner {

/// Why a folder is not added to the watched ones, or swept by name, without a second thought.
enum class FolderRisk : std::uint8_t { None, Root, Home, OthersHome, System, Program, Disk };

/// Of the place to which a path leads, whatever links are on the way.
[[nodiscard]] FolderRisk folderRisk(const std::string& path, const platform::Landmarks& landmarks);

/// What sweeping it would mean; of a folder without risk: nullopt.
[[nodiscard]] std::optional<language::Text> riskText(FolderRisk risk);

} // namespace brovin::cleaner
