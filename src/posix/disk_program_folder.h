#pragma once

#include "platform/program_folder.h"

#include <optional>
#include <string>

namespace brovin::posix {

struct ProgramFolderPaths {
    std::string installed; ///< only read
    std::string own; ///< wins for reading, takes all writing; made at the first write, for this user alone
};

/// The program's folder, made of two on the disk. Both paths may be the same. Only regular files count, or
/// links to such: nothing that is put there can make the program wait.
class DiskProgramFolder final : public platform::ProgramFolder {
public:
    explicit DiskProgramFolder(ProgramFolderPaths paths) : paths_(std::move(paths)) {}

    [[nodiscard]] std::vector<std::string> list(std::string_view ending) override;
    [[nodiscard]] std::optional<std::string> read(const std::string& name, std::size_t limit) override;
    platform::Result<std::unique_ptr<platform::LineWriter>> openText(const std::string& name,
                                                                     platform::OpenMode mode) override;
    platform::Status replace(const std::string& name, std::string_view content) override;
    [[nodiscard]] std::string path(const std::string& name) override;

private:
    ProgramFolderPaths paths_;
};

} // namespace brovin::posix
