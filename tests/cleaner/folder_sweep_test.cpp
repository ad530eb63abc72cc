#include "cleaner/folder_sweep.h"

#include "cleaner/cleaner_world.h"

#include <gtest/gtest.h>

#include <limits>

namespace brovin::cleaner {
namespace {

using fakes::FileOperation;
using platform::Button;
using Texts = std::vector<std::string>;

constexpr std::uint64_t kTooLarge = 40'000'000; // more kilobytes than 16 bits hold

class RecordedLog final : public platform::LineWriter {
public:
    Texts lines;
    bool full = false;

    platform::Status writeLine(std::string_view line) override {
        if (full)
            return platform::Failure{28, "No space left on device"};
        lines.emplace_back(line);
        return platform::Done{};
    }
};

/// Sweeps the folder /d and keeps a log.
struct FolderSweepWorld : CleanerWorld {
    explicit FolderSweepWorld(const Texts& names = {"junk"}) {
        for (const std::string& name : names)
            nasty(name);
        form.chkLog.setValue(1);
        sweep.beginRun(&log);
    }
    void run() { sweep.sweepFolder("/d", "/d"); }

    RecordedLog log;
};

TEST(FolderSweep, countsWholeKilobytesButFourAtLeast) {
    constexpr std::pair<std::uint64_t, std::int32_t> kCases[] = {{0, 4},    {100, 4},  {5119, 4},
                                                                 {5120, 5}, {6000, 5}, {33'554'431, 32767}};
    for (const auto& [bytes, kb] : kCases) {
        FolderSweepWorld file;
        file.files.addFile("/d/Junk", bytes);
        file.run();
        EXPECT_EQ(kb, file.sweep.scanKB) << bytes;
        EXPECT_EQ((Texts{"m62(/d/junk,%2)"}), file.log.lines);

        FolderSweepWorld folder;
        folder.files.addFile("/d/JUNK/deep/a", bytes / 2);
        folder.files.addFile("/d/JUNK/b", bytes - bytes / 2);
        folder.run();
        EXPECT_EQ(kb, folder.sweep.scanKB) << bytes;
        EXPECT_EQ((Texts{"m63(" + folder.regional.grouped(kb) + ",/d/junk)"}), folder.log.lines);
        EXPECT_EQ((Texts{"/d/JUNK"}), folder.files.deleted) << "whole, by one deletion";
    }
}

TEST(FolderSweep, countsASizeBeyondTheVariableLikeTheOneBefore) {
    // The sizes of the files f0, f1 and so on
    const std::tuple<std::vector<std::uint64_t>, std::int32_t, std::string_view> cases[] = {
        {{6000, kTooLarge}, 5 + 5, "keeps the five"},
        {{kTooLarge}, 4, "there is none before"},
        {{6000, 100, kTooLarge}, 5 + 4 + 4, "keeps the nought of the small one"},
        {{kTooLarge, 9000, kTooLarge, kTooLarge}, 4 + 8 + 8 + 8, "as often as need be"},
    };
    for (const auto& [sizes, kb, why] : cases) {
        FolderSweepWorld world({"f0", "f1", "f2", "f3"});
        for (std::size_t i = 0; i < sizes.size(); ++i)
            world.files.addFile("/d/f" + std::to_string(i), sizes[i]);
        world.run();
        EXPECT_EQ(kb, world.sweep.scanKB) << why;
    }
    FolderSweepWorld below({"small", "large"});
    below.files.addFile("/d/small", 6000);
    below.files.addFile("/d/sub/large/content", kTooLarge);
    below.run();
    EXPECT_EQ(5 + 4, below.sweep.scanKB) << "each folder begins anew";
}

TEST(FolderSweep, takesTheStatementsOfADeletionInTheirOrder) {
    enum class Fault { Size, Deletion, Log, Count };
    struct State {
        std::int32_t kb;
        bool deleted;
        std::size_t lines;
        std::int16_t items;
        bool operator==(const State&) const = default;
    };
    constexpr std::int16_t kMost = std::numeric_limits<std::int16_t>::max();
    constexpr struct {
        Fault fault;
        bool folder;
        State yes; // what it has come to when the user ends the folder's work at the fault
        State no;  // and when he goes on, or is not asked
    } kCases[] = {
        {Fault::Size, false, {0, false, 0, 0}, {4, true, 1, 1}},
        {Fault::Size, true, {0, false, 0, 0}, {4, true, 1, 1}},
        {Fault::Deletion, false, {4, false, 0, 0}, {4, false, 1, 1}},
        {Fault::Deletion, true, {4, false, 0, 0}, {4, false, 1, 1}},
        {Fault::Log, false, {4, true, 0, 0}, {4, true, 0, 1}},
        {Fault::Count, false, {4, true, 1, kMost}, {4, true, 1, kMost}},
    };
    const auto outcome = [](const auto& row, bool hidden, bool ignores, Button answer) {
        FolderSweepWorld world;
        world.files.addFile(row.folder ? "/d/junk/content" : "/d/junk", 10);
        if (row.fault == Fault::Size)
            world.files.failing = {{FileOperation::FolderSize, "/d/junk"}, {FileOperation::Facts, "/d/junk"}};
        if (row.fault == Fault::Deletion)
            world.files.failing = {{FileOperation::DeleteFolder, "/d/junk"},
                                   {FileOperation::DeleteFile, "/d/junk"}};
        world.log.full = row.fault == Fault::Log;
        if (row.fault == Fault::Count)
            world.sweep.scanItemCount = kMost;
        world.form.window.setVisible(!hidden);
        world.form.chkIgnoreErrors.setValue(ignores ? 1 : 0);
        world.dialogs.answers = {answer};
        world.run();
        EXPECT_EQ(hidden || ignores ? 0U : 1U, world.dialogs.boxes.size());
        return State{world.sweep.scanKB, !world.files.exists("/d/junk"), world.log.lines.size(),
                     world.sweep.scanItemCount};
    };
    for (const auto& row : kCases) {
        SCOPED_TRACE(&row - kCases);
        EXPECT_EQ(row.yes, outcome(row, false, false, Button::Yes));
        EXPECT_EQ(row.no, outcome(row, false, false, Button::No));
        EXPECT_EQ(row.no, outcome(row, true, false, Button::Yes)) << "the window is hidden";
        EXPECT_EQ(row.no, outcome(row, false, true, Button::Yes)) << "errors are passed over";
    }
}

TEST(FolderSweep, endsTheFolderButNotItsSiblingsWhenTheUserGivesItUp) {
    const std::pair<Button, Texts> cases[] = {
        {Button::Yes, {"/d/two/good"}},
        {Button::No, {"/d/one/good", "/d/one/queued/good", "/d/two/good"}},
    };
    for (const auto& [answer, deleted] : cases) {
        FolderSweepWorld world({"bad", "good"});
        world.files.addFile("/d/one/queued/good");
        world.files.addFile("/d/one/bad");
        world.files.addFile("/d/one/good");
        world.files.addFile("/d/two/good");
        world.files.failing = {{FileOperation::DeleteFile, "/d/one/bad"}};
        world.lookOn();
        world.dialogs.answers = {answer};
        world.run();
        EXPECT_EQ(deleted, world.files.deleted);
        EXPECT_EQ("m62(/d/two/good,%2)", world.log.lines.back()) << "back up and down again";
        ASSERT_EQ(1U, world.dialogs.boxes.size());
        EXPECT_EQ("m64(/d/one/bad,%2)", world.dialogs.boxes[0].text);
        EXPECT_EQ("m65(%1,%2)", world.dialogs.boxes[0].title);
        EXPECT_EQ(52, world.dialogs.boxes[0].style);
    }
}

TEST(FolderSweep, visitsFiveHundredAndOneSubfoldersAtMost) {
    for (const bool seen : {false, true}) {
        FolderSweepWorld world;
        for (int i = 0; i < 503; ++i)
            world.files.addFile("/d/s" + std::to_string(i) + "/junk");
        world.form.window.setVisible(seen);
        world.dialogs.answers = {Button::Yes};
        world.run();
        EXPECT_EQ(seen ? 0U : 501U, world.files.deleted.size()) << "Yes gives up the queued ones too";
        EXPECT_EQ(seen ? 1U : 2U, world.sweep.notVisited);
        EXPECT_EQ(seen, world.files.exists("/d/s500/junk"));
        EXPECT_EQ(seen ? "m64(/d/s501,%2)" : "",
                  world.dialogs.boxes.empty() ? "" : world.dialogs.boxes.at(0).text);
    }
}

TEST(FolderSweep, asksBeforeEachDeletionAndStaysOutOfWhatIsSpared) {
    FolderSweepWorld world({"junk", "junk", "icon?"});
    world.form.chkConfirm.setValue(1);
    world.form.chkIcon.setValue(1);
    world.files.addFile("/d/Junk/junk");
    world.files.addFile("/d/Icon\r");
    world.files.addFile("/d/sub/junk");
    world.dialogs.answers = {Button::No, Button::No, Button::Yes};
    world.run();
    ASSERT_EQ(3U, world.dialogs.boxes.size()) << "once for each entry, however often it is listed";
    EXPECT_EQ("m60(/d/junk,, Fool)", world.dialogs.boxes[0].text);
    EXPECT_EQ("m61(%1,%2)", world.dialogs.boxes[0].title);
    EXPECT_EQ(36, world.dialogs.boxes[0].style);
    EXPECT_EQ("m60(/d/icon?,, Fool)", world.dialogs.boxes[1].text);
    EXPECT_EQ((Texts{"/d/sub/junk"}), world.files.deleted);
    EXPECT_EQ(1, world.sweep.scanItemCount);
}

TEST(FolderSweep, countsAnIconFileAsFourKilobytesAndCannotDeleteAFolderAsOne) {
    FolderSweepWorld world{Texts()};
    world.form.chkIcon.setValue(1);
    world.files.addFile("/d/Icon\r", 90000);
    world.files.addFile("/d/ICON\uF00D", kTooLarge);
    world.files.addFile("/d/Icons\r/Icon\r");
    world.run();
    EXPECT_EQ((Texts{"/d/Icon\r", "/d/ICON\uF00D"}), world.files.deleted);
    EXPECT_EQ((Texts{"m62(/d/icon?,%2)", "m62(/d/icon?,%2)", "m62(/d/icons?,%2)"}), world.log.lines);
    EXPECT_EQ(12, world.sweep.scanKB);
    EXPECT_EQ(3, world.sweep.scanItemCount);
    EXPECT_TRUE(world.files.exists("/d/Icons\r/Icon\r")) << "what was taken for an icon is not gone into";
}

TEST(FolderSweep, deletesReadOnlyThingsOnlyByForce) {
    for (const int force : {0, 1}) {
        FolderSweepWorld world({"file", "folder"});
        world.form.chkForce.setValue(force);
        for (const std::string path : {"/d/file", "/d/folder/content"}) {
            world.files.addFile(path);
            world.files.setReadOnly(path);
        }
        world.run();
        EXPECT_EQ(force == 1 ? Texts({"/d/file", "/d/folder"}) : Texts(), world.files.deleted);
    }
}

TEST(FolderSweep, goesByTheBoxesAsTheyStandAtEachEntry) {
    FolderSweepWorld world;
    world.files.addFile("/d/._first");
    world.files.addFile("/d/._second");
    world.files.addFile("/d/junk");
    int entries = 0;
    world.pump.onPump = [&] {
        ++entries;
        world.form.chkDotDash.setValue(entries == 2 ? 1 : 0);
        world.form.chkLog.setValue(entries == 3 ? 0 : 1);
    };
    world.run();
    EXPECT_EQ((Texts{"/d/._second", "/d/junk"}), world.files.deleted);
    EXPECT_EQ((Texts{"m62(/d/._second,%2)"}), world.log.lines);
}

TEST(FolderSweep, showsNamesInLowerCaseAndWithoutControlCharacters) {
    FolderSweepWorld world;
    world.form.chkDotDash.setValue(1);
    world.files.addFile("/d/Sub\nA/._B\nC\x1B\xFF");
    world.run();
    EXPECT_EQ((Texts{"m62(/d/sub\uFFFDa/._b\uFFFDc\uFFFD\uFFFD,%2)"}), world.log.lines);
    EXPECT_EQ("m59(/d/sub\uFFFDa/,%2)", world.form.sbStatus.panel());
    EXPECT_EQ((Texts{"/d/Sub\nA/._B\nC\x1B\xFF"}), world.files.deleted) << "the disk's own bytes";
}

TEST(FolderSweep, showsAThousandBytesOfAPathAtMost) {
    FolderSweepWorld world;
    world.form.chkDotDash.setValue(1);
    std::string path = "/d/";
    for (int level = 0; level < 40; ++level)
        path += std::string(254, 'x') + '/';
    world.files.addFile(path + "._end");
    world.run();
    ASSERT_EQ(1U, world.log.lines.size());
    EXPECT_LE(world.log.lines[0].size(), 1024U + 30U);
    EXPECT_NE(std::string::npos, world.log.lines[0].find("x … x")) << world.log.lines[0];
    EXPECT_TRUE(world.log.lines[0].ends_with("x/._end,%2)"));
    EXPECT_LE(world.form.sbStatus.panel().size(), 1024U + 30U);
    EXPECT_EQ((Texts{path + "._end"}), world.files.deleted);

    FolderSweepWorld share; // which has longer names than any disk
    share.form.chkDotDash.setValue(1);
    share.files.addFile("/d/._" + std::string(2'000, 'x') + "end");
    share.run();
    ASSERT_EQ(1U, share.log.lines.size());
    EXPECT_LE(share.log.lines[0].size(), 1024U + 30U);
    EXPECT_TRUE(share.log.lines[0].starts_with("m62(/d/._x")) << share.log.lines[0];
    EXPECT_TRUE(share.log.lines[0].ends_with("xend,%2)"));
}

TEST(FolderSweep, passesByFoldersThatItCannotReach) {
    const std::tuple<FileOperation, std::string, std::string, bool, std::string_view> cases[] = {
        {FileOperation::Open, "/d", "m64(/d/,%2)", false, "the top is gone"},
        {FileOperation::List, "/d", "m64(/d/,%2)", false, "its entries cannot be read"},
        {FileOperation::Enter, "/d/a", "m64(/d/a,%2)", true, "one folder in it"},
        {FileOperation::List, "/d/a", "m64(/d/a/,%2)", true, "one folder in it"},
        {FileOperation::Leave, "/d/a", "", false, "it has been moved, and nothing above it is sure any more"},
    };
    for (const auto& [fails, path, asked, othersSwept, why] : cases) {
        FolderSweepWorld world;
        world.files.addFolder("/d/a");
        world.files.addFile("/d/b/junk");
        world.files.addFile("/d/junk");
        world.files.failing = {{fails, path}};
        world.lookOn();
        world.dialogs.answers = {Button::Yes};
        Texts failed;
        world.sweep.folderFailed = [&failed](const std::string& folder, const std::string& /*reason*/) {
            failed.push_back(folder);
        };
        world.run();
        EXPECT_EQ(!othersSwept, world.files.exists("/d/b/junk")) << why;
        EXPECT_EQ(asked, world.dialogs.boxes.empty() ? "" : world.dialogs.boxes[0].text) << why;
        EXPECT_EQ(1U, failed.size()) << why;
    }
}

TEST(FolderSweep, movesToTheTrashWhereThatIsWanted) {
    for (const bool hasTrash : {true, false}) {
        FolderSweepWorld world;
        std::string reason;
        world.form.chkTrash.setValue(1);
        world.form.chkIgnoreErrors.setValue(1);
        world.sweep.deletionTried = [&](const Deletion& deletion) { reason = deletion.reason; };
        world.files.hasTrash = hasTrash;
        for (const char* path : {"/d/junk", "/d/a/junk/b", "/d/.Trash-1000/files/junk"})
            world.files.addFile(path);
        world.run();
        EXPECT_EQ(hasTrash ? (Texts{"/d/junk", "/d/a/junk"}) : Texts(), world.files.deleted);
        EXPECT_EQ(hasTrash ? Texts() : Texts{"/d/"}, world.sweep.trashless) << "told once a folder";
        EXPECT_EQ(hasTrash ? "" : "There is no trash on its disk", reason);
        EXPECT_EQ(2, world.sweep.scanItemCount);
        EXPECT_EQ(2U, world.log.lines.size()) << "as for a deletion";
    }
}

} // namespace
} // namespace brovin::cleaner
