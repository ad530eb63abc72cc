#include <QCoreApplication>

#include <gtest/gtest.h>

/// There is no sound server, whatever the machine has.
int main(int argc, char** argv) {
    qputenv("PULSE_SERVER", "unix:/nonexistent/native");
    ::testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
