#include "cleaner/watched_folder_list.h"

#include "cleaner/cleaner_world.h"

#include <gtest/gtest.h>

namespace brovin::cleaner {
namespace {

using platform::Button;
using Texts = std::vector<std::string>;

TEST(AddFolder, showsItAsItIsAndInLowerCaseFromTheNextLoadOn) {
    CleanerWorld world;
    world.form.picAdd.setVisible(false);
    world.watchedFolders.cmdAddFolder_Click();
    EXPECT_EQ((Texts{"m43(%1,%2)"}), world.dialogs.prompts);
    EXPECT_TRUE(world.form.picAdd.visible()) << "the choice was cancelled, and there is no folder yet";
    world.dialogs.folders = {"/Share/Photos"};
    world.watchedFolders.cmdAddFolder_Click();
    EXPECT_EQ((Texts{"/Share/Photos"}), CleanerWorld::texts(world.form.lstFolders));
    EXPECT_FALSE(world.form.picAdd.visible());
    EXPECT_EQ("/share/photos", world.settings.read("foldlist.txt", "Entry1"));
    world.watchedFolders.load();
    EXPECT_EQ((Texts{"/share/photos"}), CleanerWorld::texts(world.form.lstFolders));
    EXPECT_EQ("/Share/Photos", world.watchedFolders.truePath(0));
}

TEST(AddFolder, leadsOnToFoldersThatNoPickerShows) {
    CleanerWorld world;
    for (const char* folder : {"/Share/plain", "/Share/caf\xE9/Sub", "/Share/caf\xE9/\xFF"})
        world.files.addFolder(folder);
    using Lines = std::vector<Texts>;
    const std::tuple<std::deque<std::size_t>, std::string, Lines, std::string_view> cases[] = {
        {{}, "", {{"/Share", "caf\uFFFD"}}, "cancelled"},
        {{0}, "/Share", {{"/Share", "caf\uFFFD"}}, "the picked one itself"},
        {{1, 1},
         "/Share/caf\xE9/Sub",
         {{"/Share", "caf\uFFFD"}, {"/Share/caf\uFFFD", "Sub", "\uFFFD"}},
         "a plain name where no picker comes"},
    };
    for (const auto& [choices, added, offered, why] : cases) {
        world.watchedFolders.show({});
        world.dialogs.folders = {"/Share"};
        world.dialogs.choices = choices;
        world.dialogs.offered.clear();
        world.watchedFolders.cmdAddFolder_Click();
        EXPECT_EQ(added.empty() ? 0 : 1, world.form.lstFolders.count()) << why;
        EXPECT_EQ(offered, world.dialogs.offered) << why;
        if (!added.empty()) {
            EXPECT_EQ(added, world.watchedFolders.truePath(0)) << why;
        }
    }
}

TEST(RemoveFolder, leavesTheOthersTheirTrueSpelling) {
    CleanerWorld world;
    world.watchedFolders.show({"/A", "/B", "/C"});
    world.form.lstFolders.click = [&world] { world.watchedFolders.lstFolders_Click(); };
    world.watchedFolders.cmdRemoveFolder_Click();
    EXPECT_TRUE(world.dialogs.boxes.empty()) << "nothing is selected";
    world.form.lstFolders.select(1);
    EXPECT_EQ("/b", world.form.lstFolders.toolTip());
    world.dialogs.answers = {Button::No, Button::Yes};
    world.watchedFolders.cmdRemoveFolder_Click();
    EXPECT_EQ("m20(, Fool,%2)\r\n\r\n/b", world.dialogs.boxes[0].text);
    EXPECT_EQ(36, world.dialogs.boxes[0].style);
    EXPECT_EQ(3, world.form.lstFolders.count());
    EXPECT_TRUE(world.form.cmdRemoveFolder.enabled());

    world.watchedFolders.cmdRemoveFolder_Click();
    EXPECT_FALSE(world.form.cmdRemoveFolder.enabled());
    world.watchedFolders.load();
    EXPECT_EQ((Texts{"/a", "/c"}), CleanerWorld::texts(world.form.lstFolders));
    EXPECT_EQ("/C", world.watchedFolders.truePath(1));

    world.watchedFolders.show({"/A"});
    world.form.picAdd.setVisible(false);
    world.form.lstFolders.select(0);
    world.dialogs.answers = {Button::Yes};
    world.watchedFolders.cmdRemoveFolder_Click();
    EXPECT_TRUE(world.form.picAdd.visible()) << "the last one has gone";
}

TEST(TruePath, isNeverAGuess) {
    const std::tuple<std::string, std::string, std::optional<std::string>, std::string_view> cases[] = {
        {"/share", "/SHARE", "/SHARE", "stored beside the entry"},
        {"/share", "/Elsewhere", "/Share", "what is stored spells another entry, and one folder fits"},
        {"/share", "", "/Share", "one folder fits"},
        {"/twin", "", std::nullopt, "two fit"},
        {"/twin/deep", "", std::nullopt, "two fit on the way"},
        {"/exact", "", "/exact", "two fit, but one to the letter"},
        {"/gone", "", std::nullopt, "none fits"},
    };
    for (const auto& [entry, path, found, why] : cases) {
        CleanerWorld world;
        for (const std::string folder : {"/Share", "/Twin/Deep", "/TWIN", "/Exact", "/exact", "/Elsewhere"})
            world.files.addFolder(folder);
        world.settings.values[{"foldlist.txt", "Number"}] = "1";
        world.settings.values[{"foldlist.txt", "Entry1"}] = entry;
        world.settings.values[{"foldlist.txt", "Path1"}] = path;
        world.watchedFolders.load();
        EXPECT_EQ(found, world.watchedFolders.truePath(0)) << why;
    }
}

} // namespace
} // namespace brovin::cleaner
