#include "cleaner/nasty_file_list.h"

#include "cleaner/cleaner_world.h"

#include <gtest/gtest.h>

namespace brovin::cleaner {
namespace {

using platform::Button;
using Texts = std::vector<std::string>;

std::string stored(CleanerWorld& world, const std::string& key) {
    return world.settings.read("filelist.txt", key).value_or("missing");
}

TEST(AddFile, keepsTheNameInLowerCase) {
    CleanerWorld world;
    world.dialogs.typed = {"Thumbs.DB", "thumbs.db"};
    world.nastyFiles.cmdAddFile_Click();
    EXPECT_EQ((Texts{"thumbs.db"}), CleanerWorld::texts(world.form.lstFiles));
    EXPECT_EQ("m0(, Fool,%2)\r\n\r\nm1(%1,%2)", world.dialogs.inputs[0].prompt);
    EXPECT_EQ("thumbs.db", stored(world, "Entry1"));
    world.nastyFiles.cmdAddFile_Click();
    EXPECT_EQ((Texts{"thumbs.db", "thumbs.db"}), CleanerWorld::texts(world.form.lstFiles))
        << "twice is allowed";
}

TEST(AddFile, asksAgainUntilTheNameWillDo) {
    const std::string longest(32, 'x');
    const std::string forbidden = "m3(%1,%2)\r\n\r\n\"\\/:*?<>|";
    // What is typed, and what is said against it
    const std::tuple<std::string, std::string, std::string_view> cases[] = {
        {longest, "", "32 characters fit"},
        {longest + "x", "m5(, Fool,%2)", "33 do not"},
        {longest.substr(1) + "\u00e4", "", "characters are counted, not bytes"},
        {"a:b", forbidden, "a colon"},
        {"\"a", forbidden, "the first of the signs"},
        {"a|", forbidden, "the last of the signs"},
    };
    for (const auto& [typed, box, why] : cases) {
        CleanerWorld world;
        world.dialogs.typed = {typed};
        world.nastyFiles.cmdAddFile_Click();
        EXPECT_EQ(box.empty() ? 1U : 0U, world.form.lstFiles.items().size()) << why;
        ASSERT_EQ(box.empty() ? 0U : 1U, world.dialogs.boxes.size()) << why;
        if (box.empty())
            continue;
        EXPECT_EQ(box, world.dialogs.boxes[0].text) << why;
        EXPECT_EQ(16, world.dialogs.boxes[0].style) << why;
        ASSERT_EQ(2U, world.dialogs.inputs.size()) << why;
        EXPECT_EQ(typed, world.dialogs.inputs[1].text) << "it stands there to be mended";
    }
}

TEST(AddFile, changesNothingOnAnEmptyAnswer) {
    CleanerWorld world;
    world.dialogs.typed = {"", "not asked for"};
    world.nastyFiles.cmdAddFile_Click();
    EXPECT_EQ(1U, world.dialogs.inputs.size());
    EXPECT_EQ(0, world.settings.writes);
}

// The user has been told that what he changes holds until the program ends.
TEST(AddFile, keepsTheNameForThisTimeWhenItCannotBeStored) {
    CleanerWorld world;
    world.dialogs.typed = {"junk", "thumbs.db"};
    world.nastyFiles.cmdAddFile_Click();
    world.settings.refuses = true;
    world.nastyFiles.cmdAddFile_Click();
    EXPECT_EQ((Texts{"junk", "thumbs.db"}), CleanerWorld::texts(world.form.lstFiles));
}

TEST(RemoveFile, takesAwayTheSelectedOneOnYes) {
    CleanerWorld world;
    for (const std::string name : {"a", "b", "c"})
        world.nasty(name);
    world.form.lstFiles.click = [&world] { world.nastyFiles.lstFiles_Click(); };
    world.nastyFiles.cmdRemoveFile_Click();
    EXPECT_TRUE(world.dialogs.boxes.empty()) << "nothing is selected";

    world.form.lstFiles.select(1);
    EXPECT_TRUE(world.form.cmdRemoveFile.enabled());
    world.dialogs.answers = {Button::No, Button::Yes};
    world.nastyFiles.cmdRemoveFile_Click();
    EXPECT_EQ(3, world.form.lstFiles.count());
    EXPECT_EQ("m18(, Fool,%2)\r\n\r\n\"b\"", world.dialogs.boxes[0].text);
    EXPECT_EQ(36, world.dialogs.boxes[0].style);
    world.nastyFiles.cmdRemoveFile_Click();
    EXPECT_EQ((Texts{"a", "c"}), CleanerWorld::texts(world.form.lstFiles));
    EXPECT_FALSE(world.form.cmdRemoveFile.enabled());
    EXPECT_EQ("2", stored(world, "Number"));
    EXPECT_EQ("c", stored(world, "Entry2"));
}

TEST(StarterNames, offersWhatMayGoAndTicksWhatIsSafe) {
    CleanerWorld world;
    world.nasty(".ds_store");
    world.form.cmdStarter.click();
    ui::FrmStarter& starter = world.form.frmStarter;
    ASSERT_TRUE(starter.window.visible());
    for (auto& suggestion : starter.safe) {
        EXPECT_TRUE(suggestion.chkName.checked());
        EXPECT_EQ(suggestion.chkName.caption() != ".ds_store", suggestion.chkName.enabled()) << "on the list";
        EXPECT_NE("", suggestion.lblWhy.caption());
    }
    for (auto& suggestion : starter.caution) {
        EXPECT_FALSE(suggestion.chkName.checked());
        EXPECT_EQ(std::string::npos, suggestion.chkName.caption().find("trash"));
        suggestion.chkName.setValue(suggestion.chkName.caption() == "desktop.ini" ? 1 : 0);
    }
    starter.cmdAddThese.click();
    EXPECT_FALSE(starter.window.visible());
    const Texts listed = CleanerWorld::texts(world.form.lstFiles);
    EXPECT_EQ(starter.safe.size() + 1, listed.size()) << "and none twice";
    EXPECT_EQ("desktop.ini", listed.back());
    EXPECT_EQ("desktop.ini", stored(world, "Entry" + std::to_string(listed.size())));

    world.form.cmdStarter.click();
    for (auto& suggestion : starter.safe)
        suggestion.chkName.setValue(0);
    EXPECT_FALSE(starter.cmdAddThese.enabled()) << "nothing to add";
}

TEST(NastyFileList, tellsWhatIsLostWithAKnownName) {
    CleanerWorld world;
    world.nastyFiles.load();
    EXPECT_TRUE(world.form.sbKnown.panel().starts_with("There are no names")) << world.form.sbKnown.panel();
    world.nasty("thumbs.db");
    world.nasty("mine.txt");
    world.form.lstFiles.select(0);
    EXPECT_TRUE(world.form.sbKnown.panel().starts_with("Windows made it"));
    world.form.lstFiles.select(1);
    EXPECT_EQ("", world.form.sbKnown.panel());
}

} // namespace
} // namespace brovin::cleaner
