#include "program_world.h"

#include <gtest/gtest.h>

#include <random>

namespace brovin::app {
namespace {

using platform::Button;
using Texts = std::vector<std::string>;

/// The whole program on a machine in memory that has two characters, with the settings of an earlier run.
struct CharacterWorld : ProgramWorld {
    explicit CharacterWorld(const fakes::FakeSettingsStore& before = {}) : ProgramWorld(false) {
        settings.values = before.values;
        folder.files["default.blp"] =
            fakes::testLanguage() + "languageid=1033\nspkHello=hello\nspkClick=ouch\nspkClickNoMore=enough\n"
                                    "aniClick=Blink\nspkCharMove=whee\nspkRandomVisible=chat\n"
                                    "spkRandomHidden=boo\naniRandomPopOut=Wave\naniQuestion=Think\n";
        folder.files["german.blp"] =
            fakes::testLanguage() + "language=German\nlanguageid=1031\nspkHello=hallo\n";
        characters.present = true;
        characters.installed = {"genie.acs", "peedy.acs"};
    }
    /// What the character is asked to do by an act.
    template <class Act>
    Texts after(Act act) {
        characters.only.requests.clear();
        act();
        return characters.only.requests;
    }
    void startUp() { EXPECT_TRUE(program.Form_Load()); }
    fakes::FakeCharacter& character = characters.only;
};

TEST(ProgramWithACharacter, callsTheUserAsHeWishes) {
    for (const auto& [typed, called, stored] :
         std::initializer_list<std::tuple<Texts, std::string, std::string>>{{{}, "Fool", "<missing>"},
                                                                            {{"jo doe"}, "Jo", "jo doe"},
                                                                            {{"Jo", ""}, "Fool", ""},
                                                                            {{" "}, "Fool", " "}}) {
        CharacterWorld world;
        world.folder.files["default.blp"] += "spkClick= there&dude&\n";
        world.startUp();
        EXPECT_EQ("", world.form.txtUser.text());
        for (const std::string& text : typed)
            world.form.txtUser.setText(text);
        world.random.draws = {0.5, 0.9, 0.0, 0.0};
        const Texts answer = world.after([&] { world.characters.events.click({"Peedy", 1}); });
        EXPECT_EQ("speak ouch there, " + called, answer.back());
        EXPECT_EQ(stored, world.settings.read("Settings", "User").value_or("<missing>"));
        CharacterWorld next(world.settings);
        next.startUp();
        EXPECT_EQ(typed.empty() ? "" : typed.back(), next.form.txtUser.text());
    }
}

TEST(ProgramWithACharacter, livesThroughItsDays) {
    CharacterWorld first;
    EXPECT_EQ((Texts{"languageId 1033", "show", "speak hello"}), first.after([&] { first.startUp(); }));
    EXPECT_EQ("m50(Peedy,%2)", first.form.lblSay.caption());
    EXPECT_TRUE(first.dialogs.boxes.empty());

    first.random.draws = {0.5, 0.1};
    EXPECT_EQ((Texts{"show", "play Blink", "speak ouch"}), first.after([&] {
        first.characters.events.click({"Peedy", 1});
    }));
    EXPECT_EQ((Texts{"stopAll", "play Blink"}), first.after([&] {
        first.characters.events.dragStart({"Peedy", 1});
    }));
    first.character.x = 3000;
    EXPECT_EQ((Texts{"speak whee", "moveTo 0 621"}), first.after([&] {
        first.characters.events.dragComplete({"Peedy", 1});
    }));
    EXPECT_EQ("0", first.settings.setting("AgentX"));

    first.characters.events.hide("Peedy", 3);
    EXPECT_EQ("", first.settings.setting("AgentShow")) << "hidden by the program";
    first.character.isVisible = false; // its own menu hides it
    first.characters.events.hide("Peedy", platform::kHiddenByItsMenu);
    first.character.x = 70;
    first.character.y = 90;
    first.dialogs.answers = {Button::Yes};
    first.form.cmdExit.click();
    EXPECT_TRUE(first.shell.ended);
    EXPECT_TRUE(first.characters.loaded.empty());
    EXPECT_EQ("70", first.settings.setting("AgentX"));
    EXPECT_EQ("90", first.settings.setting("AgentY"));

    CharacterWorld second(first.settings);
    EXPECT_EQ((Texts{"languageId 1033", "speak hello"}), second.after([&] { second.startUp(); }))
        << "loaded, and still in hiding";
    EXPECT_EQ(70, second.character.x);
    second.dialogs.answers = {Button::No};
    EXPECT_EQ((Texts{"show", "play Think", "speak m11(, Fool,%2)", "hide"}),
              second.after([&] { second.form.cmdExit.click(); }));
    EXPECT_EQ("False", second.settings.setting("AgentShow"));
}

TEST(ProgramWithACharacter, changesItsVoiceWithTheLanguage) {
    CharacterWorld world;
    world.startUp();
    EXPECT_EQ((Texts{"languageId 1031", "show", "speak hallo"}),
              world.after([&] { world.form.lstLang.select(1); }));
    EXPECT_EQ("m51(Peedy,%2)", world.form.lblDo.caption());
    EXPECT_NE("", world.form.dtpWord.toolTip()) << "its time, which no file knows";

    // In the midst of an update check, and while the character is in hiding
    world.folder.files["german.blp"] += "languageid=3079\nlblchkWord=Wort\n";
    world.form.Timer1.setEnabled(false);
    world.settings.set("AgentShow", "False");
    EXPECT_EQ((Texts{"languageId 3079", "speak hallo"}), world.after([&] { world.form.lstLang.select(1); }));
    EXPECT_EQ("09:15:00 Wort", world.form.chkWord.toolTip());
}

TEST(ProgramWithACharacter, losesNoMessageWithAFileThatDoesNotLoad) {
    CharacterWorld world;
    world.characters.broken = {"Peedy.acs"};
    world.startUp();
    EXPECT_TRUE(world.form.chkAgent.checked());
    world.form.imgBrovin.click();
    ASSERT_EQ(1U, world.dialogs.boxes.size());
    EXPECT_EQ("m44(, Fool,%2)", world.dialogs.boxes[0].text);
    world.form.Timer1.tick();
    world.dialogs.answers = {Button::Yes};
    world.form.cmdExit.click();
    EXPECT_EQ("", world.settings.setting("AgentShow")) << "nobody was there to be hidden";
}

TEST(Chatter, comesAtItsThresholds) {
    const Texts popOut = {"show", "play Wave", "speak boo", "hide"};
    const std::tuple<bool, int, int, Texts, std::string_view> cases[] = {
        {true, 0, 0, {}, "silent"},
        {true, 25, 99, {"speak chat"}, "below four times the frequency"},
        {true, 25, 100, {}, "at it"},
        {true, 200, 799, {"speak chat"}, "the most talkative"},
        {true, 200, 800, {}, "holds its beak at times"},
        {false, 0, 0, popOut, "a silent one pops out all the same"},
        {false, 0, 1, {}, "but at no other draw"},
        {false, 25, 3, popOut, "up to an eighth of the frequency"},
        {false, 25, 4, {}, "above it"},
        {false, 24, 3, popOut, "just an eighth"},
        {true, 8192, 0, {}, "a product that does not fit its variable"},
    };
    for (const auto& [visible, frequency, n, requests, why] : cases) {
        CharacterWorld world;
        world.settings.set("SpeechFreq", std::to_string(frequency));
        world.startUp();
        world.character.isVisible = visible;
        world.random.draws = {(n + 0.5) / 1001};
        EXPECT_EQ(requests, world.after([&] { world.form.Timer1.tick(); })) << why;
    }
}

TEST(Chatter, keepsItsFrequencyOverTenThousandTicks) {
    CharacterWorld world;
    world.startUp();
    world.form.chkBackup.setValue(0);
    world.form.chkCheck.setValue(0);
    world.form.chkUpdate.setValue(0);
    std::mt19937_64 numbers(3);
    std::uniform_real_distribution<double> draw(0, 1);
    constexpr int kTicks = 10'000;
    for (const bool visible : {true, false}) {
        int remarks = 0;
        for (int i = 0; i < kTicks; ++i) {
            world.character.isVisible = visible;
            world.random.draws = {draw(numbers)};
            remarks += world.after([&] { world.form.Timer1.tick(); }).empty() ? 0 : 1;
        }
        // At frequency 25: 100 of 1001 draws in view, 4 of 1001 in hiding; four standard deviations
        EXPECT_NEAR(kTicks * (visible ? 100 : 4) / 1001.0, remarks, visible ? 120 : 25);
    }
}

TEST(ProgramWithACharacter, growsWhereItStandsAndStaysOnTheScreen) {
    const struct {
        int entry;
        int x;
        int y; ///< before
        platform::Area after;
        const char* why;
    } kCases[] = {
        {1, 400, 300, {400, 300, 128, 128}, "as large as it is"},
        {2, 400, 300, {368, 236, 192, 192}, "its feet stay"},
        {3, 900, 10, {768, 0, 256, 256}, "moved onto the screen"},
        {4, 0, 621, {0, 365, 384, 384}, "in the corner it stood beyond the edge"},
    };
    for (const auto& row : kCases) {
        CharacterWorld world;
        world.startUp();
        world.character.put(row.x, row.y);
        world.form.cmbSize.select(row.entry);
        EXPECT_EQ(row.after, world.character.area()) << row.why;
        EXPECT_EQ(std::to_string(row.after.top), world.settings.read("Settings", "AgentY")) << row.why;
        CharacterWorld next(world.settings);
        next.startUp();
        EXPECT_EQ(row.after, next.character.area()) << row.why << ", and again at the next start";
        EXPECT_EQ("By the screen", next.form.cmbSize.items().front().text);
    }
    CharacterWorld fresh;
    fresh.settings.set("CharacterSize", "3");
    fresh.startUp();
    EXPECT_EQ(768 - 19, fresh.character.y + fresh.character.size) << "large ones stand where small ones do";
}

} // namespace
} // namespace brovin::app
