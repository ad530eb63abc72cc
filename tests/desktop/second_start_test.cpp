#include "desktop/program_process.h"

#include <gtest/gtest.h>

namespace brovin::tests {
namespace {

/// Puts the window into the task bar, which is where it stays on a desktop without a notification area.
bool minimise() {
    return waitUntil([] {
        askDesktop({"search", "--onlyvisible", "--name", kWindow, "windowminimize"});
        return !windowOnScreen();
    });
}

TEST(SecondStart, bringsTheFirstOnesWindowUpWhereThereIsNoNotificationArea) {
    const QTemporaryDir root;
    // As after "su", on a small desktop, and on one that prefers what the program cannot use.
    const QStringList environment = {"XDG_RUNTIME_DIR=", "QT_QPA_PLATFORM=wayland;xcb"};
    Process first(root.path(), environment);
    ASSERT_TRUE(startedIn(root.path()));
    for (const bool hidden : {true, false}) { // it has not come up by itself; it has been put away
        EXPECT_TRUE(hidden || minimise());
        EXPECT_FALSE(windowOnScreen());
        bringUp(root.path(), environment);
    }
    EXPECT_EQ(QByteArray::number(first.pid()), askDesktop({"getactivewindow", "getwindowpid"}));
    EXPECT_FALSE(first.ends(100));
    EXPECT_EQ(QByteArray(), first.complaints());
}

} // namespace
} // namespace brovin::tests
