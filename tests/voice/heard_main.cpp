#include "voice/heard.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace brovin::voice {

SoundServer* HeardTest::server = nullptr;

} // namespace brovin::voice

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    brovin::voice::SoundServer server;
    brovin::voice::HeardTest::server = &server;
    return RUN_ALL_TESTS();
}
