#include "cleaner/delete_rules.h"

#include <gtest/gtest.h>

namespace brovin::cleaner {
namespace {

TEST(DeleteRules, decideByTheNameAlone) {
    const NameSet names({{"thumbs.db", 0}, {"icon", 0}});
    constexpr DeleteRules kAll{true, true};
    constexpr DeleteRules kNoRules{false, false};
    const std::tuple<std::string_view, DeleteRules, Match, std::string_view> cases[] = {
        {"thumbs.db", kNoRules, Match::Listed, "is on the list"},
        {"thumbs.db ", kAll, Match::None, "one blank more"},
        {"thumbs", kAll, Match::None, "a beginning is not the name"},
        {"*", kAll, Match::None, "there are no wildcards"},
        {"._notes", kAll, Match::DotDash, "begins with the mark"},
        {"._", kAll, Match::DotDash, "nothing need follow the mark"},
        {"._notes", {true, false}, Match::None, "the option is off"},
        {"notes._", kAll, Match::None, "the mark is at the end"},
        {".notes", kAll, Match::None, "half a mark"},
        {"icon?", kAll, Match::Icon, "the icon file itself"},
        {"iconic places?", kAll, Match::Icon, "any length between the two ends"},
        {"icon?", {false, true}, Match::None, "the option is off"},
        {"icon", kAll, Match::Listed, "no carriage return, but on the list"},
        {"icons", kAll, Match::None, "no carriage return"},
        {"my icon?", kAll, Match::None, "the word is not in front"},
    };
    for (const auto& [name, rules, match, why] : cases)
        EXPECT_EQ(match, rules.match(name, names)) << name << ": " << why;
}

TEST(DeleteRules, needAListForTheMarkButNotForIcons) {
    EXPECT_EQ(Match::None, (DeleteRules{true, true}.match("._notes", NameSet({}))));
    EXPECT_EQ(Match::Icon, (DeleteRules{true, true}.match("icon?", NameSet({}))));
    const NameSet names({{"icon?", 0}});
    EXPECT_EQ(Match::Icon, (DeleteRules{true, true}.match("icon?", names))) << "four kilobytes, not its size";
    EXPECT_EQ(Match::Listed, (DeleteRules{false, true}.match("icon?", names)));
}

} // namespace
} // namespace brovin::cleaner
