#include "app/program.h"

#include "fakes/fake_downloads.h"
#include "fakes/fake_machine.h"
#include "fakes/test_language.h"
#include "text/strings.h"

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
struct CheckWorld : FakeMachine, FakeUpdates {
    explicit CheckWorld(const std::vector<std::string>& languages = {"default.blp"}) {
        for (const std::string& file : languages)
            folder.files[file] = fakes::testLanguage();
        transfer.pages[kAsk].body = "no news";
        transfer.pages[kAskPack].body = "no news";
        transfer.pages[kSetup].body = std::string(5000, 'i');
        transfer.pages[std::string(kSetup) + ".sig"].body =
            fakes::FakeKey::statement({Kind::Program, "setup", "2.8.0"}, transfer.pages[kSetup].body);
        key.carried = true;
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

    app::Program program{{settings, files, landmarks, folder, dialogs, shell, tray, clipboard, characters,
                          logOn, instance, scanLock, regional, letters, clock, random, pump, &machine},
                         {"Brovin", 2, 7, 106},
                         "/opt/brovin"};
    ui::FrmOptions& form = program.frmOptions();
};

TEST(UpdateCheck, isAskedForByAButton) {
    CheckWorld world;
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
    CheckWorld world;
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

TEST(UpdateCheck, asksOnAfterAnErrorButNotASilentServerForEver) {
    CheckWorld world({"default.blp", "b.blp", "c.blp", "d.blp"});
    const auto pack = [](const std::string& file) {
        return text::replaceFirst(kAskPack, "default.blp", file);
    };
    const auto asked = [&] {
        world.transfer.requests.clear();
        world.form.cmdUpdate.click();
        return world.transfer.requests.size();
    };
    world.transfer.pages.erase(kAsk);
    world.transfer.pages.erase(kAskPack);
    for (const char* file : {"b.blp", "c.blp", "d.blp"})
        world.transfer.pages[pack(file)].body = "no news";
    EXPECT_EQ(5U, asked()) << "404 twice";
    world.transfer.pages[pack("b.blp")].silent = true;
    EXPECT_EQ(5U, asked()) << "silent once";
    world.transfer.pages[pack("c.blp")].silent = true;
    EXPECT_EQ(3U, asked()) << "silent twice: the other languages are left out";
    for (auto& [url, page] : world.transfer.pages)
        page = {.body = "no news", .took = std::chrono::seconds(9)};
    world.transfer.pages[kAsk] = {.body = "no news", .took = std::chrono::seconds(9)};
    EXPECT_EQ(3U, asked()) << "slow each time";
    EXPECT_EQ(std::chrono::seconds(7), world.transfer.requests.back().longest) << "what is left of the 25";
}

TEST(UpdateCheck, holdsTheSchedulerMeanwhile) {
    CheckWorld world;
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
    CheckWorld world;
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
        CheckWorld world;
        world.transfer.pages[kAsk].body = old;
        world.form.cmdUpdate.click();
        EXPECT_EQ("m28(,%2)", world.lastBox().text) << old;
    }
}

TEST(UpdateCheck, asksTwiceBeforeItGoesBack) {
    for (const Button sure : {Button::No, Button::Yes}) {
        CheckWorld world;
        world.transfer.pages[kAsk].body = "Version:2,6,200,https://maker.example/setup,,4";
        world.dialogs.answers = {Button::Yes, sure};
        world.form.cmdUpdate.click();
        ASSERT_EQ(2U, world.dialogs.boxes.size());
        EXPECT_NE(std::string::npos, world.dialogs.boxes[0].text.find("older than your version 2.7.106"));
        EXPECT_EQ("Do you really want to go back from version 2.7.106 to version 2.6.200?",
                  world.lastBox().text);
        EXPECT_EQ(sure == Button::Yes ? 1U : 0U, world.windows.titles.size());
    }
}

TEST(UpdateCheck, onlyShowsTheWayInABuildWithoutAKey) {
    CheckWorld world;
    world.key.carried = false;
    world.transfer.pages[kAsk].body = kOffer;
    world.dialogs.answers = {Button::Yes};
    world.windows.user = [&](ui::FrmDownload& form) {
        EXPECT_EQ("Faster\r\nNicer", form.txtUpdates.text());
        EXPECT_FALSE(form.ProgressBar1.visible());
        form.cmdStart.click();
    };
    world.form.cmdUpdate.click();
    EXPECT_EQ(std::vector<std::string>{world.folder.path("update.url")}, world.shell.opened);
    EXPECT_TRUE(world.downloads.started.empty());
    EXPECT_EQ(2U, world.transfer.requests.size()) << "the two questions, and no installer";
    EXPECT_FALSE(world.shell.ended);
    world.dialogs.answers = {Button::Yes};
    world.windows.user = [](ui::FrmDownload& form) { form.cmdCancel.click(); };
    world.form.cmdUpdate.click();
    EXPECT_EQ("m35(%1,%2)", world.form.sbStatus.panel());
}

TEST(UpdateCheck, makesRoomForTheInstaller) {
    CheckWorld world;
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
    CheckWorld world;
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
    CheckWorld world;
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
