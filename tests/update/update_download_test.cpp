#include "update/update_download.h"

#include "fakes/fake_downloads.h"
#include "fakes/fake_machine.h"
#include "update/proof.h"

#include <gtest/gtest.h>

namespace brovin::update {
namespace {

using platform::Button;

constexpr const char* kUrl = "https://maker.example/setup";

/// The download window, with a server that has an installer of 5 KB.
struct DownloadWorld : fakes::FakeMachine, fakes::FakeUpdates {
    DownloadWorld() {
        for (int i = 0; i <= 77; ++i)
            messages.set(i, "m" + std::to_string(i) + "(%1,%2)");
        key.carried = true;
        transfer.pages[kUrl].body = installer;
        sign({Kind::Program, "setup", "2.8.0"}, installer);
    }
    void sign(const Claim& claim, std::string_view content) {
        transfer.pages[statementUrl(kUrl)].body = fakes::FakeKey::statement(claim, content);
    }
    /// An installer of this size is signed and announced, whatever comes.
    void announce(int bytes) {
        transfer.pages[kUrl].announced = bytes;
        sign({Kind::Program, "setup", "2.8.0"}, std::string(static_cast<std::size_t>(bytes), 'i'));
    }
    void open() {
        form.window.setVisible(true);
        download.emplace(UpdateDownload::Needs{form, messages, dialogs, transfer, downloads, key, pump},
                         ProgramOffer{{2, 8, 0}, kUrl, changes, sizeKb}, "/program/DOWNLOAD.AVI");
    }
    void fetch() {
        open();
        windows.download(form);
    }
    [[nodiscard]] const std::string& text() const { return form.lblText.caption(); }

