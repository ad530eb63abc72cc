#include "posix/listing_guard.h"
#include "posix/outcome.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace brovin::posix {
namespace {

TEST(ListingGuard, stopsWhatRepeatsItselfSoonAfterItBegins) {
    for (const int length : {1, 2, 7, 100}) {
        ListingGuard guard;
        int portions = 0;
        int error = 0;
        for (; error == 0 && portions < 10'000; ++portions)
            error =
                errorOf(guard.admit(4096, {portions % length, "name" + std::to_string(portions % length)}));
        EXPECT_EQ(ELOOP, error) << length;
        EXPECT_LE(portions, 3 * length + 1) << length;
    }
}

TEST(ListingGuard, goesByMarkAndNameTogether) {
    ListingGuard guard; // some file systems give each entry the same mark
    for (int portion = 0; portion < 1'000; ++portion)
        EXPECT_EQ(0, errorOf(guard.admit(4096, {0, "name" + std::to_string(portion)})));
}

TEST(ListingGuard, stopsWhatHasNoEnd) {
    ListingGuard guard(10'000);
    EXPECT_EQ(0, errorOf(guard.admit(10'000, {1, "a"})));
    EXPECT_EQ(EOVERFLOW, errorOf(guard.admit(1, {2, "b"})));
}

} // namespace
} // namespace brovin::posix
