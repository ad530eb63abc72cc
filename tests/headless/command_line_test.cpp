#include "headless/command_line.h"

#include <gtest/gtest.h>

#include <vector>

namespace brovin::headless {
namespace {

CommandLine parse(std::vector<std::string_view> arguments) {
    return parseCommandLine(arguments);
}

TEST(CommandLine, takesValuesInBothForms) {
    const CommandLine line =
        parse({"--scan", "--folder", "/a b", "--folder=/c", "--nasty=Thumbs.db", "--json"});
    EXPECT_EQ("", line.problem);
    EXPECT_TRUE(line.scan);
    EXPECT_TRUE(line.scanOptions.json);
    EXPECT_FALSE(line.scanOptions.dryRun);
    EXPECT_EQ((std::vector<std::string>{"/a b", "/c"}), line.scanOptions.folders);
    EXPECT_EQ((std::vector<std::string>{"Thumbs.db"}), line.scanOptions.nasty);
}

TEST(CommandLine, refusesWhatItDoesNotUnderstand) {
    const struct {
        std::vector<std::string_view> arguments;
        std::string_view why;
    } kCases[] = {
        {{"--skan"}, "a typing error must not start something else"},
        {{"scan"}, "no option"},
        {{"--scan=yes"}, "a value for a switch"},
        {{"--scan", "--folder"}, "no value"},
        {{"--scan", "--folder="}, "an empty value"},
        {{"--folder", "/a"}, "a scan's option without a scan"},
        {{"--dry-run"}, "a dry run of nothing"},
        {{"--scan", "--scan-now"}, "a scan without a window, and by the window"},
        {{"--scan", "--nasty", "a/b"}, "a path for a name"},
        {{"--scan", "--nasty", ".."}, "the folder above"},
    };
    for (const auto& [arguments, why] : kCases)
        EXPECT_NE("", parse(arguments).problem) << why;
}

} // namespace
} // namespace brovin::headless
