#pragma once

#include "platform/result.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace brovin::platform {

/// A temporary file of this user's that takes a download. It is held open, and every operation is about the
/// open file, whatever is put in its place under its name.
class DownloadFile {
public:
    virtual ~DownloadFile() = default;

    /// The full path.
    [[nodiscard]] virtual std::string name() const = 0;

    virtual Status append(std::string_view bytes) = 0;
    /// Writes out what is still held back. From here on the file can only be read.
    virtual Status close() = 0;
    /// How many bytes the closed file has on the disk.
    [[nodiscard]] virtual std::uint64_t size() const = 0;
    /// The SHA-512 of the closed file, in hex of lower case. `goOn` is called between pieces, and ends the
    /// work by answering false.
    virtual Result<std::string> sha512(const std::function<bool()>& goOn) = 0;
    /// Gives the closed file a second name: its own with `ending` appended.
    virtual Status alsoNamed(std::string_view ending) = 0;
    /// Deletes the file under all its names. It can still be open.
    virtual void remove() = 0;

    /// Starts the closed file as an installer, told by its content: a package goes to the desktop's
    /// installer, an executable is made executable and runs by itself. Failure: it is neither, or cannot be
    /// started.
    virtual Status startInstaller() = 0;
};

/// The user's private folder for downloads, which nobody else can put anything into.
class DownloadFolder {
public:
    virtual ~DownloadFolder() = default;

    /// Deletes the files whose names begin and end so. A link is deleted itself and never followed.
    virtual void removeLeftOvers(std::string_view prefix, std::string_view ending) = 0;
    /// Makes a file of a new name that begins with `prefix` and ends in ".tmp". Failure: the disk refuses, or
    /// the folder is not this user's alone.
    virtual Result<std::unique_ptr<DownloadFile>> create(std::string_view prefix) = 0;
};

} // namespace brovin::platform
