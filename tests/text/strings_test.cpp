#include "text/strings.h"

#include <gtest/gtest.h>

namespace brovin::text {
namespace {

using Pieces = std::vector<std::string_view>;

TEST(Split, keepsEmptyPiecesButNotOfAnEmptyText) {
    EXPECT_EQ(Pieces{}, split("", '|'));
    EXPECT_EQ((Pieces{"a"}), split("a", '|'));
    EXPECT_EQ((Pieces{"a", "", "b", ""}), split("a||b|", '|'));
    EXPECT_EQ((Pieces{"", ""}), split("|", '|'));
}

TEST(Trim, takesBlanksOnly) {
    EXPECT_EQ("a b", trim("  a b "));
    EXPECT_EQ("\ta", trim("\ta"));
    EXPECT_EQ("", trim("   "));
}

TEST(Replace, goesFromTheLeftAndNeverBack) {
    EXPECT_EQ("xbxb", replaceAll("abab", "a", "x"));
    EXPECT_EQ("aaaa", replaceAll("aa", "a", "aa")) << "what was put in is not looked at again";
    EXPECT_EQ("aa", replaceAll("aa", "", "x"));
    EXPECT_EQ("xa", replaceFirst("aa", "a", "x"));
    EXPECT_EQ("b", replaceFirst("b", "a", "x"));
}

} // namespace
} // namespace brovin::text
