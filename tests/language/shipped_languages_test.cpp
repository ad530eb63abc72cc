#include "companion/phrase_engine.h"
#include "language/language_file.h"
#include "language/language_world.h"
#include "text/strings.h"
#include "text/utf8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>

namespace brovin::language {
namespace {

using Texts = std::vector<std::string>;

Texts shippedFiles() {
    Texts names;
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

/// "%1" and its like, in the order of the alphabet.
std::set<std::string> placeholders(const std::string& text) {
    std::set<std::string> found;
    for (std::size_t at = text.find('%'); at != std::string::npos; at = text.find('%', at + 1))
        if (text.find_first_of("0123456789", at) == at + 1)
            found.insert(text.substr(at, text.find_first_not_of("0123456789", at + 1) - at));
    return found;
}

/// What every character can do and comes to an end by itself: no Reading, Searching and the like, which
/// repeat.
bool isAnimation(std::string_view name) {
    static const std::set<std::string_view> known = {
        "Acknowledge",   "Alert",
        "Announce",      "Blink",
        "Confused",      "Congratulate",
        "Decline",       "DoMagic1",
        "DoMagic2",      "DontRecognize",
        "Explain",       "GestureDown",
        "GestureLeft",   "GestureRight",
        "GestureUp",     "GetAttention",
        "Greet",         "LookDown",
        "LookLeft",      "LookRight",
        "LookUp",        "Pleased",
        "Process",       "Read",
        "RestPose",      "Sad",
        "Search",        "StartListening",
        "StopListening", "Suggest",
        "Surprised",     "Think",
        "Uncertain",     "Wave",
        "Write",         "ReadReturn",
        "WriteReturn",   "GetAttentionReturn",
    };
    return known.contains(name);
}

bool hasToken(const std::string& text) {
    static const std::regex token("&[A-Za-z]+&");
    return std::regex_search(text, token);
}

/// One of the files that the program comes with, loaded by itself as on a first start.
class ShippedLanguage : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override {
        world.folder.files[GetParam()] = fileBytes(GetParam());
        world.catalogue.buildLanguageCatalogue();
        ASSERT_TRUE(world.form.lstLang.select(0)) << "it lacks its name, its description or its version";
    }
    /// The alternatives as the program sees them: a character's own click list stands right before the
    /// common one.
    [[nodiscard]] std::string used(std::size_t list) const {
        const auto which = static_cast<PhraseList>(list);
        const bool own = which >= PhraseList::SpkClickPeedy && which <= PhraseList::SpkClickGenie;
        return world.tables.list(which) + (own ? world.tables.list(PhraseList::SpkClick) : "");
    }
    [[nodiscard]] std::string message(int number) const {
        return world.tables.messageTable.getMessage(number);
    }

    LanguageWorld world;
};

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

TEST_P(ShippedLanguage, hasTheKeysThatTheDefaultOneHas) {
    const auto standard = valuesOf("default.blp");
    const auto own = valuesOf(GetParam());
    for (const TextRow& row : kTextRows)
        EXPECT_TRUE(own.contains("text." + std::string(row.name))) << row.name;
    for (const auto& [key, text] : own) {
        EXPECT_TRUE(standard.contains(key)) << "only here: " << key;
    }
    for (const auto& [key, text] : standard) {
        ASSERT_TRUE(own.contains(key)) << key;
        EXPECT_EQ(placeholders(text), placeholders(own.at(key))) << key;
        if (key.starts_with("ani")) {
            for (const std::string_view name : text::split(own.at(key), '|'))
                EXPECT_TRUE(isAnimation(name)) << key << ": " << name;
        }
        if (!key.starts_with("lbl"))
            continue;
        EXPECT_EQ(text::countOf(text, "&"), text::countOf(own.at(key), "&")) << key << ": the Alt letter";
        const std::size_t length = text::characterCount(text);
        EXPECT_LE(text::characterCount(own.at(key)), std::max(length * 9 / 5, length + 8))
            << key << " has no room for: " << own.at(key);
    }
}

TEST_P(ShippedLanguage, pairsTheSameCharactersWithTheirValues) {
    for (const PhraseList list : {PhraseList::SpkCharCols, PhraseList::SpkTeeth}) {
        const auto items = text::split(world.tables.list(list), '|');
        ASSERT_EQ(10U, items.size());
        const Texts names = {"Peedy", "Merlin", "Genie", "Robby", "else"};
        for (std::size_t i = 0; i < names.size(); ++i) {
            EXPECT_EQ(names[i], items[2 * i]);
            EXPECT_NE("", text::trim(items[2 * i + 1])) << names[i];
        }
    }
}

TEST_P(ShippedLanguage, usesEveryTokenInItsChatter) {
    for (const PhraseList list : {PhraseList::SpkRandomVisible, PhraseList::SpkRandomHidden}) {
        for (const std::string_view token :
             {"&dude&", "&col&", "&teeth&", "&animal&", "&name&", "&song&", "&job&", "&stupid&", "&music&",
              "&crown&", "&poo&", "&namem&", "&word&"})
            EXPECT_LE(1U, text::countOf(world.tables.list(list), token)) << token;
        EXPECT_LE(5U, text::countOf(world.tables.list(list), "|&ani&"));
    }
}

TEST_P(ShippedLanguage, loadsUnbroken) {
    EXPECT_TRUE(world.dialogs.boxes.empty());
    EXPECT_TRUE(text::isUtf8(world.folder.files[GetParam()]));
    EXPECT_EQ(3, world.form.cmbDudeSex.count());
    EXPECT_EQ(4, world.form.cmbCheck.count());
}

TEST_P(ShippedLanguage, hasEnoughToSay) {
    for (std::size_t list = 0; list < kPhraseListKeys.size(); ++list) {
        SCOPED_TRACE(kPhraseListKeys[list]);
        const auto which = static_cast<PhraseList>(list);
        const std::string& own = world.tables.list(which);
        const bool chatter = which == PhraseList::SpkRandomHidden || which == PhraseList::SpkRandomVisible;
        const bool spoken = which >= PhraseList::SpkClick && which <= PhraseList::SpkHello;
        const bool followed = which >= PhraseList::SpkClickPeedy && which <= PhraseList::SpkClickGenie;
        EXPECT_EQ(followed, own.ends_with('|')) << "only what another list follows ends with a bar";
        const std::size_t least = chatter ? (GetParam() == "default.blp" ? 60 : 40) : spoken ? 12 : 1;
        EXPECT_LE(least, text::split(own, '|').size() - (followed ? 1 : 0));
        const std::string alternatives = used(list);
        for (const std::string_view alternative : text::split(alternatives, '|')) {
            EXPECT_NE("", text::trim(alternative)) << "an empty alternative";
            EXPECT_EQ(0, std::count(alternative.begin(), alternative.end(), '\\') % 2)
                << "a speech tag is not closed: " << alternative;
        }
    }
}

TEST_P(ShippedLanguage, namesEveryControl) {
    // The title of the window are the statistics; nobody reads a timer or a frame around pages and tabs.
    const std::set<std::string> nameless = {"frmOptions", "Timer1", "lineTimer", "Picture1", "tabFrame"};
    for (const ui::Control* control : world.form.controls()) {
        const std::string& name = control->name();
        if (!nameless.contains(name) && !name.starts_with("picTab")) {
            EXPECT_NE("", text::trim(control->caption())) << name;
        }
    }
}

TEST_P(ShippedLanguage, hasEveryMessageWithTheValuesThatItIsGiven) {
    const std::map<int, int> values = {
        // how many a message gets; none where it is not here
        {0, 1},  {5, 1},  {11, 1}, {15, 2}, {16, 1}, {17, 1}, {18, 1}, {20, 1}, {23, 1}, {24, 1},
        {25, 2}, {28, 1}, {31, 1}, {32, 3}, {40, 1}, {41, 1}, {50, 1}, {51, 1}, {52, 2}, {55, 2},
        {56, 2}, {57, 2}, {59, 1}, {60, 2}, {62, 1}, {63, 2}, {64, 1}, {70, 2}, {73, 2},
    };
    for (int number = 0; number <= 77; ++number) {
        const std::string text = message(number);
        EXPECT_NE("", text::trim(text)) << "message " << number;
        EXPECT_EQ(number == 42, hasToken(text)) << "message " << number << ": only the reminder is a phrase";
        std::set<std::string> expected;
        for (int i = 1; i <= (values.contains(number) ? values.at(number) : 0); ++i)
            expected.insert("%" + std::to_string(i));
        EXPECT_EQ(expected, placeholders(text)) << "message " << number;
    }
    // Parts of the log and of the status bar
    for (const int line : {9, 22, 23, 24, 54, 55, 56, 57, 58, 59, 62, 63})
        EXPECT_EQ(std::string::npos, message(line).find('\n')) << "message " << line << " has to be one line";
}

/// A letter of the Latin, the Western European or the Russian alphabet, capital or small, as a small one.
char32_t small(char32_t letter) {
    const bool capital = (letter >= U'A' && letter <= U'Z') || (letter >= 0xC0 && letter <= 0xDE) ||
                         (letter >= 0x410 && letter <= 0x42F);
    return capital ? letter + 0x20 : letter;
}

/// Checks that no two texts have the same letter behind their "&".
void expectOwnMnemonics(const Texts& captions, const std::string& place) {
    std::map<char32_t, std::string> owners;
    for (const std::string& caption : captions) {
        const std::string plain = text::replaceAll(caption, "&&", "");
        const std::size_t at = plain.find('&');
        if (at == std::string::npos)
            continue;
        const char32_t letter = text::decodeUtf8(std::string_view(plain).substr(at + 1)).codePoint;
        EXPECT_LT(U' ', letter) << caption;
        const auto [owner, first] = owners.try_emplace(small(letter), caption);
        EXPECT_TRUE(first) << place << ": " << owner->second << " and " << caption;
    }
}

TEST_P(ShippedLanguage, hasItsMnemonicsOnceAPage) {
    // The first control of each page in the order of the form, and of the menu behind the last page
    const Texts starts = {"lblFolders", "lblFiles", "frmDeleting", "chkAgent", "lblSay",
                          "chkBackup",  "lblLang",  "imgBrovin",   "mHelp"};
    std::vector<Texts> pages(1);
    for (const ui::Control* control : world.form.controls()) {
        if (pages.size() <= starts.size() && control->name() == starts[pages.size() - 1])
            pages.emplace_back();
        pages.back().push_back(control->caption());
    }
    ASSERT_EQ(starts.size() + 1, pages.size());
    const Texts around = pages[0]; // the buttons for help and exit among them
    for (std::size_t page = 0; page < pages.size(); ++page) {
        const bool menu = page + 1 == pages.size();
        if (page > 0 && !menu)
            pages[page].insert(pages[page].end(), around.begin(), around.end());
        expectOwnMnemonics(pages[page], page == 0 ? "around the pages" : starts[page - 1]);
    }
    Texts speech = pages[5];
    speech[0] = message(50); // with a character these two stand in for the labels
    for (std::string& caption : speech)
        if (caption == world.form.lblDo.caption())
            caption = message(51);
    expectOwnMnemonics(speech, "lblSay with a character");
    expectOwnMnemonics({message(66), message(67)}, "download window");
    expectOwnMnemonics({message(66), message(75)}, "download window at the end");
}

TEST_P(ShippedLanguage, fillsInEveryPhraseForEveryCharacter) {
    companion::Actor actor;
    companion::PhraseEngine phrases(
        {world.form, world.options, world.tables, actor, world.regional, world.random});
    actor.character = &world.characters.only;
    Texts& requests = world.characters.only.requests;
    for (const std::string name : {"Peedy", "Merlin", "Genie", "Robby", "Somebody"}) {
        actor.name = name;
        for (const PhraseList pairs : {PhraseList::SpkCharCols, PhraseList::SpkTeeth})
            EXPECT_NE("", phrases.getSpecific(world.tables.list(pairs)).value_or("")) << name;
        Texts lists = {message(42)};
        for (std::size_t list = 0; list < kPhraseListKeys.size(); ++list)
            lists.push_back(text::replaceAll(used(list), "&saytext&", "so there"));
        for (const std::string& list : lists) {
            const std::size_t count = text::split(list, '|').size();
            for (std::size_t i = 0; i < count; ++i) {
                world.random.draws = {(static_cast<double>(i) + 0.5) / static_cast<double>(count)};
                const auto phrase = phrases.pickPhrase(list);
                EXPECT_NE("", phrase.value_or("")) << text::split(list, '|')[i];
                requests.push_back(phrase.value_or(""));
            }
        }
        for (const std::string& request : requests) {
            EXPECT_FALSE(hasToken(request)) << name << ": " << request;
            EXPECT_EQ(std::string::npos, request.find("  ")) << request;
            EXPECT_EQ(std::string::npos, request.find(",,")) << request;
            if (request.starts_with("play ")) {
                EXPECT_TRUE(isAnimation(request.substr(5))) << request << " is no animation";
            }
        }
        requests.clear();
    }
}

TEST_P(ShippedLanguage, putsAwayTheBookThatItReads) {
    for (std::size_t list = 0; list < kPhraseListKeys.size(); ++list)
        for (const std::string_view phrase :
             text::split(world.tables.list(static_cast<PhraseList>(list)), '|'))
            for (const std::string name : {"&ani&Read", "&ani&Write", "&ani&GetAttention"})
                EXPECT_EQ(text::countOf(phrase, name + "+"), text::countOf(phrase, name + "Return"))
                    << phrase;
}

TEST_P(ShippedLanguage, saysWhatTheUserHasTypedInEveryPhraseForIt) {
    for (const std::string_view phrase : text::split(world.tables.list(PhraseList::SpkSay), '|'))
        EXPECT_NE(std::string_view::npos, phrase.find("&saytext&")) << phrase;
}

} // namespace
} // namespace brovin::language
