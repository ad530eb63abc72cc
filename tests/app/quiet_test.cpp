#include "program_world.h"
#include "text/date_text.h"

#include <gtest/gtest.h>

namespace brovin::app {
namespace {

using Texts = std::vector<std::string>;

struct ToldSurroundings final : platform::Surroundings {
    bool isLocked = false;
    bool silent = false;
    bool stillness = false;
    std::optional<platform::Area> window;
    std::function<void()> tell;

    [[nodiscard]] bool locked() const override { return isLocked; }
    [[nodiscard]] bool doNotDisturb() const override { return silent; }
    [[nodiscard]] std::optional<platform::Area> fullScreen() const override { return window; }
    [[nodiscard]] bool lessMotion() const override { return stillness; }
    void setChanged(std::function<void()> changed) override { tell = std::move(changed); }
};

/// A base, so that it is there before the program.
struct SomeSurroundings {
    ToldSurroundings around;
};

/// The running program at eight in the morning, with a character that stands on the left of two screens.
struct QuietWorld : SomeSurroundings, ProgramWorld {
    explicit QuietWorld(const fakes::FakeSettingsStore& before = {}) : ProgramWorld(false, &around) {
        settings.values = before.values;
        folder.files["default.blp"] = fakes::testLanguage() +
                                      "spkHello=hello\nspkRandomVisible=chat\nspkRandomHidden=boo\n"
                                      "spkClick=ouch\nspkClickPeedy=|ouch\n";
        characters.present = true;
        characters.installed = {"peedy.acs"};
        characters.screenAreas = {{0, 0, 1024, 768}, {1024, 0, 1024, 768}};
        clock.time = at("2026-11-21T08:00:00");
        program.Form_Load();
        for (ui::CheckBox* box : {&form.chkUpdate, &form.chkCheck, &form.chkBackup, &form.chkWord})
            box->setValue(0);
        requests().clear();
    }
    static platform::DateTime at(std::string_view iso) { return *text::dateOf(iso); }
    void tickAt(std::string_view iso) {
        clock.time = at(iso);
        form.Timer1.tick();
    }
    Texts& requests() { return characters.only.requests; }
    [[nodiscard]] bool silent() const { return characters.manners.loudness == platform::Loudness{0, 0}; }
    /// By a copy, as a service does: the menu is another one afterwards.
    void choose(std::size_t entry) { platform::MenuEntry(characters.menu.more[entry]).chosen(); }
    void chooseBelow(std::size_t menu, std::size_t entry) {
        platform::MenuEntry(characters.menu.more[menu].entries[entry]).chosen();
    }
};

TEST(Companion, standsStillAndIsReadOutWhereTheUserWantsIt) {
    QuietWorld world;
    for (const bool wanted : {true, false}) {
        world.around.stillness = wanted;
        world.around.tell();
        world.form.chkReadOut.setValue(wanted ? 1 : 0);
        EXPECT_EQ(wanted, world.characters.manners.still);
        EXPECT_EQ(wanted, world.characters.manners.readOut);
        EXPECT_FALSE(world.silent());
    }
    QuietWorld next(world.settings);
    EXPECT_FALSE(next.characters.manners.readOut) << "as it was stored";
}

TEST(Quiet, hasItsReasonsAndAllButTwoOfThemWaitForTheUsersWord) {
    const std::tuple<std::string_view, std::function<void(QuietWorld&)>, bool> cases[] = {
        {"nothing asks for it", [](auto&) {}, false},
        {"locked", [](QuietWorld& w) { w.around.isLocked = true; }, true},
        {"locked, not wanted",
         [](QuietWorld& w) { w.around.isLocked = true, w.form.chkQuietLocked.setValue(0); }, false},
        {"do not disturb, not wanted", [](QuietWorld& w) { w.around.silent = true; }, false},
        {"do not disturb", [](QuietWorld& w) { w.around.silent = true, w.form.chkQuietDesktop.setValue(1); },
         true},
        {"a film on its screen",
         [](QuietWorld& w) {
             w.around.window = {{0, 0, 1024, 768}};
         },
         true},
        {"a film on the other screen",
         [](QuietWorld& w) {
             w.around.window = {{1024, 0, 1024, 768}};
         },
         false},
        {"a film, not wanted",
         [](QuietWorld& w) {
             w.around.window = {{0, 0, 1024, 768}}, w.form.chkQuietFullScreen.setValue(0);
         },
         false},
        {"a film, and nobody",
         [](QuietWorld& w) {
             w.form.window.setVisible(true), w.form.chkAgent.setValue(0);
             w.around.window = {{1024, 0, 1024, 768}};
         },
         true},
        {"its hours, over midnight",
         [](QuietWorld& w) { w.clock.time = w.at("2026-11-21T06:59:59"), w.form.chkQuietHours.setValue(1); },
         true},
        {"its hours, not wanted", [](QuietWorld& w) { w.clock.time = w.at("2026-11-21T06:59:59"); }, false},
        {"behind its hours", [](QuietWorld& w) { w.form.chkQuietHours.setValue(1); }, false},
        {"within a day",
         [](QuietWorld& w) {
             w.form.chkQuietHours.setValue(1), w.form.dtpQuietTo.setValue(w.at("8:01"));
             w.form.dtpQuietFrom.setValue(w.at("8:00"));
         },
         true},
    };
    for (const auto& [why, happens, quiet] : cases) {
        QuietWorld world;
        happens(world);
        world.around.tell();
        EXPECT_EQ(quiet, world.silent()) << why;
        EXPECT_EQ(quiet, world.form.lblQuiet.visible()) << why;
        EXPECT_EQ(quiet, !world.characters.manners.curious) << why;
        EXPECT_EQ(why == "locked", world.characters.manners.paused) << why << ": nobody sees it move";
    }
}

TEST(Quiet, breaksOffAndSaysNothingMore) {
    QuietWorld world;
    world.choose(1); // its menu: a line, then Quiet
    EXPECT_EQ((Texts{"stop"}), world.requests());
    EXPECT_TRUE(world.form.mQuiet.checked());
    EXPECT_TRUE(world.characters.menu.more[1].checked);
    world.requests().clear();
    world.tickAt("2026-11-21T08:01:00"); // a draw of 0 chatters
    EXPECT_EQ(Texts{}, world.requests());
    world.random.draws = {0.9, 0.9};
    world.characters.events.click({"Peedy", 1});
    EXPECT_EQ((Texts{"show"}), world.requests()) << "and no ouch";
    world.form.cmdNuke.click();
    EXPECT_EQ("m13(%1,%2)", world.dialogs.boxes.at(0).text) << "the user has asked for it, so a box has it";
    world.form.cmdExit.click();
    EXPECT_EQ(2U, world.dialogs.boxes.size()) << "what needs an answer comes as a box";

    QuietWorld again(world.settings);
    EXPECT_EQ(Texts{}, again.requests()) << "no hello: it is still switched on";
    again.form.mQuiet.setValue(0); // by the icon's menu
    EXPECT_FALSE(again.silent());
    again.random.draws = {0};
    again.tickAt("2026-11-21T08:02:00");
    EXPECT_EQ((Texts{"speak chat"}), again.requests());
}

TEST(Quiet, sendsAwayWhoCameForOneRemark) {
    QuietWorld world;
    world.characters.only.isVisible = false;
    world.tickAt("2026-11-21T08:00:30"); // it pops out, and has been told to hide again
    world.characters.only.isVisible = true;
    world.requests().clear();
    world.form.mQuiet.setValue(1);
    EXPECT_EQ((Texts{"stop", "hide"}), world.requests());
}

TEST(Quiet, endsByTime) {
    QuietWorld world;
    world.random.draws = {0.9, 0.9, 0.9, 0.9, 0.9};
    world.form.mQuietHour.setValue(1);
    world.tickAt("2026-11-21T08:59:59");
    EXPECT_TRUE(world.silent());
    world.tickAt("2026-11-21T09:00:00");
    EXPECT_FALSE(world.silent());
    EXPECT_FALSE(world.form.mQuietHour.checked());
    world.form.mQuietHour.setValue(1);
    world.form.mQuietTomorrow.setValue(1); // in its place
    EXPECT_FALSE(world.form.mQuietHour.checked());
    world.tickAt("2026-11-22T05:59:59");
    EXPECT_TRUE(world.silent());
    world.tickAt("2026-11-22T06:00:00");
    EXPECT_FALSE(world.silent());
}

TEST(Quiet, keepsRemindersAndTheWordAndTellsThemOnce) {
    QuietWorld world;
    world.around.isLocked = true;
    world.form.chkBackup.setValue(1);
    world.form.dtpBackup.setValue(world.at("23:00"));
    world.form.chkMsgBox.setValue(1);
    world.form.chkWord.setValue(1);
    world.form.chkWordMsgBox.setValue(0);
    for (const char* tick : {"2026-11-21T09:15:10", "2026-11-21T23:00:10", "2026-11-22T23:00:10"})
        world.tickAt(tick);
    EXPECT_TRUE(world.dialogs.boxes.empty()) << "not even a forced one";
    world.around.isLocked = false;
    world.random.draws = {0.9};
    world.tickAt("2026-11-22T23:20:00");
    ASSERT_EQ(1U, world.dialogs.boxes.size()) << "of two reminders the latest, once";
    EXPECT_EQ("While it was quiet (23:00): m42(%1,%2)", world.dialogs.boxes[0].text);
    const Texts told = world.requests();
    EXPECT_EQ(1, std::ranges::count_if(told, [](const auto& r) {
                  return r.starts_with("speak While it was quiet (21/11/2026 09:15): m52(");
              }));
    world.dialogs.boxes.clear();
    world.tickAt("2026-11-22T23:21:00");
    EXPECT_TRUE(world.dialogs.boxes.empty());
}

TEST(Loudness, isSetByThePageAndByTheCharactersMenu) {
    QuietWorld world;
    world.form.sldVoice.setPercent(40);
    EXPECT_EQ((platform::Loudness{40, 100}), world.characters.manners.loudness);
    world.chooseBelow(6, 0); // no sounds
    EXPECT_EQ((platform::Loudness{40, 0}), world.characters.manners.loudness);
    EXPECT_EQ("1", world.settings.setting("MuteSounds"));
    world.chooseBelow(6, 4);
    EXPECT_EQ((platform::Loudness{40, 50}), world.characters.manners.loudness) << "which is heard again";
    EXPECT_TRUE(world.characters.menu.more[6].entries[4].checked);
    EXPECT_EQ("50", world.settings.setting("SoundVolume"));
    EXPECT_EQ((platform::Loudness{40, 50}), QuietWorld(world.settings).characters.manners.loudness);
}

} // namespace
} // namespace brovin::app
