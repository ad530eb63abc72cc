#include "headless/scan_command.h"

#include "fakes/fake_machine.h"
#include "fakes/test_language.h"
#include "text/date_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace brovin::headless {
namespace {

using Paths = std::vector<std::string>;

/// A machine with a console and one watched folder full of clutter.
struct World : fakes::FakeMachine {
    World() {
        folder.files["default.blp"] = fakes::testLanguage();
        clock.time = *text::dateOf("2026-11-21T10:05:00");
        files.addFile("/Share/Thumbs.DB", 6000);
        files.addFile("/Share/Old/__MACOSX/junk", 20480);
        files.addFile("/Share/keep.txt", 1);
        settings.values[{"foldlist.txt", "Number"}] = "1";
        settings.values[{"foldlist.txt", "Entry1"}] = "/share";
        settings.values[{"foldlist.txt", "Path1"}] = "/Share";
        settings.values[{"filelist.txt", "Number"}] = "2";
        settings.values[{"filelist.txt", "Entry1"}] = "thumbs.db";
        settings.values[{"filelist.txt", "Entry2"}] = "__macosx";
    }

    ExitStatus scan() {
        return scanCommand(options,
                           {settings, files, landmarks, folder, scanLock, regional, letters, clock, random,
                            history, damaged},
                           {in, out, err, interactive, false}, {"Brovin", 1, 0, 0});
    }

