#include "net/private_downloads.h"

#include "net/private_file.h"
#include "platform/reasons.h"
#include "posix/directory_reader.h"
#include "posix/open_folder.h"
#include "posix/system_call.h"

#include <sodium.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <vector>

namespace brovin::net {
namespace {

namespace reason = platform::reason;
using platform::Failure;
using posix::Descriptor;
using posix::lastFailure;
using posix::uninterrupted;

/// A part of a file's name that nobody guesses.
std::string randomName() {
    constexpr std::size_t kBytes = 8;
    unsigned char bytes[kBytes];
    randombytes_buf(bytes, sizeof bytes);
    char hex[2 * kBytes + 1];
    return sodium_bin2hex(hex, sizeof hex, bytes, sizeof bytes);
}

} // namespace

platform::Result<Descriptor> PrivateDownloads::open() const {
    if (::mkdir(path_.c_str(), S_IRWXU) != 0 && errno != EEXIST)
        return lastFailure();
    Descriptor folder(
        uninterrupted([this] { return ::open(path_.c_str(), posix::kFolderFlags | O_NOFOLLOW); }));
    if (!folder)
        return lastFailure();
    struct stat facts {};
    if (::fstat(folder.number(), &facts) != 0)
        return lastFailure();
    if (facts.st_uid != ::geteuid())
        return Failure{EACCES, reason::kOthersFolder};
    if ((facts.st_mode & (S_IRWXG | S_IRWXO)) != 0 && ::fchmod(folder.number(), S_IRWXU) != 0)
        return lastFailure();
    return folder;
}

void PrivateDownloads::removeLeftOvers(std::string_view prefix, std::string_view ending) {
    const auto folder = open();
    posix::DirectoryReader reader;
    if (!folder || !reader.read((*folder).number()))
        return;
    std::vector<std::string> names;
    while (const auto record = reader.next()) {
        std::string name(record->name);
        if (name.starts_with(prefix) && name.ends_with(ending))
            names.push_back(std::move(name));
    }
    for (const std::string& name : names)
        ::unlinkat((*folder).number(), name.c_str(), 0);
}

platform::Result<std::unique_ptr<platform::DownloadFile>> PrivateDownloads::create(std::string_view prefix) {
    if (sodium_init() < 0)
        return Failure{ENOSYS, reason::kNoChance};
    auto folder = open();
    if (!folder)
        return folder.failure();
    const std::string name = std::string(prefix) + randomName() + ".tmp";
    const int flags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    Descriptor file(
        uninterrupted([&] { return ::openat((*folder).number(), name.c_str(), flags, S_IRUSR | S_IWUSR); }));
    if (!file)
        return lastFailure();
    return std::unique_ptr<platform::DownloadFile>(
        std::make_unique<PrivateFile>(*std::move(folder), std::move(file), path_, name));
}

std::string downloadFolderPath() {
    std::error_code none;
    std::filesystem::path temporary = std::filesystem::temp_directory_path(none);
    if (none)
        temporary = "/tmp";
    return (temporary / ("brovin-" + std::to_string(::geteuid()))).string();
}

} // namespace brovin::net
