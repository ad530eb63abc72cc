#include "companion/word_generator.h"

#include "companion/companion_world.h"

#include <gtest/gtest.h>

#include <set>

namespace brovin::companion {
namespace {

TEST(MakeWord, isFixedByTheDraw) {
    constexpr std::pair<std::size_t, std::string_view> kCases[] = {
        {0, "Fleecy"}, {3, "Dangle"}, {7, "Juicy/Juice"}, {55, "Dangle"}, {124, "strudel"}, {146, "Broth"},
    };
    for (const auto& [index, word] : kCases) {
        fakes::FakeRandom random;
        random.draws = {CompanionWorld::drawOf(index, 147)};
        EXPECT_EQ(word, makeWord(random)) << index;
    }
    fakes::FakeRandom random;
    random.draws = {0.9999999999999999};
    EXPECT_EQ("Broth", makeWord(random)) << "the largest draw there is";
}

TEST(MakeWord, reachesEveryWordByDrawsOfItsOwn) {
    fakes::FakeRandom random;
    std::multiset<std::string> words;
    for (std::size_t i = 0; i < 147; ++i)
        random.draws.push_back(CompanionWorld::drawOf(i, 147));
    for (int i = 0; i < 147; ++i)
        words.insert(makeWord(random));
    EXPECT_TRUE(random.draws.empty());
    EXPECT_EQ(2U, words.count("Dangle"));
    EXPECT_EQ(146U, std::set(words.begin(), words.end()).size()) << "no other word stands twice";
}

} // namespace
} // namespace brovin::companion
