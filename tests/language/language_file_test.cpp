#include "language/language_file.h"

#include <gtest/gtest.h>

namespace brovin::language {
namespace {

using Lines = std::vector<std::string>;

TEST(LinesOf, readsWhatEditorsWrite) {
    const std::tuple<std::string_view, Lines, std::string_view> cases[] = {
        {"", {}, "nothing"},
        {"a\nb", {"a", "b"}, "no ending on the last line"},
        {"a\r\n\r\nb\r\n", {"a", "", "b", ""}, "both signs"},
        {"a\rb\n", {"a\rb", ""}, "a carriage return alone ends nothing"},
        {"\xEF\xBB\xBFkey=1", {"key=1"}, "a byte-order mark is not part of the first key"},
        {"gr\xC3\xBCn", {"gr\u00FCn"}, "UTF-8"},
        {"gr\xFCn\n\x80", {"gr\u00FCn", "\u20AC"}, "Windows-1252"},
        {"gr\xC3\xBCn\n\xFC", {"gr\u00C3\u00BCn", "\u00FC"}, "one stray byte decides for the whole file"},
    };
    for (const auto& [bytes, lines, why] : cases)
        EXPECT_EQ(lines, linesOf(bytes)) << why;
}

TEST(KeyedLine, endsTheKeyAtTheFirstSign) {
    constexpr std::string_view kCases[][3] = {
        {"dlg7=a=b", "dlg7", "a=b"},
        {"  spkPoo  = x ", "spkPoo", " x "},
        {"modeid=", "modeid", ""},
        {"=x", "", "x"},
    };
    for (const auto& [line, key, value] : kCases) {
        const auto keyed = keyedLine(line);
        ASSERT_TRUE(keyed.has_value()) << line;
        EXPECT_EQ(key, keyed->key);
        EXPECT_EQ(value, keyed->value);
    }
    EXPECT_FALSE(keyedLine("; a remark").has_value());
    EXPECT_FALSE(keyedLine("").has_value());
}

} // namespace
} // namespace brovin::language
