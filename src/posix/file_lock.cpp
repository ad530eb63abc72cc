#include "posix/file_lock.h"

#include "posix/system_call.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <thread>

namespace brovin::posix {

FileLock::FileLock(const std::string& path, std::chrono::milliseconds patience)
    : file_(uninterrupted([&path] {
          return ::open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC,
                        S_IRUSR | S_IWUSR);
      })) {
    if (!file_)
        return;
    const auto until = std::chrono::steady_clock::now() + patience;
    const auto locked = [this] { return ::flock(file_.number(), LOCK_EX | LOCK_NB); };
    while (uninterrupted(locked) != 0 && errno == EWOULDBLOCK) {
        held_ = std::chrono::steady_clock::now() < until;
        if (!held_)
            return;
        // Much longer than the moment in which another that writes on and on lets go, and it is never met.
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
}

} // namespace brovin::posix
