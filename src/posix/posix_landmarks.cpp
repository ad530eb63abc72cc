#include "posix/posix_landmarks.h"

#include "posix/descriptor.h"
#include "posix/folder_facts.h"
#include "posix/mount_table.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>

#include <filesystem>

namespace brovin::posix {
namespace {

constexpr const char* kSystemFolders[] = {
    "/bin",    "/boot",       "/dev",     "/etc",     "/lib",       "/lib32",     "/lib64",
    "/libx32", "/lost+found", "/proc",    "/sbin",    "/run/lock",  "/run/user",  "/snap",
    "/sys",    "/usr",        "/var/lib", "/var/log", "/var/cache", "/var/spool",
};

/// Without links where the place is there, else as it is written.
std::string resolved(const std::string& path) {
    std::error_code missing;
    const std::filesystem::path real = std::filesystem::canonical(path, missing);
    return missing ? path : real.string();
}

/// Whether it is a person's: accounts of services have the system's own folders for homes.
bool isPerson(const passwd& user) {
    constexpr uid_t kFirstPerson = 1000;
    constexpr uid_t kNobody = 65534;
    return user.pw_uid == 0 || (user.pw_uid >= kFirstPerson && user.pw_uid != kNobody);
}

} // namespace

PosixLandmarks::PosixLandmarks(const Places& places) : home_(resolved(homeFolder())) {
    for (const std::string& folder :
         {places.ownFolder, places.settingsFolder, places.installedFolder, programFile()})
        if (!folder.empty())
            own_.push_back(resolved(folder));
    own_.back() = std::filesystem::path(own_.back()).parent_path().string(); // the executable's
}

std::string PosixLandmarks::realPath(const std::string& path) const {
    return resolved(path);
}

std::vector<std::string> PosixLandmarks::otherHomes() const {
    constexpr std::size_t kMost = 10'000; // a directory of a whole university takes too long
    std::vector<std::string> homes;
    ::setpwent();
    for (const passwd* user = ::getpwent(); user != nullptr && homes.size() < kMost; user = ::getpwent()) {
        const std::string folder = user->pw_dir == nullptr ? "" : user->pw_dir;
        if (isPerson(*user) && folder.size() > 1 && folder.front() == '/' && resolved(folder) != home_)
            homes.push_back(resolved(folder));
    }
    ::endpwent();
    return homes;
}

std::vector<std::string> PosixLandmarks::systemFolders() const {
    return {std::begin(kSystemFolders), std::end(kSystemFolders)};
}

bool PosixLandmarks::isDisk(const std::string& realPath) const {
    const Descriptor folder(::open(realPath.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    struct stat above {};
    if (!folder || ::stat((realPath + "/..").c_str(), &above) != 0)
        return false;
    const auto facts = factsOf(folder.number());
    return facts && (facts->device != above.st_dev || (facts->isMountPoint && !isHungInWhereItIs(realPath)));
}

} // namespace brovin::posix
