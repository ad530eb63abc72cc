#include "posix/unicode_case.h"

#include <gtest/gtest.h>

namespace brovin::posix {
namespace {

TEST(LowerCase, knowsLettersBeyondAscii) {
    EXPECT_EQ("thumbs.db", lowerCase("Thumbs.DB"));
    EXPECT_EQ("\u00e4rger \u03c9 \u0436", lowerCase("\u00c4RGER \u03a9 \u0416"));
    EXPECT_EQ("a\xFF\xC3", lowerCase("A\xFF\xC3")) << "stray bytes stay";
}

TEST(ProperCase, raisesTheFirstLetterOfEachWord) {
    EXPECT_EQ("Joe Bloggs", properCase("joe BLOGGS"));
    EXPECT_EQ("Nasty Files", properCase("nasty files"));
    EXPECT_EQ("\u00dcber Uns", properCase("\u00fcber uns"));
    EXPECT_EQ("", properCase(""));
}

} // namespace
} // namespace brovin::posix
