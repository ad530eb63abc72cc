#include "desktop/metered_application.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const brovin::tests::MeteredApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brovin"));
    return RUN_ALL_TESTS();
}
