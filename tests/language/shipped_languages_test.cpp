#include "language/language_check.h"
#include "language/language_file.h"
#include "text/strings.h"
#include "text/utf8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>

namespace brovin::language {
namespace {

std::vector<std::string> shippedFiles() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(BROVIN_ASSETS))
        if (entry.path().extension() == ".blp")
            names.push_back(entry.path().filename().string());
    return names;
}

std::string fileBytes(const std::string& name) {
    std::ifstream file(std::filesystem::path(BROVIN_ASSETS) / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The values of a file by their keys, those of one key joined.
std::map<std::string, std::string> valuesOf(const std::string& name) {
    std::map<std::string, std::string> values;
    for (const std::string& line : linesOf(fileBytes(name)))
        if (const auto keyed = keyedLine(line))
            values[std::string(keyed->key)].append(keyed->value);
    return values;
}

class ShippedLanguage : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Assets, ShippedLanguage, testing::ValuesIn(shippedFiles()), [](const auto& suite) {
    return std::regex_replace(suite.param, std::regex("[^A-Za-z0-9]"), "_");
});

TEST(ShippedLanguages, haveTheDefaultOneAmongThemAndAVoiceEach) {
    std::map<std::string, std::string> voices;
    for (const std::string& name : shippedFiles())
        voices[name] = valuesOf(name)["languageid"];
    // Numbers of the platform's: the voice pronounces as the language wants it
    const std::map<std::string, std::string> expected = {
        {"default.blp", "1033"}, {"french.blp", "1036"},  {"german.blp", "1031"},
        {"russian.blp", "1049"}, {"spanish.blp", "3082"},
    };
    EXPECT_EQ(expected, voices);
}

TEST_P(ShippedLanguage, isWithoutFault) {
    const LanguageFaults faults = checkLanguage(fileBytes(GetParam()));
    for (const std::string_view key : faults.missing)
        ADD_FAILURE() << GetParam() << ": " << key << " is missing";
    for (const auto& [line, what] : faults.others)
        ADD_FAILURE() << GetParam() << ":" << line << ": " << what;
}

TEST_P(ShippedLanguage, hasCaptionsThatFit) {
    const auto own = valuesOf(GetParam());
    for (const auto& [key, text] : valuesOf("default.blp")) {
        if (!key.starts_with("lbl"))
            continue;
        EXPECT_EQ(text::countOf(text, "&"), text::countOf(own.at(key), "&")) << key << ": the Alt letter";
        const std::size_t length = text::characterCount(text);
        EXPECT_LE(text::characterCount(own.at(key)), std::max(length * 9 / 5, length + 8))
            << key << " has no room for: " << own.at(key);
    }
}

TEST_P(ShippedLanguage, hasEnoughToSay) {
    for (const auto& [key, list] : valuesOf(GetParam()))
        if (key.starts_with("spkClick") || key == "spkCharMove" || key == "spkDo" || key == "spkSay" ||
            key == "spkTypeSomething" || key == "spkRepeat" || key == "spkHello") {
            EXPECT_LE(14U, text::split(list, '|').size()) << key;
        } else if (key.starts_with("spkRandom")) {
            EXPECT_LE(60U, text::split(list, '|').size()) << key;
            EXPECT_LE(5U, text::countOf(list, "|&ani&")) << key;
        }
}

} // namespace
} // namespace brovin::language