    std::string installer = std::string(5000, 'i') + "end";
    std::string changes;
    std::optional<std::int64_t> sizeKb;
    language::MessageTable messages;
    ui::FrmDownload form;
    std::optional<UpdateDownload> download;
};

TEST(UpdateDownload, opensWithTheChanges) {
    DownloadWorld world;
    world.changes = "Faster|Nicer";
    world.sizeKb = 5;
    world.open();
    EXPECT_EQ("m34(%1,%2) - m33(%1,%2): 5 KB", world.form.window.caption());
    EXPECT_EQ("m66(%1,%2)", world.form.cmdStart.caption());
    EXPECT_EQ("m67(%1,%2)", world.form.cmdCancel.caption());
    EXPECT_EQ("m72(%1,%2) m71(%1,%2)", world.text());
    EXPECT_EQ("Faster\r\nNicer", world.form.txtUpdates.text());
    world.changes = "";
    world.open();
    EXPECT_EQ("m71(%1,%2)", world.text());
}

TEST(UpdateDownload, fetchesAndOffersToInstall) {
    DownloadWorld world;
    world.downloads.files = {{"bro7.tmp", ""}, {"bro7.tmp.exe", ""}, {"brother.txt", ""}, {"x.tmp", ""}};
    std::vector<std::string> texts;
    world.form.lblText.observe([&] { texts.push_back(world.text()); });
    world.fetch();
    EXPECT_EQ("m74(%1,%2)", world.text());
    EXPECT_EQ("m75(%1,%2)", world.form.cmdCancel.caption());
    EXPECT_NE(texts.end(), std::find(texts.begin(), texts.end(), "m73(2,4)")) << "amounts in KB";
    EXPECT_DOUBLE_EQ(5003.0 / 1024, world.form.ProgressBar1.value());
    EXPECT_FALSE(world.form.Animation1.playing());
    EXPECT_EQ((std::map<std::string, std::string>{{"bro1.tmp", world.installer},
                                                  {"bro1.tmp.exe", world.installer},
                                                  {"brother.txt", ""},
                                                  {"x.tmp", ""}}),
              world.downloads.files);
    world.form.cmdCancel.click();
    EXPECT_FALSE(world.form.window.visible());
    EXPECT_FALSE(world.download->cancelled());
    EXPECT_TRUE(world.download->install());
    EXPECT_EQ(world.installer, world.downloads.started.at(0));
}

TEST(UpdateDownload, takesABodyOfWholePieces) {
    DownloadWorld world;
    world.transfer.pages[kUrl].body = std::string(4096, 'x');
    world.sign({Kind::Program, "setup", "2.8.0"}, world.transfer.pages[kUrl].body);
    world.fetch();
    EXPECT_EQ("m74(%1,%2)", world.text());
}

TEST(UpdateDownload, isNeverInstalledByItsCloseBox) {
    DownloadWorld world;
    world.fetch();
    world.form.window.close();
    EXPECT_TRUE(world.download->cancelled());
    EXPECT_TRUE(world.downloads.files.empty());
}

struct Trouble {
    const char* what;
    std::function<void(DownloadWorld&)> make;
    const char* text;
};

TEST(UpdateDownload, keepsNothingOfWhatWentWrong) {
    const Trouble troubles[] = {
        {"no network", [](DownloadWorld& w) { w.transfer.offline = true; }, "m70(7,No route)"},
        {"not found", [](DownloadWorld& w) { w.transfer.pages.erase(kUrl); }, "m70(404,Not found)"},
        {"an error page", [](DownloadWorld& w) { w.transfer.pages[kUrl].body = "<html>"; }, "m76(%1,%2)"},
        {"no length", [](DownloadWorld& w) { w.transfer.pages[kUrl].announced = 0; }, "m76(%1,%2)"},
        {"a short body", [](DownloadWorld& w) { w.announce(6000); }, "Less came"},
        {"a long body", [](DownloadWorld& w) { w.announce(5000); }, "More came"},
        {"an early end", [](DownloadWorld& w) { w.transfer.pages[kUrl].breaks = true; }, "connection broke"},
        {"a full disk", [](DownloadWorld& w) { w.downloads.room = 2000; }, "No space left"},
        {"no temporary folder", [](DownloadWorld& w) { w.downloads.refuses = true; },
         "m70(13,Permission denied)"},
    };
    for (const auto& [what, make, text] : troubles) {
        DownloadWorld world;
        make(world);
        world.fetch();
        EXPECT_NE(std::string::npos, world.text().find(text)) << what << ": " << world.text();
        EXPECT_TRUE(world.downloads.files.empty()) << what;
        EXPECT_FALSE(world.form.Animation1.playing()) << what;
        EXPECT_TRUE(world.form.cmdStart.enabled()) << what << ": the user may try again";
        EXPECT_FALSE(world.download->install()) << what;
        world.form.cmdCancel.click();
        EXPECT_TRUE(world.download->cancelled()) << what;
        EXPECT_TRUE(world.dialogs.boxes.empty()) << what << ": nothing runs that could be stopped";
    }
}

TEST(UpdateDownload, distrustsWhatTheMakerHasNotSigned) {
    const struct {
        const char* what;
        std::function<void(DownloadWorld&)> make;
        const char* text;
    } cases[] = {
        {"no statement", [](DownloadWorld& w) { w.transfer.pages.erase(statementUrl(kUrl)); },
         "no signature"},
        {"not a statement", [](DownloadWorld& w) { w.transfer.pages[statementUrl(kUrl)].body = "Hello"; },
         "cannot be read"},
        {"an endless statement",
         [](DownloadWorld& w) { w.transfer.pages[statementUrl(kUrl)].body.resize(100'000, 'x'); },
         "cannot be read"},
        {"another signer",
         [](DownloadWorld& w) {
             auto& body = w.transfer.pages[statementUrl(kUrl)].body;
             body.replace(body.rfind("signed:"), 6, "forged");
         },
         "not the maker's"},
        {"a changed statement", [](DownloadWorld& w) { w.transfer.pages[statementUrl(kUrl)].body[50] = '3'; },
         "not the maker's"},
        {"an old version",
         [](DownloadWorld& w) {
             w.sign({Kind::Program, "setup", "2.7.0"}, w.installer);
         },
         "another version"},
        {"a statement about a pack",
         [](DownloadWorld& w) {
             w.sign({Kind::Pack, "setup", "2.8.0"}, w.installer);
         },
         "another file"},
        {"a statement about another file",
         [](DownloadWorld& w) {
             w.sign({Kind::Program, "other", "2.8.0"}, w.installer);
         },
         "another file"},
        {"a build without a key", [](DownloadWorld& w) { w.key.carried = false; }, "not the maker's"},
        {"another size on offer", [](DownloadWorld& w) { w.sizeKb = 900; }, "another size"},
        {"another size",
         [](DownloadWorld& w) {
             w.sign({Kind::Program, "setup", "2.8.0"}, w.installer + "x");
         },
         "another size"},
        {"a file that was changed in between", [](DownloadWorld& w) { w.transfer.pages[kUrl].body[9] = 'x'; },
         "not the file that was signed"},
    };
    for (const auto& [what, make, text] : cases) {
        DownloadWorld world;
        make(world);
        world.fetch();
        EXPECT_TRUE(world.text().starts_with("m77")) << what << ": " << world.text();
        EXPECT_NE(std::string::npos, world.text().find(text)) << what << ": " << world.text();
        EXPECT_TRUE(world.downloads.files.empty()) << what;
        EXPECT_FALSE(world.download->install()) << what;
    }
}

TEST(UpdateDownload, asksBeforeItStops) {
    DownloadWorld world;
    int pieces = 0;
    world.dialogs.answers = {Button::No, Button::Yes};
    world.transfer.onPiece = [&] {
        if (++pieces == 2 || pieces == 4)
            world.form.cmdCancel.click();
    };
    world.fetch();
    ASSERT_EQ(2U, world.dialogs.boxes.size());
    EXPECT_EQ("m68(%1,%2)", world.dialogs.boxes[0].text);
    EXPECT_EQ("Cancel Update", world.dialogs.boxes[0].title);
    EXPECT_EQ(platform::box::kYesNo | platform::box::kExclamation, world.dialogs.boxes[0].style);
    EXPECT_EQ(4, pieces) << "nothing is read after the Yes";
    EXPECT_TRUE(world.download->cancelled());
    EXPECT_FALSE(world.form.window.visible());
    EXPECT_TRUE(world.downloads.files.empty());
    EXPECT_TRUE(world.transfer.cancelled);
}

TEST(UpdateDownload, canBeTriedAgain) {
    DownloadWorld world;
    world.transfer.offline = true;
    world.fetch();
    world.transfer.offline = false;
    world.windows.download(world.form);
    EXPECT_EQ("m74(%1,%2)", world.text());
}

} // namespace
} // namespace brovin::update
