#include "posix/unicode_case.h"

#include <gtest/gtest.h>

namespace brovin::posix {
namespace {

TEST(ProperCase, raisesTheFirstLetterOfEachWord) {
    EXPECT_EQ("Joe Bloggs", properCase("joe BLOGGS"));
    EXPECT_EQ("\u00dcber Uns\xFF", properCase("\u00fcber uns\xFF"));
}

} // namespace
} // namespace brovin::posix
