#pragma once

#include "platform/result.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::platform {

/// A text file that is being written. Closed when it is destroyed.
class LineWriter {
public:
    virtual ~LineWriter() = default;

    /// Writes one line with a CR LF ending through to the system, so that a kill loses no line.
    virtual Status writeLine(std::string_view line) = 0;
};

enum class OpenMode { Append, Replace };

/// The program's own folder, where its language files, pictures and log are. It may be made of an installed,
/// read-only folder and one of the user's, which wins for reading and takes all writing. Names are plain file
/// names without a path.
class ProgramFolder {
public:
    virtual ~ProgramFolder() = default;

    /// The names of all files that end in `ending` (in small letters; a name may have others), sorted.
    [[nodiscard]] virtual std::vector<std::string> list(std::string_view ending) = 0;

    /// The whole file; nullopt when it is missing, not readable or larger than `limit` bytes.
    [[nodiscard]] virtual std::optional<std::string> read(const std::string& name, std::size_t limit) = 0;

    /// Opens a text file for writing; it is made when it is missing.
    virtual Result<std::unique_ptr<LineWriter>> openText(const std::string& name, OpenMode mode) = 0;

    /// Writes a whole file, in place of one that is there, in a single step: at every moment the name stands
    /// for the old content or the new one. Failure: the old one stays.
    virtual Status replace(const std::string& name, std::string_view content) = 0;

    /// Where the file is, or would be written, for other programs to open.
    [[nodiscard]] virtual std::string path(const std::string& name) = 0;
};

} // namespace brovin::platform
