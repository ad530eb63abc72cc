#pragma once

#include "platform/file_system.h"
#include "posix/descriptor.h"

#include <sys/types.h>

#include <cstdint>
#include <string>

namespace brovin::posix {

/// The user's trash on the disk of whatever goes there, by the desktop's rules (freedesktop trash
/// specification): the one at home for the disk of the home folder, else one at the top of the disk.
class Trash {
public:
    /// Moves an entry of the open folder `parent` there. Nothing that is to be kept goes: a folder with a
    /// read-only entry in it stays whole where nothing is forced, and one with another disk in it always.
    /// Failure: as of a deletion, and `platform::kNoTrash`.
    [[nodiscard]] platform::Status take(int parent, const char* name, platform::EntryKind kind,
                                        platform::Force force);

    /// Whether an open folder is a trash of this user, or lies in one.
    [[nodiscard]] bool holds(int folder) const;

private:
    /// A part of the folder tree within which things can be renamed.
    struct Disk {
        dev_t device = 0;
        std::uint64_t mount = 0; ///< 0 where the system does not tell
        friend bool operator==(const Disk&, const Disk&) = default;
    };

    static platform::Result<Disk> diskOf(int folder);
    static platform::Result<Descriptor> topOf(int folder, const Disk& disk);
    static platform::Result<Descriptor> atTheTop(int top);
    platform::Status find(int parent);
    platform::Result<Descriptor> open(int parent, const Disk& disk);
    platform::Status move(int parent, const char* name, const Descriptor& entry, platform::Force force,
                          const std::string& origin) const;
    [[nodiscard]] platform::Status note(const std::string& kept, const std::string& origin) const;

    // Of the disk that was asked for last.
    Disk disk_;
    Descriptor files_;
    Descriptor info_;
    std::string top_; ///< what the noted paths leave out
};

} // namespace brovin::posix
