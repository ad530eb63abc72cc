#include "net/start_program.h"

#include "posix/descriptor.h"
#include "posix/system_call.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

namespace brovin::net {
namespace {

using platform::Status;
using posix::Descriptor;
using posix::lastFailure;
using posix::uninterrupted;

/// Runs `execute`, which only returns when it fails, in a process that belongs to nobody here. The error
/// number comes back through a pipe that a success closes. After the fork nothing is called that could wait
/// for another thread.
template <class Execute>
Status startDetached(Execute execute) {
    int ends[2] = {};
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return lastFailure();
    const Descriptor reading(ends[0]);
    Descriptor writing(ends[1]);
    const pid_t child = ::fork();
    if (child < 0)
        return lastFailure();
    if (child == 0) {
        ::setsid();
        if (::fork() != 0)
            ::_exit(0);
        ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC); // whatever some library has left open
        execute();
        const int number = errno;
        static_cast<void>(!::write(ends[1], &number, sizeof number));
        ::_exit(1);
    }
    uninterrupted([child] { return ::waitpid(child, nullptr, 0); });
    writing = Descriptor();
    int number = 0;
    const ssize_t told = uninterrupted([&] { return ::read(reading.number(), &number, sizeof number); });
    return told == sizeof number ? Status(posix::systemFailure(number)) : Status(platform::Done{});
}

std::vector<char*> pointersTo(std::vector<std::string>& arguments) {
    std::vector<char*> pointers;
    std::transform(arguments.begin(), arguments.end(), std::back_inserter(pointers),
                   [](std::string& argument) { return argument.data(); });
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

Status startProgram(const std::string& name, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), name);
    const std::vector<char*> pointers = pointersTo(arguments);
    return startDetached([&] { ::execvp(name.c_str(), pointers.data()); });
}

Status startDescriptor(int file, std::string name) {
    std::vector<std::string> arguments{std::move(name)};
    const std::vector<char*> pointers = pointersTo(arguments);
    return startDetached([&] { ::fexecve(file, pointers.data(), environ); });
}

} // namespace brovin::net
