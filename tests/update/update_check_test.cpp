#include "app/program.h"

#include "fakes/fake_downloads.h"
#include "fakes/fake_machine.h"
#include "fakes/test_language.h"

#include <gtest/gtest.h>

namespace brovin::update {
namespace {

using fakes::FakeMachine;
using fakes::FakeUpdates;
using platform::Button;

constexpr const char* kAsk = "https://maker.example/download/brovinupdate.php?myid=brovin&myver=2.7.106";
constexpr const char* kAskPack =
    "https://maker.example/download/brovinupdate.php?myid=lang&mylang=default.blp&myver=1.5";
constexpr const char* kSetup = "https://maker.example/setup";
constexpr const char* kOffer = "Version:2,8,0,https://maker.example/setup,Faster|Nicer,4";

/// The whole program with the maker's server in memory, which answers but has nothing to offer.
struct World : FakeMachine, FakeUpdates {
    World() {
        folder.files["default.blp"] = fakes::testLanguage();
        transfer.pages[kAsk].body = "no news";
        transfer.pages[kAskPack].body = "no news";
        transfer.pages[kSetup].body = std::string(5000, 'i');
        program.Form_Load();
        form.chkDude.setValue(1);
        dialogs.boxes.clear();
    }
    void watchAFolder() {
        files.addFolder("/Share");
        dialogs.folders = {"/Share"};
        form.cmdAddFolder.click();
        dialogs.boxes.clear();
    }
    [[nodiscard]] const fakes::FakeDialogs::Box& lastBox() const { return dialogs.boxes.back(); }

