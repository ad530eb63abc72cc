#include "posix/file_head.h"

#include "posix/descriptor.h"
#include "posix/system_call.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brovin::posix {

platform::Result<std::size_t> headOf(int folder, const char* name, std::span<std::uint8_t> memory) {
    constexpr int kFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const Descriptor file(uninterrupted([folder, name] { return ::openat(folder, name, kFlags); }));
    struct stat facts {};
    if (!file || ::fstat(file.number(), &facts) != 0)
        return lastFailure();
    if (!S_ISREG(facts.st_mode))
        return systemFailure(EINVAL);
    // Without this the system reads many times as much, for a reader who would go on.
    static_cast<void>(::posix_fadvise(file.number(), 0, 0, POSIX_FADV_RANDOM));
    std::size_t count = 0;
    while (count < memory.size()) {
        const std::span<std::uint8_t> rest = memory.subspan(count);
        const ssize_t got =
            uninterrupted([&file, rest] { return ::read(file.number(), rest.data(), rest.size()); });
        if (got < 0)
            return lastFailure();
        if (got == 0)
            break;
        count += static_cast<std::size_t>(got);
    }
    return count;
}

} // namespace brovin::posix
