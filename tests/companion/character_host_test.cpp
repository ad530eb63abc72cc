#include "companion/character_host.h"

#include "companion/companion_world.h"

#include <gtest/gtest.h>

#include <random>

namespace brovin::companion {
namespace {

using language::PhraseList;
using Texts = std::vector<std::string>;

/// The character page over an installed Peedy and Genie; Peedy is loaded, with nothing asked of it yet.
struct CharacterHostWorld : CompanionWorld {
    CharacterHostWorld() {
        characters.present = true;
        characters.installed = {"GENIE.ACS", "peedy.acs"};
        actor.character = nullptr;
        list(PhraseList::SpkHello, "hello");
        list(PhraseList::SpkClick, "ouch");
        list(PhraseList::SpkClickPeedy, "squawk|");
        list(PhraseList::SpkClickGenie, "lamp"); // without a bar: joined with what follows as it stands
        list(PhraseList::SpkClickNoMore, "enough");
        list(PhraseList::AniClick, "Blink");
        list(PhraseList::SpkCharMove, "whee");
        tables.messageTable.set(50, "Make %1 say:");
        form.lstChars.click = [this] { host.lstChars_Click(); };
        form.chkAgent.setValue(1);
        host.loadCharacter();
        character.requests.clear();
    }
    /// What the character is asked to do by an act.
    template <class Act>
    Texts after(Act act) {
        character.requests.clear();
        act();
        return character.requests;
    }
    fakes::FakeCharacter& character = characters.only;
    CharacterHost host{
        {{form, form, form, form, form}, options, tables, actor, phrases, characters, letters, random}};
};

TEST(CharacterHost, listsCharactersByProperNamesAndSelectsItsOwn) {
    CharacterHostWorld world;
    world.host.scanCharacters();
    ASSERT_EQ(2, world.form.lstChars.count());
    EXPECT_EQ("Genie", world.form.lstChars.items()[0].text);
    EXPECT_EQ("Peedy", world.form.lstChars.selectedText());

    world.actor.name = "Robby";
    world.host.scanCharacters();
    EXPECT_EQ(ui::ListBox::kNone, world.form.lstChars.selected()) << "it has no file";
    world.actor.name.clear();
    world.host.scanCharacters();
    EXPECT_EQ("Peedy", world.form.lstChars.selectedText()) << "nobody was chosen";
    world.characters.installed.clear();
    world.host.scanCharacters();
    EXPECT_EQ(0, world.form.lstChars.count());
    EXPECT_EQ("Peedy", world.actor.name);
}

TEST(CharacterHost, placesTheCharacterWhereItCanBeSeen) {
    const std::tuple<const char*, const char*, int, int, std::string_view> cases[] = {
        {nullptr, nullptr, 0, 621, "first start: at the lower left"},
        {"300", "200", 300, 200, "as stored"},
        {"1024", "768", 1024, 768, "on the very edge"},
        {"1025", "769", 0, 621, "beyond it"},
        {"-50", "-50", -50, -50, "just far enough"},
        {"-51", "-60", 0, 621, "too far"},
        {"5000", "10", 0, 10, "each for itself"},
        {"40000", "-40000", 7, 8, "no 16-bit number: it stays where the service has put it"},
        {"soon", "", 0, 0, "no number at all is 0"},
    };
    for (const auto& [storedX, storedY, x, y, why] : cases) {
        CharacterHostWorld world;
        world.character.x = 7;
        world.character.y = 8;
        if (storedX != nullptr)
            world.settings.set("AgentX", storedX);
        if (storedY != nullptr)
            world.settings.set("AgentY", storedY);
        world.host.loadCharacter();
        EXPECT_EQ(std::pair(x, y), std::pair(world.character.x, world.character.y)) << why;
    }
}

TEST(CharacterHost, loadsWithVoiceAndAnimationsButShowsNothing) {
    CharacterHostWorld world;
    world.tables.langLanguageId = "1031";
    world.tables.langModeId = "mode";
    EXPECT_EQ((Texts{"languageId 1031", "ttsModeId mode"}), world.after([&] { world.host.loadCharacter(); }));
    EXPECT_EQ("Wave", world.form.lstAnims.selectedText());

    world.characters.unload("Peedy");
    world.characters.broken = {"Peedy.acs"};
    world.host.loadCharacter();
    EXPECT_EQ(nullptr, world.actor.character);
    EXPECT_EQ(0, world.form.lstAnims.count()) << "nobody is left who could play them";
    EXPECT_FALSE(world.form.cmdDo.enabled());
    world.form.chkAgent.setValue(0);
    world.characters.broken.clear();
    world.host.loadCharacter();
    EXPECT_TRUE(world.characters.loaded.empty()) << "the character is off";
}

TEST(CharacterHost, takesAnotherCharacter) {
    for (const auto& [window, stored, shown] :
         {std::tuple(true, "False", true), std::tuple(false, "True", true),
          std::tuple(false, "False", false)}) {
        CharacterHostWorld world;
        world.host.scanCharacters();
        world.form.window.setVisible(window);
        world.settings.set("AgentShow", stored);
        const Texts requests = world.after([&] { world.form.lstChars.select(0); });
        EXPECT_EQ(shown ? (Texts{"show", "speak hello"}) : (Texts{"speak hello"}), requests);
        EXPECT_EQ((Texts{"Genie"}), world.characters.loaded) << "and nobody else";
        EXPECT_EQ("Genie", world.settings.setting("AgentName"));
        EXPECT_EQ("Make Genie say:", world.form.lblSay.caption());

        world.form.loading = true;
        EXPECT_TRUE(world.after([&] { world.form.lstChars.select(1); }).empty())
            << "start-up selects quietly";
    }
}

TEST(CharacterHost, comesAndGoesWithItsSwitch) {
    CharacterHostWorld world;
    world.form.window.setVisible(true);
    world.form.chkAgent.setValue(0);
    world.host.chkAgent_Click();
    EXPECT_EQ(nullptr, world.actor.character);
    EXPECT_TRUE(world.characters.loaded.empty());
    for (const ui::Control* control : std::initializer_list<const ui::Control*>{
             &world.form.cmdSay, &world.form.txtSay, &world.form.cmdDo, &world.form.lstAnims})
        EXPECT_FALSE(control->enabled()) << control->name();

    world.form.chkAgent.setValue(1);
    const Texts requests = world.after([&] { world.host.chkAgent_Click(); });
    EXPECT_EQ((Texts{"show", "speak hello"}), requests) << "loaded once, greeted once";
    EXPECT_TRUE(world.form.cmdSay.enabled());
    EXPECT_TRUE(world.form.cmdDo.enabled());

    world.form.window.setVisible(false);
    world.form.chkAgent.setValue(0);
    world.host.chkAgent_Click();
    EXPECT_NE(nullptr, world.actor.character) << "not the user's doing";
}

TEST(CharacterHost, answersClicksByTheDraws) {
    const std::tuple<std::string, std::vector<double>, Texts, std::string_view> cases[] = {
        {"Peedy", {1.999 / 30, 0}, {"show", "stopAll", "speak enough", "hide"}, "below two of thirty"},
        {"Peedy",
         {2.0 / 30, 0.2999, 0, 0},
         {"show", "play Blink", "speak squawk"},
         "at two; below three of ten"},
        {"Peedy", {0.99, 0.3, 0.99}, {"show", "speak ouch"}, "at three: no animation"},
        {"Genie", {0.99, 0.99, 0}, {"show", "speak lampouch"}, "another's own answers"},
        {"Clippet", {0.99, 0.99, 0}, {"show", "speak ouch"}, "one without its own"},
    };
    for (const auto& [name, draws, requests, why] : cases) {
        CharacterHostWorld world;
        const platform::CharacterClick left{name, 1};
        const platform::CharacterClick right{name, 2};
        world.actor.name = name;
        world.random.draws.assign(draws.begin(), draws.end());
        EXPECT_EQ(requests, world.after([&] { world.host.Agent1_Click(left); })) << why;
        EXPECT_TRUE(world.after([&] { world.host.Agent1_Click(right); }).empty()) << "right";
    }
}

TEST(CharacterHost, keepsItsPlaceAfterADragUnlessItIsLost) {
    // The screen is 1024 by 768, the character 129 by 129 pixels.
    constexpr std::tuple<int, int, bool, std::string_view> kCases[] = {
        {400, 300, false, "in the middle"}, {-64, 0, false, "just less than half beyond the left edge"},
        {-65, 0, true, "more than half"},   {959, 0, false, "just less than half beyond the right edge"},
        {960, 0, true, "more than half"},   {0, -65, true, "the upper edge"},
        {0, 703, false, "the lower edge"},  {0, 704, true, "beyond it"},
    };
    for (const auto& [x, y, lost, why] : kCases) {
        CharacterHostWorld world;
        world.character.size = 129;
        world.character.x = x;
        world.character.y = y;
        const Texts requests = world.after([&] { world.host.Agent1_DragComplete(); });
        EXPECT_EQ(lost ? (Texts{"speak whee", "moveTo 0 621"}) : (Texts{"speak whee"}), requests) << why;
        EXPECT_EQ(lost ? "0" : std::to_string(x), world.settings.setting("AgentX")) << why;
        EXPECT_EQ(lost ? "621" : std::to_string(y), world.settings.setting("AgentY")) << why;
    }
    CharacterHostWorld world;
    EXPECT_EQ((Texts{"stopAll", "play Blink"}), world.after([&] { world.host.Agent1_DragStart(); }));
}

TEST(CharacterHost, livesOnAnyOfSeveralMonitors) {
    // A large one, to its right a smaller one, to its left one that is lower still; the character is 128 by
    // 128.
    const std::vector<platform::Area> three = {{0, 0, 1000, 800}, {1000, 0, 600, 600}, {-500, 100, 500, 500}};
    constexpr struct {
        int x, y;
        std::pair<int, int> dropped, sent;
        std::string_view why;
    } kCases[] = {
        {1200,
         300,
         {1200, 300},
         {-343, 336},
         "on the second one; the last one sends it to the first from the left"},
        {-400, 200, {-400, 200}, {234, 180}, "left of the main one"},
        {1530, 300, {1530, 300}, {-128, 336}, "less than half beyond the outer edge"},
        {1540, 300, {1000, 453}, {-500, 457}, "more: to the lower left of that monitor"},
        {930, 300, {872, 300}, {1472, 210}, "between two of unequal height, more on the main one"},
        {960, 300, {1000, 300}, {-500, 336}, "more on the right one"},
        {1200, 700, {0, 653}, {1000, 458}, "below the smaller one, outside all"},
    };
    for (const auto& [x, y, dropped, sent, why] : kCases) {
        CharacterHostWorld world;
        world.characters.screenAreas = three;
        const auto stored = [&world] {
            return std::pair(std::stoi(world.settings.setting("AgentX")),
                             std::stoi(world.settings.setting("AgentY")));
        };
        world.character.x = x;
        world.character.y = y;
        const Texts requests = world.after([&] { world.host.Agent1_DragComplete(); });
        EXPECT_EQ(dropped, stored()) << why;
        EXPECT_EQ(dropped == std::pair(x, y) ? 1U : 2U, requests.size()) << why;
        std::tie(world.character.x, world.character.y) = std::pair(0, 0);
        world.host.loadCharacter();
        EXPECT_EQ(dropped, std::pair(world.character.x, world.character.y)) << "after a restart: " << why;
        world.host.sendToNextScreen();
        EXPECT_EQ(sent, stored()) << why;
    }
}

TEST(CharacterHost, comesBackWhenItsMonitorGoesAndReturnsWithIt) {
    CharacterHostWorld world;
    const std::vector<platform::Area> both = {{0, 0, 1024, 768}, {1024, 0, 800, 600}};
    world.characters.screenAreas = both;
    world.settings.set("AgentX", "1500");
    world.settings.set("AgentY", "20");
    world.host.loadCharacter();
    const auto changed = [&world](const std::vector<platform::Area>& screens) {
        world.characters.screenAreas = screens;
        world.host.screensChanged();
        return std::pair(world.character.x, world.character.y);
    };
    EXPECT_EQ(std::pair(1500, 20), changed(both));
    EXPECT_EQ(std::pair(896, 20), changed({both.front()})) << "the nearest edge of what is left";
    EXPECT_EQ(std::pair(896, 20), changed({})) << "asleep";
    EXPECT_EQ(std::pair(512, 20), changed({{0, 0, 640, 480}})) << "a smaller one";
    EXPECT_EQ(std::pair(1560, 20), changed({{0, 0, 1560, 768}, {1560, 0, 800, 600}})) << "a border under it";
    EXPECT_EQ(std::pair(1500, 20), changed(both));
    EXPECT_EQ("1500", world.settings.setting("AgentX"));
}

TEST(CharacterHost, keepsItsFeetOnTheGroundOfAMonitorOfAnotherScale) {
    CharacterHostWorld world;
    world.characters.screenAreas = {{0, 0, 1000, 1000}, {1000, 0, 500, 500}};
    world.character.fineFrom = 1000;
    std::tie(world.character.x, world.character.y) = std::pair(436, 872); // in the middle, at the bottom
    world.host.Agent1_DragComplete();
    const Texts requests = world.after([&] { world.host.sendToNextScreen(); });
    EXPECT_EQ((Texts{"moveTo 1218 436"}), requests);
    world.characters.screenAreas[1].width = 270;
    world.host.screensChanged();
    EXPECT_EQ(std::pair(1218, 436), std::pair(world.character.x, world.character.y))
        << "not lost at that size";
}

TEST(CharacterHost, answersTenThousandClicksAsOftenAsItShould) {
    CharacterHostWorld world;
    std::mt19937_64 numbers(20261121);
    std::uniform_real_distribution<double> draw(0, 1);
    int enough = 0;
    int plays = 0;
    int own = 0;
    constexpr int kClicks = 10'000;
    for (int i = 0; i < kClicks; ++i) {
        world.random.draws = {draw(numbers), draw(numbers), draw(numbers), draw(numbers)};
        for (const std::string& request : world.after([&] { world.host.Agent1_Click({"Peedy", 1}); })) {
            enough += request == "speak enough" ? 1 : 0;
            plays += request == "play Blink" ? 1 : 0;
            own += request == "speak squawk" ? 1 : 0;
        }
    }
    // Four standard deviations about one in fifteen, then three in ten and one in two of the rest
    EXPECT_NEAR(kClicks / 15.0, enough, 100);
    EXPECT_NEAR((kClicks - enough) * 0.3, plays, 180);
    EXPECT_NEAR((kClicks - enough) * 0.5, own, 195);
}

} // namespace
} // namespace brovin::companion