    ScanOptions options;
    bool interactive = false;
    bool damaged = false;
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
};

TEST(ScanCommand, isTheSameRunAsInTheWindow) {
    World world;
    EXPECT_EQ(ExitStatus::Done, world.scan());
    EXPECT_EQ((Paths{"/Share", "/Share/Old", "/Share/keep.txt"}), world.files.tree());
    EXPECT_EQ("2", world.settings.setting("TotalNuked"));
    EXPECT_EQ("25", world.settings.setting("KB"));
    EXPECT_EQ("21 November 2026 10:05:00", world.settings.setting("LastScanned"));
    EXPECT_EQ((Paths{"------------------------------------------------", "m55(10:05:00,21 November 2026)",
                     "m62(/share/thumbs.db,%2)", "m63(20,/share/old/__macosx)", "m56(2,25)",
                     "m57(10:05:00,21 November 2026)"}),
              world.folder.lines("deletions.log"));
    EXPECT_EQ(
        "deleted /Share/Thumbs.DB\ndeleted /Share/Old/__MACOSX\nDeleted 2 items, 25 KB, in 2 folders.\n",
        world.out.str());
    EXPECT_EQ("", world.err.str());
}

TEST(ScanCommand, changesNothingInADryRun) {
    World world;
    world.options.dryRun = true;
    world.settings.set("Confirm", "1");
    const auto before = world.settings.values;
    const auto tree = world.files.tree();
    EXPECT_EQ(ExitStatus::Done, world.scan());
    EXPECT_EQ(tree, world.files.tree());
    EXPECT_EQ(before, world.settings.values);
    EXPECT_FALSE(world.folder.files.contains("deletions.log"));
    EXPECT_EQ("would delete /Share/Thumbs.DB\nwould delete /Share/Old/__MACOSX\n"
              "Would delete 2 items, 25 KB, in 2 folders.\n",
              world.out.str());
}

TEST(ScanCommand, tellsTheTruthAboutAFailedDeletion) {
    World world;
    world.options.json = true;
    world.files.failing.insert({fakes::FileOperation::DeleteFile, "/Share/Thumbs.DB"});
    EXPECT_EQ(ExitStatus::SomeFailed, world.scan());
    EXPECT_EQ(
        "{\"path\":\"/Share/Thumbs.DB\",\"kind\":\"file\",\"why\":\"name\",\"kb\":5,\"deleted\":false,"
        "\"reason\":\"Permission denied\",\"known\":\"safe\",\"lost\":\"Windows made it: small pictures of "
        "the files "
        "beside it. Safe to delete; they are drawn again when needed.\"}\n"
        "{\"path\":\"/Share/Old/__MACOSX\",\"kind\":\"folder\",\"why\":\"name\",\"kb\":20,\"deleted\":true,"
        "\"known\":\"caution\",\"lost\":\"Unpacked from a Mac's archive: what its files carried beside their "
        "contents. Mostly nothing, sometimes an old font.\"}\n"
        "{\"summary\":{\"dryRun\":false,\"deleted\":1,\"wouldDelete\":0,\"failed\":1,\"kb\":20,"
        "\"foldersSwept\":2,\"foldersFailed\":0,\"subfoldersNotVisited\":0}}\n",
        world.out.str());
    EXPECT_EQ("2", world.settings.setting("TotalNuked"))
        << "the totals count the try, as they do in the window";

    World deep;
    deep.options.json = true;
    const std::string path = "/Share/" + std::string(2'000, 'x') + "/Thumbs.DB";
    deep.files.addFile(path);
    EXPECT_EQ(ExitStatus::Done, deep.scan());
    EXPECT_NE(std::string::npos, deep.out.str().find("{\"path\":\"" + path + "\",")) << "never cut";

    World told;
    told.files.addFile(path);
    EXPECT_EQ(ExitStatus::Done, told.scan());
    EXPECT_NE(std::string::npos, told.out.str().find("deleted /Share/xxx")) << "cut for the eye";
    EXPECT_LT(told.out.str().size(), 1300U);
}

TEST(ScanCommand, tellsWhatIsKeptAndSparedAndWhatIsLost) {
    World world;
    world.options.json = true;
    world.options.spareCarriers = world.options.dotUnderscore = true;
    world.options.nasty = {"thumbs.db", "__macosx"};
    world.options.keep = {"JUNK"};
    std::string forked("\0\5\x16\7\0\2\0\0", 8); // an AppleDouble with a resource fork of 9 bytes
    forked.append(16, '\0').append("\0\1\0\0\0\2\0\0\0\x26\0\0\0\x09", 14).append(9, 'x');
    std::string empty = forked.substr(0, 24).append(2, '\0');
    for (const auto& [name, content] : {std::pair("/Share/._forked", forked), {"/Share/._empty", empty}}) {
        world.files.addFile(name);
        world.files.setContent(name, content);
    }
    EXPECT_EQ(ExitStatus::Done, world.scan());
    EXPECT_EQ((Paths{"/Share/Thumbs.DB", "/Share/._empty"}), world.files.deleted)
        << "a folder is kept that holds what is kept";
    EXPECT_NE(
        std::string::npos,
        world.out.str().find("\"appledouble\":{\"nothingLost\":true,\"resourceFork\":0,"
                             "\"finderInfo\":false,\"otherParts\":0,\"damaged\":false,\"attributes\":[]}"));
    EXPECT_NE(std::string::npos, world.out.str().find(",\"kept\":1,\"spared\":1}}"));
    EXPECT_FALSE(world.settings.values.contains({"keeplist.txt", "Number"}));

    World dry;
    dry.options = world.options;
    dry.options.dryRun = true;
    dry.options.keep.clear();
    dry.options.spareCarriers = false;
    dry.files.addFile("/Share/._forked");
    dry.files.setContent("/Share/._forked", forked);
    EXPECT_EQ(ExitStatus::Done, dry.scan());
    EXPECT_NE(std::string::npos, dry.out.str().find("\"nothingLost\":false,\"resourceFork\":9"));
}

TEST(ScanCommand, sweepsNoHomeByMistake) {
    for (const char* folder : {"/", "/home/jo", "/home", "/mnt/stick"}) {
        World world;
        world.options.folders = {folder};
        world.files.addFolder(folder);
        EXPECT_EQ(ExitStatus::BadUsage, world.scan()) << folder;
        EXPECT_NE(std::string::npos, world.err.str().find("--yes-this-folder"));
        EXPECT_TRUE(world.files.asked.empty());
        world.options.yesThisFolder = true;
        EXPECT_EQ(ExitStatus::Done, world.scan()) << folder;
    }
}

TEST(ScanCommand, asksOnlyWhereSomebodyCanAnswer) {
    World silent;
    silent.settings.set("Confirm", "1");
    silent.in.str("y\ny\n");
    EXPECT_EQ(ExitStatus::SomeFailed, silent.scan()) << "nobody to ask";
    EXPECT_TRUE(silent.files.deleted.empty()) << "the answers were not for us";

    World asked;
    asked.settings.set("Confirm", "1");
    asked.interactive = true;
    asked.in.str("n\nYES\n");
    EXPECT_EQ(ExitStatus::Done, asked.scan());
    EXPECT_EQ(Paths{"/Share/Old/__MACOSX"}, asked.files.deleted);
}

TEST(ScanCommand, takesFoldersAndNamesInPlaceOfTheLists) {
    World world;
    world.files.addFile("/Other/JUNK");
    world.files.addFile("/Other/thumbs.db");
    world.options.folders = {"/Other"};
    world.options.nasty = {"Junk"};
    EXPECT_EQ(ExitStatus::Done, world.scan());
    EXPECT_EQ(Paths{"/Other/JUNK"}, world.files.deleted);
    EXPECT_EQ("thumbs.db", world.settings.read("filelist.txt", "Entry1")) << "the lists stay";
}

TEST(ScanCommand, saysWhyItDoesNothing) {
    World empty;
    empty.settings.values.clear();
    EXPECT_EQ(ExitStatus::NothingToScan, empty.scan());
    EXPECT_NE("", empty.err.str());

    World gone;
    gone.options.folders = {"/nowhere"};
    EXPECT_EQ(ExitStatus::SomeFailed, gone.scan());
    EXPECT_NE(std::string::npos, gone.err.str().find("/nowhere"));

    World busy;
    busy.scanLock.heldElsewhere = true;
    EXPECT_EQ(ExitStatus::Busy, busy.scan());
    EXPECT_TRUE(busy.files.deleted.empty());

    World mute;
    mute.folder.files.clear();
    EXPECT_EQ(ExitStatus::BadUsage, mute.scan());
    EXPECT_TRUE(mute.files.deleted.empty());

    World broken;
    broken.folder.files["default.blp"] = "language=x\nlanguageDesc=y\nlangversion=1\n";
    EXPECT_EQ(ExitStatus::BadUsage, broken.scan()) << "there is no other language";
    EXPECT_TRUE(broken.files.deleted.empty());
}

TEST(ScanCommand, passesOverABrokenLanguageFileAndKeepsTheChoice) {
    World world;
    world.folder.files["a.blp"] = world.folder.files["b.blp"] = "language=x\nlanguageDesc=y\nlangversion=1\n";
    world.settings.set("Language", "b.blp");
    EXPECT_EQ(ExitStatus::Done, world.scan());
    EXPECT_EQ("b.blp", world.settings.setting("Language"));
    EXPECT_EQ("", world.err.str());
    EXPECT_EQ("m55(10:05:00,21 November 2026)", world.folder.lines("deletions.log").at(1))
        << "in another language";
}

TEST(ScanCommand, obeysSwitchesBeforeSettings) {
    constexpr bool kWhole = false;
    constexpr bool kDamaged = true;
    const struct {
        bool damaged;
        std::vector<std::string_view> switches;
        Paths deleted;
        ExitStatus status;
    } kCases[] = {
        {kWhole, {"--nasty=x"}, {"/Test/x"}, ExitStatus::Done}, // and nothing else
        {kWhole, {"--nasty=x", "--no-force"}, {}, ExitStatus::SomeFailed},
        {kWhole, {"--nasty=y", "--dot-underscore"}, {"/Test/._a"}, ExitStatus::Done},
        {kWhole, {"--nasty=y", "--icon-files"}, {"/Test/Icon?"}, ExitStatus::Done},
        {kWhole, {}, {"/Test/._a", "/Test/Icon?"}, ExitStatus::Done},
        {kWhole, {"--no-icon-files"}, {"/Test/._a"}, ExitStatus::Done},
        {kWhole, {"--confirm"}, {}, ExitStatus::SomeFailed}, // nobody to ask
        {kWhole, {"--confirm", "--no-confirm", "--no-dot-underscore"}, {"/Test/Icon?"}, ExitStatus::Done},
        {kWhole, {"--nasty=y", "--icon-files", "--trash"}, {}, ExitStatus::SomeFailed}, // there is none
        {kWhole, {"--nasty=y", "--icon-files", "--trash", "--no-trash"}, {"/Test/Icon?"}, ExitStatus::Done},
        {kDamaged, {}, {}, ExitStatus::SomeFailed},
        {kDamaged, {"--nasty=x", "--no-confirm"}, {}, ExitStatus::SomeFailed},
        {kDamaged, {"--nasty=x", "--no-confirm", "--force"}, {"/Test/x"}, ExitStatus::SomeFailed},
    };
    for (const auto& expected : kCases) {
        World world;
        for (const char* file : {"/Test/x", "/Test/._a", "/Test/Icon?"})
            world.files.addFile(file);
        world.files.setReadOnly("/Test/x");
        world.files.hasTrash = false;
        std::vector<std::string_view> arguments{"--scan", "--folder", "/Test"};
        arguments.insert(arguments.end(), expected.switches.begin(), expected.switches.end());
        world.options = parseCommandLine(arguments).scanOptions;
        world.damaged = expected.damaged;
        const auto settings = world.settings.values.size();
        EXPECT_EQ(expected.status, world.scan()) << testing::PrintToString(expected.switches);
        EXPECT_EQ(expected.deleted, world.files.deleted) << testing::PrintToString(expected.switches);
        EXPECT_EQ(settings + (expected.damaged ? 0 : 3), world.settings.values.size())
            << "totals and time alone";
    }
}

TEST(ScanCommand, addsWhatIsReallyGoneToTheHistory) {
    const auto kept = [](const World& world) {
        std::vector<std::string> shares;
        for (const auto& [name, folder, items, kilobytes] : world.history.shares)
            shares.push_back(
                (std::ostringstream() << name << ' ' << folder << ' ' << items << ' ' << kilobytes).str());
        std::sort(shares.begin(), shares.end());
        return shares;
    };
    World world;
    for (const char* file :
         {"/Share/._a", "/Share/b/._b", "/Share/b/Icon\r", "/Share/b/Thumbs.db", "/Share/c/Thumbs.db"})
        world.files.addFile(file);
    world.files.failing = {{fakes::FileOperation::DeleteFile, "/Share/c/Thumbs.db"}};
    world.options.dryRun = true;
    EXPECT_EQ(ExitStatus::Done, world.scan());
    EXPECT_EQ(Paths(), kept(world)) << "a dry run deletes nothing";
    world.options.dryRun = false;
    EXPECT_EQ(ExitStatus::SomeFailed, world.scan());
    EXPECT_EQ((Paths{"._* /share 2 8", "__macosx /share 1 20", "icon? /share 1 4", "thumbs.db /share 2 9"}),
              kept(world));

    World locked;
    locked.history.refusal = "database is locked";
    EXPECT_EQ(ExitStatus::Done, locked.scan()) << "the scan itself went well";
    EXPECT_NE(std::string::npos, locked.err.str().find("database is locked")) << locked.err.str();
}

} // namespace
} // namespace brovin::headless
