#include "update/language_pack.h"

#include "app/program.h"
#include "fakes/fake_downloads.h"
#include "fakes/fake_machine.h"
#include "fakes/test_language.h"
#include "text/strings.h"
#include "update/proof.h"

#include <gtest/gtest.h>

namespace brovin::update {
namespace {

using platform::Button;

constexpr const char* kQuestion = "https://maker.example/download/brovinupdate.php?myid=brovin&myver=1.0.0";
constexpr const char* kPackQuestion = "https://maker.example/download/brovinupdate.php?myid=lang&mylang=";
constexpr const char* kPack = "http://maker.example/pack";
constexpr const char* kSafePack = "https://maker.example/pack";

/// The whole program with two languages, a newer pack for one of them, and a user who wants it.
struct PackWorld : fakes::FakeMachine, fakes::FakeUpdates {
    explicit PackWorld(const std::string& packFor = "default.blp") {
        folder.files["default.blp"] = fakes::testLanguage();
        folder.files["other.blp"] = fakes::testLanguage();
        pack = text::replaceFirst(fakes::testLanguage(), "langversion=1.5", "langversion=1.6") +
               "lblcmdNuke=&New caption\n";
        transfer.pages[kQuestion].body = "no news";
        transfer.pages[kPackQuestion + packFor + "&myver=1.5"].body = std::string(kPack) + ",1.6";
        transfer.pages[kPack].body = transfer.pages[kSafePack].body = pack;
        dialogs.answers = {Button::Yes};
    }
    void check() {
        program.emplace(app::Machine{settings, files, landmarks, folder, dialogs, shell, tray, clipboard,
                                     characters, logOn, instance, scanLock, regional, letters, clock, random,
                                     pump, &machine},
                        settings::ProgramInfo{"Brovin", 1, 0, 0}, "/opt/brovin");
        program->Form_Load();
        program->frmOptions().cmdUpdate.click();
    }
    [[nodiscard]] ui::FrmOptions& form() { return program->frmOptions(); }
    [[nodiscard]] std::string lastText() const { return dialogs.boxes.back().text; }

    std::string pack;
    std::optional<app::Program> program;
};

TEST(LanguagePack, replacesTheActiveLanguage) {
    PackWorld world;
    world.check();
    ASSERT_EQ(2U, world.dialogs.boxes.size());
    EXPECT_EQ("Version 1.6 of the Test - for tests v1.5 language pack is available. Would you like to "
              "download it now?",
              world.dialogs.boxes[0].text);
    EXPECT_EQ("Language update", world.dialogs.boxes[0].title);
    EXPECT_EQ("m36(%1,%2)", world.dialogs.boxes[1].text);
    EXPECT_EQ(world.pack, world.folder.files["default.blp"]);
    EXPECT_EQ("&New caption", world.form().cmdNuke.caption()) << "loaded again";
    EXPECT_EQ("Test - for tests v1.6", world.form().lstLang.selectedText());
    EXPECT_FALSE(world.form().picAnim.visible());
    EXPECT_EQ(kSafePack, world.transfer.requests.at(2).url) << "no key, so by https";
}

TEST(LanguagePack, leavesAnotherLanguageInUse) {
    PackWorld world("other.blp");
    world.check();
    EXPECT_EQ(world.pack, world.folder.files["other.blp"]);
    EXPECT_EQ("&Scan NOW", world.form().cmdNuke.caption());
    EXPECT_EQ("Test - for tests v1.5", world.form().lstLang.selectedText());
    EXPECT_EQ("Test - for tests v1.6", world.form().lstLang.items()[1].text);
}

TEST(LanguagePack, staysWhereItIsWhenDeclined) {
    PackWorld world;
    world.dialogs.answers = {Button::No};
    world.check();
    EXPECT_EQ(fakes::testLanguage(), world.folder.files["default.blp"]);
    EXPECT_EQ(3U, world.transfer.requests.size()) << "both languages were asked for, and no pack";
}

TEST(LanguagePack, keepsTheOldOneWhenSomethingIsWrong) {
    const struct {
        const char* what;
        std::function<void(PackWorld&)> make;
        const char* text;
    } cases[] = {
        {"an error page", [](PackWorld& w) { w.transfer.pages[kSafePack].body = "<html>language=</html>"; },
         "m37"},
        {"nothing", [](PackWorld& w) { w.transfer.pages[kSafePack].body = ""; }, "m37"},
        {"a drop-down list is missing",
         [](PackWorld& w) {
             w.transfer.pages[kSafePack].body = text::replaceAll(w.pack, "envCheckOptions=", "other=");
         },
         "m37"},
        {"it is empty",
         [](PackWorld& w) {
             w.transfer.pages[kSafePack].body =
                 text::replaceAll(w.pack, "envDudeOptions=both,male,female", "envDudeOptions=");
         },
         "m37"},
        {"it would not be listed",
         [](PackWorld& w) {
             w.transfer.pages[kSafePack].body = text::replaceAll(w.pack, "languageDesc", "x");
         },
         "m37"},
        {"it is gone", [](PackWorld& w) { w.transfer.pages.erase(kSafePack); }, "Not found"},
        {"it is too large", [](PackWorld& w) { w.transfer.pages[kSafePack].body.resize(5U << 20U, '\n'); },
         "too long"},
        {"the disk is full", [](PackWorld& w) { w.folder.refusesWriting = true; }, "No space left"},
        {"there is no statement", [](PackWorld& w) { w.key.carried = true; }, "no signature"},
        {"it is for another version",
         [](PackWorld& w) {
             w.key.carried = true;
             w.transfer.pages[statementUrl(kPack)].body =
                 fakes::FakeKey::statement({Kind::Pack, "default.blp", "1.7"}, w.pack);
         },
         "another version"},
        {"it was changed on the way",
         [](PackWorld& w) {
             w.key.carried = true;
             w.transfer.pages[statementUrl(kPack)].body =
                 fakes::FakeKey::statement({Kind::Pack, "default.blp", "1.6"}, w.pack);
             w.transfer.pages[kPack].body = text::replaceAll(w.pack, "Lady", "Ugly");
         },
         "not the file"},
    };
    for (const auto& [what, make, text] : cases) {
        PackWorld world;
        make(world);
        world.check();
        EXPECT_EQ(fakes::testLanguage(), world.folder.files["default.blp"]) << what;
        EXPECT_NE(std::string::npos, world.lastText().find(text)) << what << ": " << world.lastText();
        EXPECT_EQ("&Scan NOW", world.form().cmdNuke.caption()) << what;
    }
}

TEST(LanguagePack, comesByPlainHttpWhenTheMakerHasSignedIt) {
    PackWorld world;
    world.key.carried = true;
    world.transfer.pages[statementUrl(kPack)].body =
        fakes::FakeKey::statement({Kind::Pack, "default.blp", "1.6"}, world.pack);
    world.check();
    EXPECT_EQ(world.pack, world.folder.files["default.blp"]);
    EXPECT_EQ(kPack, world.transfer.requests.at(2).url);
}

} // namespace
} // namespace brovin::update
