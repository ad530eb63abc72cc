#pragma once

#include "posix/flock_scan_lock.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <string>

namespace brovin::posix {

/// Another copy of the program, which scans until it is killed.
class OtherCopy {
public:
    explicit OtherCopy(const std::string& folder) {
        int ready[2] = {};
        EXPECT_EQ(0, ::pipe(ready));
        process_ = ::fork();
        if (process_ == 0) {
            const auto hold = FlockScanLock(folder).tryHold();
            if (::write(ready[1], hold ? "y" : "n", 1) == 1)
                ::pause();
            ::_exit(0);
        }
        EXPECT_EQ(1, ::read(ready[0], &answer_, 1));
        ::close(ready[0]);
        ::close(ready[1]);
    }
    ~OtherCopy() {
        ::kill(process_, SIGKILL);
        ::waitpid(process_, nullptr, 0);
    }
    OtherCopy(const OtherCopy&) = delete;
    OtherCopy& operator=(const OtherCopy&) = delete;

    [[nodiscard]] bool holds() const { return answer_ == 'y'; }

private:
    pid_t process_ = -1;
    char answer_ = 'n';
};

} // namespace brovin::posix
