#pragma once

#include "platform/landmarks.h"
#include "posix/places.h"

namespace brovin::posix {

/// Homes by the system's list of users; disks by their mount points.
class PosixLandmarks final : public platform::Landmarks {
public:
    explicit PosixLandmarks(const Places& places);

    [[nodiscard]] std::string realPath(const std::string& path) const override;
    [[nodiscard]] std::string home() const override { return home_; }
    [[nodiscard]] std::vector<std::string> otherHomes() const override;
    [[nodiscard]] std::vector<std::string> systemFolders() const override;
    [[nodiscard]] std::vector<std::string> programFolders() const override { return own_; }
    [[nodiscard]] bool isDisk(const std::string& realPath) const override;

private:
    std::string home_;
    std::vector<std::string> own_;
};

} // namespace brovin::posix
