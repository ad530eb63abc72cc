#pragma once

#include "platform/program_folder.h"
#include "text/strings.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace brovin::fakes {

/// The program's folder in memory.
class FakeProgramFolder final : public platform::ProgramFolder {
public:
    std::map<std::string, std::string> files;
    bool refusesWriting = false;

    /// The lines of a file that was written, without their CR LF.
    [[nodiscard]] std::vector<std::string> lines(const std::string& name) const {
        std::vector<std::string> lines;
        const auto file = files.find(name);
        std::string rest = file == files.end() ? "" : file->second;
        for (std::size_t end = rest.find("\r\n"); end != std::string::npos; end = rest.find("\r\n")) {
            lines.push_back(rest.substr(0, end));
            rest.erase(0, end + 2);
        }
        return lines;
    }

    [[nodiscard]] std::vector<std::string> list(std::string_view ending) override {
        std::vector<std::string> names;
        for (const auto& [name, content] : files)
            if (text::asciiLower(name).ends_with(ending))
                names.push_back(name);
        return names;
    }
    [[nodiscard]] std::optional<std::string> read(const std::string& name, std::size_t limit) override {
        const auto file = files.find(name);
        if (!isPlain(name) || file == files.end() || file->second.size() > limit)
            return std::nullopt;
        return file->second;
    }
    platform::Result<std::unique_ptr<platform::LineWriter>> openText(const std::string& name,
                                                                     platform::OpenMode mode) override {
        if (refusesWriting || !isPlain(name))
            return platform::Failure{13, "Permission denied"};
        if (mode == platform::OpenMode::Replace)
            files[name].clear();
        return std::unique_ptr<platform::LineWriter>(std::make_unique<Writer>(files[name]));
    }
    platform::Status replace(const std::string& name, std::string_view content) override {
        if (refusesWriting || !isPlain(name))
            return platform::Failure{28, "No space left on device"};
        files[name] = content;
        return platform::Done{};
    }
    [[nodiscard]] std::string path(const std::string& name) override {
        return isPlain(name) ? "/program/" + name : "";
    }

private:
    [[nodiscard]] static bool isPlain(const std::string& name) {
        return !name.empty() && name != "." && name != ".." &&
               name.find_first_of(std::string_view("/\0", 2)) == std::string::npos;
    }

    class Writer final : public platform::LineWriter {
    public:
        explicit Writer(std::string& content) : content_(content) {}
        platform::Status writeLine(std::string_view line) override {
            content_.append(line).append("\r\n");
            return platform::Done{};
        }

    private:
        std::string& content_;
    };
};

} // namespace brovin::fakes
