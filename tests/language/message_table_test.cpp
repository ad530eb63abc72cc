#include "language/message_table.h"

#include <gtest/gtest.h>

namespace brovin::language {
namespace {

using Arguments = std::initializer_list<std::string_view>;

TEST(MessageTable, fillsInTheArgumentsAndThenTheLineBreaks) {
    const struct {
        std::string_view text;
        Arguments arguments;
        std::string_view message, why;
    } cases[] = {
        {"A\\nB", {}, "A\r\nB", "the mark is a line break"},
        {"%1 and %1, not %2", {"x"}, "x and x, not %2", "every place of the argument, no other"},
        {"%2 %1 %3", {"a", "b"}, "b a %3", "two arguments"},
        {"%1", {}, "%1", "no argument"},
        {"%1", {"x\\ny"}, "x\r\ny", "the marks of an argument count"},
        {"%1", {"%2", "b"}, "b", "a later placeholder in an argument is replaced"},
        {"%2", {"a", "%1"}, "%1", "an earlier one is not"},
        {"%1", {"%1"}, "%1", "nor is it replaced for ever"},
        {"%10 %11", {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k"}, "a0 a1", "one digit is all"},
        {"100%", {"a"}, "100%", "a sign alone"},
    };
    MessageTable table;
    for (const auto& [text, arguments, message, why] : cases) {
        ASSERT_TRUE(table.set(numberOf(Message::NastyNameTooLong), text));
        EXPECT_EQ(message, table.getMessage(Message::NastyNameTooLong, arguments)) << why;
    }
}

TEST(MessageTable, hasTheNumbersFrom0To100) {
    MessageTable table;
    EXPECT_TRUE(table.set(0, "first"));
    EXPECT_TRUE(table.set(100, "last"));
    EXPECT_FALSE(table.set(-1, "x"));
    EXPECT_FALSE(table.set(101, "x"));
    EXPECT_EQ("first", table.getMessage(Message::AskNastyName));
    EXPECT_EQ("last", table.getMessage(Message{100}));
    EXPECT_EQ("", table.getMessage(Message::SayLabel)) << "never set";
    table.clear();
    EXPECT_EQ("", table.getMessage(Message{100}));
}

TEST(MessageTable, hasTextsWithNamesWhichAreEnglishWhereTheFileIsSilent) {
    MessageTable table;
    EXPECT_EQ("The deletion log could not be opened:\r\n\r\n/log", table.getText("logNotOpened", {"/log"}));
    EXPECT_TRUE(table.setText("logNotOpened", "%1\\nklemmt"));
    EXPECT_FALSE(table.setText("lognotopened", "x"));
    EXPECT_EQ("/log\r\nklemmt", table.getText("logNotOpened", {"/log"}));
    table.clear();
    EXPECT_EQ("The disk did not take all of it.", table.getText("diskTookLess"));
}

TEST(MessageTable, tellsTheMachinesReasonsInTheLanguageWhereItHasThem) {
    MessageTable table;
    table.setText("reasonAnswered", "Antwort: %1");
    EXPECT_EQ("Antwort: 404", table.reason({404, "The server answered 404"}));
    EXPECT_EQ("The server is silent", table.reason({28, "The server is silent"}));
    EXPECT_EQ("No route to host", table.reason({113, "No route to host"}));
}

} // namespace
} // namespace brovin::language
