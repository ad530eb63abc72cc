#include "posix/replace_file.h"

#include "posix/descriptor.h"
#include "posix/open_folder.h"
#include "posix/system_call.h"
#include "posix/write_all.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace brovin::posix {
namespace {

platform::Status onDisk(platform::Status written, const Descriptor& file) {
    if (written && ::fsync(file.number()) != 0)
        return lastFailure();
    return written;
}

} // namespace

platform::Status replaceFile(const std::string& path, std::string_view content, mode_t mode) {
    const std::string fresh = path + ".new";
    const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    ::unlink(fresh.c_str());
    const Descriptor file(uninterrupted([&] { return ::open(fresh.c_str(), flags, mode); }));
    if (!file)
        return lastFailure();
    platform::Status written = onDisk(writeAll(file.number(), content), file);
    if (written && ::rename(fresh.c_str(), path.c_str()) != 0)
        written = lastFailure();
    if (!written) {
        ::unlink(fresh.c_str());
        return written;
    }
    // Some file systems cannot flush a folder; the file is in its place for all who read it now.
    if (const auto folder = openFolder(path.substr(0, path.rfind('/') + 1)))
        static_cast<void>(onDisk(platform::Done{}, *folder));
    return platform::Done{};
}

} // namespace brovin::posix
