#include "headless/json_text.h"

#include <gtest/gtest.h>

namespace brovin::headless {
namespace {

TEST(JsonString, carriesAnyName) {
    EXPECT_EQ("\"plain\"", jsonString("plain"));
    EXPECT_EQ(R"("a\"b\\c")", jsonString("a\"b\\c"));
    EXPECT_EQ(R"("Icon\u000d\u000a\u007f")", jsonString("Icon\r\n\x7f"));
    EXPECT_EQ(R"("gnp.\u202eexe\u009b0m\udb40\udc41")", jsonString("gnp.\u202Eexe\u009b0m\U000E0041"));
    EXPECT_EQ("\"\uFFFDgr\u00fcn\"", jsonString("\xFFgr\u00fcn"));
}

} // namespace
} // namespace brovin::headless
