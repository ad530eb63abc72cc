#pragma once

#include "platform/program_folder.h"

#include <functional>

namespace brovin::headless {

/// The program's folder, with somebody who is told when a log does not take what is written to it. The run
/// itself goes on: a full disk keeps nobody's clutter alive.
class LogWatch final : public platform::ProgramFolder {
public:
    explicit LogWatch(platform::ProgramFolder& beneath) : beneath_(beneath) {}

    /// Called for each try that fails, with the file's path.
    std::function<void(const std::string& path, const platform::Failure& why)> lost;

    [[nodiscard]] std::vector<std::string> list(std::string_view ending) override {
        return beneath_.list(ending);
    }
    [[nodiscard]] std::optional<std::string> read(const std::string& name, std::size_t limit) override {
        return beneath_.read(name, limit);
    }
    platform::Result<std::unique_ptr<platform::LineWriter>> openText(const std::string& name,
                                                                     platform::OpenMode mode) override;
    platform::Status replace(const std::string& name, std::string_view content) override {
        return beneath_.replace(name, content);
    }
    [[nodiscard]] std::string path(const std::string& name) override { return beneath_.path(name); }

private:
    platform::ProgramFolder& beneath_;
};

} // namespace brovin::headless