    app::Program program{{settings, files, folder, dialogs, shell, tray, clipboard, characters, registry,
                          instance, scanLock, regional, clock, random, pump, &machine},
                         {"Brovin", 2, 7, 106},
                         "/opt/brovin"};
    ui::FrmOptions& form = program.frmOptions();
};

TEST(UpdateCheck, isAskedForByAButton) {
    World world;
    const std::string before = world.form.sbStatus.panel();
    std::vector<std::string> panels;
    world.form.sbStatus.observe([&] { panels.push_back(world.form.sbStatus.panel()); });
    world.form.cmdUpdate.click();
    EXPECT_EQ("0", world.settings.setting("NoCheck"));
    EXPECT_EQ((std::vector<std::string>{"m27(%1,%2)", before}), panels);
    EXPECT_EQ("m28(,%2)", world.lastBox().text);
    EXPECT_EQ("m30(%1,%2)", world.lastBox().title);
    ASSERT_EQ(2U, world.transfer.requests.size());
    EXPECT_EQ(kAsk, world.transfer.requests[0].url);
    EXPECT_EQ(kAskPack, world.transfer.requests[1].url);

    world.transfer.offline = true;
    world.form.cmdUpdate.click();
    EXPECT_EQ("m29(%1,%2)", world.lastBox().text);
    world.transfer.offline = false;
    world.transfer.pages[kAsk].body = "";
    world.form.cmdUpdate.click();
    EXPECT_EQ("m29(%1,%2)", world.lastBox().text) << "an empty answer is none";
}

TEST(UpdateCheck, saysNothingWhenNobodyAsked) {
    World world;
    world.watchAFolder();
    world.form.cmdNuke.click();
    ASSERT_EQ(1U, world.dialogs.boxes.size()) << "the scan's result alone";
    EXPECT_EQ(2U, world.transfer.requests.size()) << "a scan ends with a check";

    world.transfer.offline = true;
    world.form.chkUpdate.setValue(1);
    world.form.chkCheck.setValue(0);
    world.form.Timer1.tick();
    EXPECT_EQ(1U, world.dialogs.boxes.size());
    EXPECT_EQ(4U, world.transfer.requests.size()) << "a server that is away is not asked about each language";
    world.form.Timer1.tick();
    EXPECT_EQ(4U, world.transfer.requests.size()) << "once a day";
}

TEST(UpdateCheck, offersLanguagesThoughTheAnswerAboutTheProgramIsLost) {
    World world;
    world.transfer.pages[kAsk].unreachable = true;
    world.transfer.pages[kAskPack].body = "http://maker.example/default.blp,1.9";
    world.dialogs.answers = {Button::No};
    world.form.cmdUpdate.click();
    ASSERT_EQ(1U, world.dialogs.boxes.size());
    EXPECT_EQ("Language update", world.lastBox().title);
}

TEST(UpdateCheck, holdsTheSchedulerMeanwhile) {
    World world;
    world.transfer.pages[kAsk].body = kOffer;
    bool stood = false;
    world.dialogs.onBox = [&](const auto&) {
        stood = !world.form.Timer1.enabled();
        world.form.cmdUpdate.click();
    };
    world.form.cmdUpdate.click();
    EXPECT_TRUE(stood);
    EXPECT_TRUE(world.form.Timer1.enabled());
    EXPECT_EQ(1U, world.dialogs.boxes.size()) << "no check within a check";
}

TEST(UpdateCheck, remembersThatAnOfferWasDeclined) {
    World world;
    world.transfer.pages[kAsk].body = kOffer;
    world.dialogs.answers = {Button::No};
    world.form.cmdUpdate.click();
    ASSERT_EQ(1U, world.dialogs.boxes.size());
    EXPECT_EQ("m31(,%2)m32(2,8) - m33(%1,%2): 4 KB", world.dialogs.boxes[0].text);
    EXPECT_EQ("m34(%1,%2)", world.dialogs.boxes[0].title);
    EXPECT_EQ("1", world.settings.setting("NoCheck"));
    EXPECT_EQ("m35(%1,%2)", world.form.sbStatus.panel());
    EXPECT_TRUE(world.windows.titles.empty());
}

TEST(UpdateCheck, offersOnlyWhatIsNewer) {
    for (const char* old :
         {"Version:2,7,106,https://maker.example/setup", "Version:1,0,0,https://x.example/"}) {
        World world;
        world.transfer.pages[kAsk].body = old;
        world.form.cmdUpdate.click();
        EXPECT_EQ("m28(,%2)", world.lastBox().text) << old;
    }
}

TEST(UpdateCheck, makesRoomForTheInstaller) {
    World world;
    world.transfer.pages[kAsk].body = kOffer;
    world.dialogs.answers = {Button::Yes};
    world.windows.user = [&](ui::FrmDownload& form) {
        world.windows.download(form);
        form.cmdCancel.click();
    };
    world.watchAFolder();
    world.form.cmdNuke.click();
    EXPECT_EQ(1U, world.downloads.started.size());
    EXPECT_TRUE(world.shell.ended);
    EXPECT_FALSE(world.tray.shown);
    EXPECT_FALSE(world.form.Timer1.enabled());
    EXPECT_EQ(1U, world.dialogs.boxes.size()) << "the offer; the scan's result has no window any more";
}

TEST(UpdateCheck, goesOnWhenTheInstallerDoesNotStart) {
    World world;
    world.transfer.pages[kAsk].body = kOffer;
    world.downloads.startsNothing = true;
    world.dialogs.answers = {Button::Yes};
    world.windows.user = [&](ui::FrmDownload& form) {
        world.windows.download(form);
        form.cmdCancel.click();
    };
    world.form.cmdUpdate.click();
    EXPECT_NE(std::string::npos, world.lastBox().text.find("This is no installer"));
    EXPECT_FALSE(world.shell.ended);
    EXPECT_TRUE(world.form.Timer1.enabled());
}

TEST(UpdateCheck, goesOnAfterACancelledDownload) {
    World world;
    world.transfer.pages[kAsk].body = kOffer;
    world.dialogs.answers = {Button::Yes};
    world.windows.user = [](ui::FrmDownload& form) { form.cmdCancel.click(); };
    world.form.cmdUpdate.click();
    EXPECT_EQ("m35(%1,%2)", world.form.sbStatus.panel());
    EXPECT_EQ("0", world.settings.setting("NoCheck"));
    EXPECT_FALSE(world.shell.ended);
    EXPECT_EQ(kAskPack, world.transfer.requests.back().url) << "the languages are asked for all the same";
}

} // namespace
} // namespace brovin::update
