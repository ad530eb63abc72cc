#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace brovin::posix {

/// A folder on the disk that is there for one test. Paths are relative to it.
class ScratchFolder {
public:
    ScratchFolder() : root_((std::filesystem::temp_directory_path() / "brovin-XXXXXX").string()) {
        if (::mkdtemp(root_.data()) == nullptr)
            throw std::filesystem::filesystem_error("no scratch folder",
                                                    std::error_code(errno, std::generic_category()));
    }
    ~ScratchFolder() {
        std::error_code leftBehind;
        std::filesystem::remove_all(root_, leftBehind);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return root_; }
    [[nodiscard]] std::string path(const std::string& name) const { return root_ + "/" + name; }

    /// Parents are made.
    void addFolder(const std::string& name) const { std::filesystem::create_directories(path(name)); }

    /// Parents are made.
    void addFile(const std::string& name, std::uint64_t bytes = 0) const {
        addText(name, "");
        std::filesystem::resize_file(path(name), bytes);
    }

    void addText(const std::string& name, const std::string& content) const {
        std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
        std::ofstream(path(name), std::ios::binary) << content;
    }

    void addLink(const std::string& name, const std::string& target) const {
        std::filesystem::create_symlink(target, path(name));
    }

    void setMode(const std::string& name, unsigned mode) const {
        std::filesystem::permissions(path(name), static_cast<std::filesystem::perms>(mode));
    }

    [[nodiscard]] unsigned mode(const std::string& name) const {
        return static_cast<unsigned>(std::filesystem::status(path(name)).permissions());
    }

    /// All that is in it, sorted, links unfollowed.
    [[nodiscard]] std::vector<std::string> tree() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root_))
            names.push_back(entry.path().string().substr(root_.size() + 1));
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::string root_;
};

} // namespace brovin::posix
