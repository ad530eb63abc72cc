#pragma once

#include "platform/download_folder.h"
#include "posix/descriptor.h"

#include <string>
#include <vector>

namespace brovin::net {

/// A download in an open folder. What is verified and what is started is what the descriptor refers to.
class PrivateFile final : public platform::DownloadFile {
public:
    PrivateFile(posix::Descriptor folder, posix::Descriptor file, std::string folderPath, std::string name)
        : folder_(std::move(folder)), file_(std::move(file)),
          folderPath_(std::move(folderPath)), names_{std::move(name)} {}

    [[nodiscard]] std::string name() const override { return folderPath_ + "/" + names_.front(); }
    platform::Status append(std::string_view bytes) override;
    platform::Status close() override;
    [[nodiscard]] std::uint64_t size() const override;
    platform::Result<std::string> sha512(const std::function<bool()>& goOn) override;
    platform::Status alsoNamed(std::string_view ending) override;
    void remove() override;
    platform::Status startInstaller() override;

private:
    platform::Status writeOut();
    platform::Status startPackage();
    platform::Status startExecutable();

    posix::Descriptor folder_;
    posix::Descriptor file_;
    std::string folderPath_;
    std::vector<std::string> names_; ///< the first is its own
    std::string heldBack_;
};

} // namespace brovin::net
