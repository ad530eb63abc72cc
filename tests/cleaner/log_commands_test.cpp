#include "cleaner/log_commands.h"

#include "cleaner/cleaner_world.h"

#include <gtest/gtest.h>

namespace brovin::cleaner {
namespace {

using platform::Button;
using Texts = std::vector<std::string>;

TEST(InspectLog, opensItWithTheUsersProgram) {
    CleanerWorld world;
    world.logCommands.cmdInspect_Click();
    EXPECT_EQ((Texts{"/program/deletions.log"}), world.shell.opened);
}

TEST(EmptyLog, leavesThreeLines) {
    CleanerWorld world;
    world.folder.files["deletions.log"] = "old\r\nolder\r\n";
    world.dialogs.answers = {Button::Yes};
    world.logCommands.cmdEmpty_Click();
    EXPECT_EQ(
        (Texts{"------------------------------------------------", "m9(%1,%2) - 10:05:00 21 November 2026",
               "------------------------------------------------"}),
        world.folder.lines("deletions.log"));
    ASSERT_EQ(2U, world.dialogs.boxes.size());
    EXPECT_EQ("m7(%1,%2)", world.dialogs.boxes[0].text);
    EXPECT_EQ(52, world.dialogs.boxes[0].style);
    EXPECT_EQ("m10(%1,%2)", world.dialogs.boxes[1].text);
    EXPECT_EQ("m9(%1,%2)", world.dialogs.boxes[1].title);
}

TEST(EmptyLog, doesNothingUnlessToldTo) {
    CleanerWorld world;
    world.folder.files["deletions.log"] = "old\r\n";
    world.dialogs.answers = {Button::No};
    world.logCommands.cmdEmpty_Click();
    EXPECT_EQ((Texts{"old"}), world.folder.lines("deletions.log"));
    EXPECT_EQ(1U, world.dialogs.boxes.size());
}

TEST(EmptyLog, tellsWhyItFailed) {
    CleanerWorld world;
    world.folder.refusesWriting = true;
    world.dialogs.answers = {Button::Yes};
    world.logCommands.cmdEmpty_Click();
    ASSERT_EQ(2U, world.dialogs.boxes.size());
    EXPECT_EQ("An error occurred while trying to empty log.\r\n\r\nError 13: Permission denied\r\n\r\n"
              "Really, it serves you right.",
              world.dialogs.boxes[1].text);
    EXPECT_EQ("Ner ner, ner ner ner.", world.dialogs.boxes[1].title);
}

} // namespace
} // namespace brovin::cleaner
