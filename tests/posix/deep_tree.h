#pragma once

#include "posix/descriptor.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <stdexcept>
#include <string>

namespace brovin::posix {

/// The name of each folder of a deep tree: a few dozen of them make a path longer than the system takes.
inline const std::string kDeepName(100, 'd');

/// Makes folders of that name one in the other below `top`, and in the last a file "bottom" of three bytes.
inline void makeDeepTree(const std::string& top, int levels) {
    Descriptor place(::open(top.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (int level = 0; level < levels && place; ++level) {
        const bool made = ::mkdirat(place.number(), kDeepName.c_str(), 0755) == 0;
        place = Descriptor(
            made ? ::openat(place.number(), kDeepName.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC) : -1);
    }
    const Descriptor file(::openat(place.number(), "bottom", O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    if (!file || ::write(file.number(), "abc", 3) != 3)
        throw std::runtime_error("no deep tree");
}

/// While it lives, this process may hold so many files open and no more.
class DescriptorLimit {
public:
    explicit DescriptorLimit(rlim_t most) {
        ::getrlimit(RLIMIT_NOFILE, &before_);
        const rlimit few{most, before_.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &few);
    }
    ~DescriptorLimit() { ::setrlimit(RLIMIT_NOFILE, &before_); }
    DescriptorLimit(const DescriptorLimit&) = delete;
    DescriptorLimit& operator=(const DescriptorLimit&) = delete;

private:
    rlimit before_{};
};

} // namespace brovin::posix
