#include "window/main_window.h"

#include "ui/list_hints.h"

#include "fakes/fake_machine.h"

#include <gtest/gtest.h>

namespace brovin::window {
namespace {

struct WindowWorld : fakes::FakeMachine {
    ui::FrmOptions form;
    settings::Settings options{settings};
    MainWindow window{{form, options, folder, shell, tray}};
};

TEST(MainWindow, showsOnePageAndMarksItsTab) {
    WindowWorld world;
    for (const int chosen : {3, 0, 7}) {
        EXPECT_TRUE(world.window.imgTabs_Click(chosen));
        for (int i = 0; i < 8; ++i) {
            const auto tab = static_cast<std::size_t>(i);
            EXPECT_EQ(i == chosen, world.form.picTab[tab].visible()) << i;
            EXPECT_EQ(i == chosen, world.form.lblTabs[tab].bold()) << i;
            EXPECT_EQ(i == chosen, world.form.lblTabs[tab].highlighted()) << i;
        }
        EXPECT_EQ(std::to_string(chosen), world.settings.setting("Tab"));
    }
    for (const int missing : {-1, 8, 99})
        EXPECT_FALSE(world.window.imgTabs_Click(missing));
    EXPECT_TRUE(world.form.picTab[7].visible());
    EXPECT_EQ("7", world.settings.setting("Tab"));
}

TEST(MainWindow, comesBackFromItsIconAndGoesThereAgain) {
    WindowWorld world;
    world.form.window.resize = [&world] { world.window.Form_Resize(); };
    int menus = 0;
    world.window.popUpMenu = [&menus] { ++menus; };
    for (const TrayMouse event : {TrayMouse::LeftUp, TrayMouse::LeftDoubleClick}) {
        world.form.window.setState(ui::WindowState::Minimized);
        EXPECT_FALSE(world.form.window.visible());
        world.window.trayMouse(event);
        EXPECT_TRUE(world.form.window.visible());
        EXPECT_EQ(ui::WindowState::Normal, world.form.window.state());
    }
    EXPECT_EQ(2, world.shell.foregrounds);
    EXPECT_EQ(0, menus);
    world.window.Form_Close();
    EXPECT_FALSE(world.form.window.visible());
    world.window.trayMouse(TrayMouse::RightUp);
    EXPECT_EQ(1, menus);
    EXPECT_EQ(3, world.shell.foregrounds) << "else the menu would not close by a click beside it";
    EXPECT_FALSE(world.form.window.visible()) << "the menu does not bring it back";
}

TEST(MainWindow, staysInTheTaskBarWhereThereIsNoNotificationArea) {
    WindowWorld world;
    world.form.window.resize = [&world] { world.window.Form_Resize(); };
    world.tray.present = false;
    world.window.mPopRestore_Click();
    world.window.Form_Close();
    EXPECT_TRUE(world.form.window.visible()) << "hidden it could never be reached again";
    EXPECT_EQ(ui::WindowState::Minimized, world.form.window.state());
}

TEST(MainWindow, opensWhatLiesBesideTheProgram) {
    WindowWorld world;
    world.window.cmdHelp_Click();
    world.window.imgLogo_Click();
    world.window.lblFeedback_Click();
    EXPECT_EQ((std::vector<std::string>{"/program/brovin.chm", "/program/kestrelworks.url",
                                        "/program/feedback.url"}),
              world.shell.opened);
}

TEST(MainWindow, tellsWhatCannotBeOpened) {
    WindowWorld world;
    std::vector<std::string> told;
    world.window.notOpened = [&told](const std::string& path) { told.push_back(path); };
    world.window.cmdHelp_Click();
    EXPECT_TRUE(told.empty());
    world.shell.opens = false;
    world.window.lblFeedback_Click();
    EXPECT_EQ(std::vector<std::string>{"/program/feedback.url"}, told);
}

TEST(ListHints, sayWhatIsMissing) {
    const struct {
        bool folder, name;
        bool hint, inVain;
    } cases[] = {{false, false, true, false}, {true, false, true, true}, {true, true, false, false}};
    for (const auto& row : cases) {
        ui::FrmOptions form;
        ui::tieListHints(form);
        if (row.folder)
            form.lstFolders.add({"/share", 0});
        if (row.name)
            form.lstFiles.add({"thumbs.db", 0});
        EXPECT_EQ(row.hint, form.picAddFile.visible());
        EXPECT_EQ(row.inVain, form.lblNoNames.visible());
    }
}

} // namespace
} // namespace brovin::window
