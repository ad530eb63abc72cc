#pragma once

#include <gtest/gtest.h>

#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <functional>

namespace brovin::posix {

/// Lets the calling process mount things that no other sees. False: it may not.
inline bool hideOwnMounts() {
    const uid_t user = ::geteuid();
    const gid_t group = ::getegid();
    if (::unshare(CLONE_NEWNS) != 0) {
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return false;
        std::ofstream("/proc/self/setgroups") << "deny";
        std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
        std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
    }
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

/// Runs a test in a process of its own, where it may mount; its mounts end with it. Skips the calling test
/// where that is not allowed.
inline void withOwnMounts(const std::function<void()>& test) {
    constexpr int kNotAllowed = 77;
    const pid_t child = ::fork();
    ASSERT_NE(-1, child);
    if (child == 0) {
        if (!hideOwnMounts())
            ::_exit(kNotAllowed);
        test();
        ::_exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(child, ::waitpid(child, &status, 0));
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == kNotAllowed)
        GTEST_SKIP() << "this user may not mount anything here";
    ASSERT_EQ(0, WEXITSTATUS(status)) << "see the failures above";
}

} // namespace brovin::posix
