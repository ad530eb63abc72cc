#pragma once

#include <string>
#include <vector>

namespace brovin::platform {

/// The places of this machine that nobody wants to sweep by mistake. All paths are full ones, without a link
/// in them and without a separator at the end.
class Landmarks {
public:
    virtual ~Landmarks() = default;

    /// Where a path leads; the path itself where nothing is.
    [[nodiscard]] virtual std::string realPath(const std::string& path) const = 0;

    /// The user's own home; "": there is none.
    [[nodiscard]] virtual std::string home() const = 0;
    /// The homes of the other people on this machine.
    [[nodiscard]] virtual std::vector<std::string> otherHomes() const = 0;
    /// Folders that belong to the system with all that is in them, and those that hold other people's things.
    [[nodiscard]] virtual std::vector<std::string> systemFolders() const = 0;
    /// The folders in which this program keeps its own files, and it itself is.
    [[nodiscard]] virtual std::vector<std::string> programFolders() const = 0;
    /// Whether a disk, or a part of one, is hung in here.
    [[nodiscard]] virtual bool isDisk(const std::string& realPath) const = 0;
};

} // namespace brovin::platform
