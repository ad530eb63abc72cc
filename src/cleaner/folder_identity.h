#pragma once

#include "platform/file_system.h"

#include <string>
#include <string_view>

namespace brovin::cleaner {

/// What is stored of a watched folder, so that another one in its place is known: device, inode and resolved
/// path, with colons between; what the disk is named stands behind the device and a slash, when the folder
/// was made behind the inode and an "@". "" where nothing is known.
[[nodiscard]] std::string identityText(const platform::FolderIdentity& identity);

/// Whether a folder is the one that was stored; of one of which nothing was stored, it is. The device's
/// number may differ, which is given out anew whenever a disk is mounted; what the disk is named may not.
[[nodiscard]] bool isTheSame(std::string_view stored, const platform::FolderIdentity& found);

/// Whether it is not, but stands at the same path on another disk, or on one that was formatted or hung in
/// anew: likely the same to the user, who is to say so.
[[nodiscard]] bool isOnAnotherDisk(std::string_view stored, const platform::FolderIdentity& found);

} // namespace brovin::cleaner
