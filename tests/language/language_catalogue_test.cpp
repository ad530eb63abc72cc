#include "language/language_catalogue.h"

#include "language/language_file.h"
#include "language/language_world.h"

#include <gtest/gtest.h>

namespace brovin::language {
namespace {

TEST(LanguageInfo, needsAllThreeLinesAndReadsNoFurther) {
    constexpr std::string_view kCases[][3] = {
        // what is shown: name, description, version; empty: not usable
        {"language=A\nlanguageDesc=b\nlangversion=1\n", "A/b/1", "in the usual order"},
        {"remark\nlangversion=1\nspkHello=x\nlanguageDesc=b\n language=A ", "A/b/1",
         "in any order, with blanks"},
        {"language=A\nlanguage=B\nlanguageDesc=b\nlangversion=1\n", "B/b/1", "a later line wins"},
        {"language=A\nlanguageDesc=b\nlangversion=1\nlanguage=B\n", "A/b/1", "but not once all is known"},
        {"language=A\nlanguageDesc=b\n", "", "no version"},
        {"language=A\nlangversion=1\n", "", "no description"},
        {"languageDesc=b\nlangversion=1\n", "", "no name"},
        {"language=\nlanguageDesc=b\nlangversion=1\n", "", "an empty name"},
        {"Language=A\nlanguageDesc=b\nlangversion=1\n", "", "keys have their case"},
        {"language =A\nlanguageDesc=b\nlangversion=1\n", "", "a blank before the sign"},
        {"language=A\nlanguageDesc=b\nlangversion=-1\n", "", "below nought"},
        {"language=A\nlanguageDesc=b\nlangversion=x\n", "", "no number"},
    };
    for (const auto& [file, shown, why] : kCases) {
        const auto info = languageInfo(file);
        EXPECT_EQ(shown, info ? info->name + "/" + info->description + "/" + info->version : "") << why;
    }
}

TEST(LanguageInfo, keepsTheVersionAsADecimalNumber) {
    constexpr std::pair<std::string_view, std::string_view> kCases[] = {
        {"0", "0"},      {"1.10", "1.1"},           {"2.0", "2"}, {"0.1", "0.1"}, {"12.25", "12.25"},
        {"+1.5", "1.5"}, {"1.23456789", "1.234568"}};
    for (const auto& [written, version] : kCases) {
        const auto info = languageInfo("language=A\nlanguageDesc=b\nlangversion=" + std::string(written));
        EXPECT_EQ(version, info ? info->version : "none") << written;
    }
}

TEST(LanguageInfo, writesNoExponents) {
    const auto info = languageInfo("language=A\nlanguageDesc=b\nlangversion=100000");
    EXPECT_EQ("100000", info ? info->version : "none");
}

TEST(LanguageCatalogue, listsTheUsableFiles) {
    LanguageWorld world;
    world.folder.files = {
        {"b.blp", "language=Test\nlanguageDesc=second\nlangversion=2.50\n"},
        {"a.blp", "language=Test\nlanguageDesc=first\nlangversion=1\n"},
        {"broken.blp", "language=Broken\n"},
        {"huge.blp", "language=A\nlanguageDesc=b\nlangversion=1\n" + std::string(kLargestFile, ' ')},
        {"notes.txt", "language=A\nlanguageDesc=b\nlangversion=1\n"},
    };
    world.catalogue.buildLanguageCatalogue();
    EXPECT_EQ((std::vector<ui::ListControl::Item>{{"Test - first v1", 0}, {"Test - second v2.5", 1}}),
              world.form.lstLang.items());
    EXPECT_EQ((std::vector<std::string>{"a.blp", "b.blp"}), world.catalogue.langFiles);
    EXPECT_EQ((std::vector<std::string>{"1", "2.5"}), world.catalogue.langVersions);
    EXPECT_EQ((std::vector<std::string>{"Test - first", "Test - second"}), world.catalogue.langNames);
}

TEST(LanguageCatalogue, knowsAFileByItsEntryInWhateverOrderTheListIs) {
    LanguageWorld world;
    world.install("a.blp", "");
    world.install("b.blp", "");
    world.form.lstLang.click = std::function<void()>();
    EXPECT_EQ(std::nullopt, world.catalogue.selectedFile());
    world.form.lstLang.setItems({{"second", 1}, {"first", 0}});
    world.form.lstLang.select(0);
    EXPECT_EQ("b.blp", world.catalogue.selectedFile());
    EXPECT_EQ(1, world.catalogue.entryOf("a.blp"));
    EXPECT_EQ(std::nullopt, world.catalogue.entryOf("A.blp")) << "names have their case";
}

TEST(LanguageCatalogue, findsTheLanguageOfALocale) {
    LanguageWorld world;
    world.install("a.blp", "languageid=1036\n");
    world.install("b.blp", "languageid=1031\nlanguageid=3079\n"); // German of Austria: the last one counts
    world.install("c.blp", "languageid=1031\n");
    world.install("d.blp", "");
    struct {
        long locale;
        std::optional<int> entry;
        const char* why;
    } const cases[] = {{1031, 2, "of this very region"},
                       {2055, 1, "of another region: the first one"},
                       {1049, std::nullopt, "not there"},
                       {0, std::nullopt, "the locale has no language, and a file without one does not fit"}};
    for (const auto& [locale, entry, why] : cases)
        EXPECT_EQ(entry, world.catalogue.entryFor(locale)) << why;
}

} // namespace
} // namespace brovin::language
