#include "posix/entry_name.h"

#include <gtest/gtest.h>

namespace brovin::posix {
namespace {

TEST(ShownName, isInLowerCaseWithoutCarriageReturns) {
    constexpr struct {
        std::string_view trueName;
        std::string_view shown;
        std::string_view why;
    } kCases[] = {
        {"@[`{az AZ 09", "@[`{az az 09", "the neighbours of the letters stay"},
        {"Icon\uF00D", "icon?", "the same from a file server"},
        {"\rA\r", "?a?", "anywhere in the name"},
        {"\u00C4RGER \u0416 \u03A9", "\u00E4rger \u0436 \u03C9", "Unicode"},
        {"\u212A", "k", "a lower case of fewer bytes"},
        {"\u023A", "\u2C65", "a lower case of more bytes"},
        {"A\xFF\xC3", "a\xFF\xC3", "stray bytes stay"},
        {"\xEF\x80", "\xEF\x80", "the beginning of U+F00D is no U+F00D"},
        {"\nA", "\na", "other control characters stay"},
    };
    for (const auto& [trueName, shown, why] : kCases) {
        std::string memory;
        EXPECT_EQ(shown, shownName(trueName, memory)) << why;
        EXPECT_LE(memory.size(), roomForShownNames(trueName.size())) << why;
    }
}

TEST(ShownName, leavesEarlierNamesInTheirPlace) {
    std::string memory;
    memory.reserve(roomForShownNames(12));
    const std::string_view first = shownName("Ab", memory);
    const std::string_view second = shownName("\u023A\u023A", memory);
    const std::string_view third = shownName("CD\r", memory);
    const std::string_view same = "notes.txt";
    EXPECT_EQ("ab", first);
    EXPECT_EQ("\u2C65\u2C65", second);
    EXPECT_EQ("cd?", third);
    EXPECT_EQ(same.data(), shownName(same, memory).data()) << "a name that stays shares its bytes";
}

} // namespace
} // namespace brovin::posix
