#include "cleaner/statistics.h"

#include "cleaner/cleaner_world.h"

#include <gtest/gtest.h>

namespace brovin::cleaner {
namespace {

using platform::Button;
using Texts = std::vector<std::string>;

TEST(Statistics, areTheWindowsTitle) {
    CleanerWorld world;
    world.statistics.updateStatistics();
    EXPECT_EQ("Brovin v2.7.106 - 0 (0 KB) nasties since 21 November 2026.", world.form.window.caption());
    for (const auto& [key, value] :
         {std::pair("TotalNuked", "321"), {"KB", "1234567"}, {"TotalDate", "Tuesday"}})
        world.settings.set(key, value);
    world.statistics.updateStatistics();
    EXPECT_EQ("Brovin v2.7.106 - 321 (1,234,567 KB) nasties since Tuesday.", world.form.window.caption());
}

TEST(Statistics, resetACountThatNobodyReachesHonestly) {
    constexpr std::tuple<std::string_view, bool, std::string_view> kCases[] = {
        {"65535", false, "the most that is believed"},
        {"65536", true, "one more"},
        {"lots", false, "counts as nought"},
    };
    for (const auto& [stored, reset, why] : kCases) {
        CleanerWorld world;
        world.settings.set("TotalNuked", std::string(stored));
        world.settings.set("KB", "5");
        world.settings.set("TotalDate", "Tuesday");
        world.statistics.updateStatistics();
        EXPECT_EQ(reset ? "0" : stored, world.settings.setting("TotalNuked")) << why;
        EXPECT_EQ(reset ? "0" : "5", world.settings.setting("KB")) << why;
        EXPECT_EQ(reset ? "21 November 2026" : "Tuesday", world.settings.setting("TotalDate")) << why;
        EXPECT_EQ(reset ? 1U : 0U, world.dialogs.boxes.size()) << why;
    }
}

TEST(Statistics, resetACountTooLargeForItsVariableToo) {
    CleanerWorld world;
    world.settings.set("TotalNuked", "99999999999");
    world.statistics.updateStatistics();
    EXPECT_EQ("0", world.settings.setting("TotalNuked"));
    EXPECT_EQ(1U, world.dialogs.boxes.size());
}

TEST(Statistics, tellTheCheatOffAndShowTheCountOnceMore) {
    CleanerWorld world;
    world.settings.set("TotalNuked", "70000");
    world.settings.set("User", "joe");
    world.statistics.updateStatistics();
    ASSERT_EQ(1U, world.dialogs.boxes.size());
    EXPECT_EQ("You've been very naughty. You seem to have increased your count by deceit\r\n"
              "and therefore, , Joe, I have been forced to reset it, Joe.",
              world.dialogs.boxes[0].text);
    EXPECT_EQ("Bad , Joe", world.dialogs.boxes[0].title);
    EXPECT_EQ(16, world.dialogs.boxes[0].style);
    EXPECT_EQ("Brovin v2.7.106 - 70000 (0 KB) nasties since 21 November 2026.", world.form.window.caption());
}

TEST(ResetCounter, asksAndTakesTheShortDate) {
    CleanerWorld world;
    world.settings.set("TotalNuked", " 12 ");
    world.settings.set("KB", "48");
    world.dialogs.answers = {Button::No};
    world.statistics.cmdResetCounter_Click();
    ASSERT_EQ(1U, world.dialogs.boxes.size());
    EXPECT_EQ("m25(12,, Fool)", world.dialogs.boxes[0].text);
    EXPECT_EQ(52, world.dialogs.boxes[0].style);
    EXPECT_EQ("48", world.settings.setting("KB"));

    world.dialogs.answers = {Button::Yes};
    world.statistics.cmdResetCounter_Click();
    EXPECT_EQ("0", world.settings.setting("TotalNuked"));
    EXPECT_EQ("0", world.settings.setting("KB"));
    EXPECT_EQ("21/11/2026", world.settings.setting("TotalDate"));

    world.statistics.cmdResetCounter_Click();
    EXPECT_EQ(2U, world.dialogs.boxes.size()) << "there is nothing to reset";
}

TEST(LastScanned, tellsWhenTheNextScanIs) {
    const std::tuple<platform::DateTime, std::string, std::string, std::string, std::string_view> cases[] = {
        {CleanerWorld::at(10, 5), "2", "12:05 pm 21/11/2026", "12:05 pm, 21 November", "noon is twelve"},
        {CleanerWorld::at(23, 5), "1", "12:05 am 22/11/2026", "12:05 am, 22 November", "so is midnight"},
        {CleanerWorld::at(10, 5), "1.5", "11:35 am 21/11/2026", "11:35 am, 21 November", "parts of an hour"},
        {CleanerWorld::at(20, 0), "245 hours", "1:00 am 02/12/2026", "1:00 am, 02 December", "another month"},
    };
    for (const auto& [last, interval, tip, panel, why] : cases) {
        CleanerWorld world;
        world.scan.lastScanTime = last;
        world.form.txtInterval.setText(interval);
        world.statistics.showLastScanned();
        EXPECT_EQ("m24(" + tip + ",%2)", world.form.txtInterval.toolTip()) << why;
        EXPECT_EQ("m22(%1,%2)", world.form.sbStatus.panel()) << "never yet";
        world.settings.set("LastScanned", "just now");
        world.statistics.showLastScanned();
        EXPECT_EQ("m23(just now,%2). m24(" + panel + ",%2).", world.form.sbStatus.panel()) << why;
    }
}

TEST(CopyNumbers, putsTheTitleOnTheClipboard) {
    CleanerWorld world;
    world.statistics.updateStatistics();
    const std::string title = world.form.window.caption();
    world.statistics.showRunning("scanning");
    world.statistics.cmdCopyNumbers_Click();
    EXPECT_EQ((Texts{title}), world.clipboard.texts) << "the numbers, whatever the title tells meanwhile";
    world.form.chkAgent.setValue(1);
    world.statistics.cmdCopyNumbers_Click();
    EXPECT_EQ(2U, world.clipboard.texts.size()) << "a missing character stops nothing";
    world.actor.character = &world.characters.only.sides;
    world.statistics.cmdCopyNumbers_Click();
    EXPECT_EQ((Texts{"play Write", "play WriteReturn"}), world.characters.only.requests);
}

} // namespace
} // namespace brovin::cleaner
