#include "posix/make_folders.h"

#include "posix/system_call.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace brovin::posix {

platform::Status makeFolders(const std::string& path) {
    for (std::size_t end = 0; end < path.size();) {
        end = std::min(path.find('/', end + 1), path.size());
        if (::mkdir(path.substr(0, end).c_str(), S_IRWXU) != 0 && errno != EEXIST && end == path.size())
            return lastFailure();
    }
    return platform::Done{};
}

void makePrivate(const std::string& path) {
    struct stat facts {};
    if (::lstat(path.c_str(), &facts) == 0 && !S_ISLNK(facts.st_mode) && facts.st_uid == ::geteuid() &&
        (facts.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        static_cast<void>(::chmod(path.c_str(), facts.st_mode & S_IRWXU));
}

} // namespace brovin::posix
