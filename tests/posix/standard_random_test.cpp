#include "posix/standard_random.h"

#include <gtest/gtest.h>

namespace brovin::posix {
namespace {

TEST(StandardRandom, isTheUpper53BitsOfTheTwisterAndBegunAgainByItsSeed) {
    StandardRandom random;
    random.seed(7);
    random.seed(5489); // for which the language's standard states the 10,000th number: 9981545732273789042
    for (int i = 1; i < 10'000; ++i)
        static_cast<void>(random.next());
    EXPECT_EQ(0.5411006783847329, random.next());
}

} // namespace
} // namespace brovin::posix
