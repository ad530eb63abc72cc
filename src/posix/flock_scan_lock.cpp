#include "posix/flock_scan_lock.h"

#include "posix/make_folders.h"
#include "posix/open_folder.h"
#include "posix/system_call.h"

#include <sys/file.h>
#include <sys/stat.h>

namespace brovin::posix {
namespace {

class FlockHold final : public platform::ScanLock::Hold {
public:
    explicit FlockHold(Descriptor folder) : folder_(std::move(folder)) {}

private:
    Descriptor folder_;
};

enum class Attempt { Held, HeldByAnother, NotPossible };

/// Whether nobody else can open the folder, and with it keep the lock from this user for as long as he likes.
bool isPrivate(int folder) {
    struct stat facts {};
    return ::fstat(folder, &facts) == 0 && (facts.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

Attempt attempt(const platform::Result<Descriptor>& folder) {
    if (!folder || !isPrivate((*folder).number()))
        return Attempt::NotPossible;
    const int number = (*folder).number();
    if (uninterrupted([number] { return ::flock(number, LOCK_EX | LOCK_NB); }) == 0)
        return Attempt::Held;
    return errno == EWOULDBLOCK ? Attempt::HeldByAnother : Attempt::NotPossible;
}

/// Of "/a/b/" it is "/a", of "a" it is ".", of "/" it is empty.
std::string folderAbove(const std::string& path) {
    const std::size_t nameEnd = path.find_last_not_of('/');
    if (nameEnd == std::string::npos)
        return {};
    const std::size_t slash = path.rfind('/', nameEnd);
    if (slash == std::string::npos)
        return path == "." ? "" : ".";
    return path.substr(0, slash == 0 ? 1 : slash);
}

} // namespace

std::unique_ptr<platform::ScanLock::Hold> FlockScanLock::tryHold() {
    // Whether it could be made shows below.
    static_cast<void>(makeFolders(folder_));
    makePrivate(folder_);
    for (std::string path = folder_; !path.empty(); path = folderAbove(path)) {
        platform::Result<Descriptor> folder = openFolder(path);
        const Attempt result = attempt(folder);
        if (result == Attempt::Held)
            return std::make_unique<FlockHold>(std::move(*folder));
        if (result == Attempt::HeldByAnother)
            return nullptr;
    }
    // No folder that is this user's alone takes a lock; a scan that never runs would serve nobody.
    return std::make_unique<FlockHold>(Descriptor());
}

} // namespace brovin::posix
