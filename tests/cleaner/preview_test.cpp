#include "cleaner/cleaner_world.h"
#include "cleaner/preview_view.h"
#include "cleaner/preview_window.h"

#include <gtest/gtest.h>

namespace brovin::cleaner {
namespace {

using Paths = std::vector<std::string>;

/// Three folders with clutter in each.
struct PreviewWorld : CleanerWorld {
    PreviewWorld() {
        nasty("junk");
        form.chkDotDash.setValue(ui::CheckBox::kOn);
        form.chkIcon.setValue(ui::CheckBox::kOn);
        for (const char* file : {"/d/JUNK", "/d/a/._x", "/d/a/notes", "/d/a/deep/junk/inside", "/d/b/Icon\r"})
            files.addFile(file, 5000);
        watchedFolders.show({"/d"});
    }
    [[nodiscard]] Paths paths() const {
        Paths all;
        for (std::size_t row = 0; row < preview.rows.size(); ++row)
            all.push_back(preview.rows.path(row));
        return all;
    }
    [[nodiscard]] std::size_t rowOf(const std::string& path) const {
        const Paths all = paths();
        return static_cast<std::size_t>(std::find(all.begin(), all.end(), path) - all.begin());
    }
    [[nodiscard]] const PreviewRow& row(const std::string& path) { return preview.rows[rowOf(path)]; }
    [[nodiscard]] RowMark& mark(const std::string& path) { return preview.rows.mark(rowOf(path)); }
};

TEST(Preview, showsWhatAScanWouldDeleteAndDeletesNothing) {
    PreviewWorld world;
    const auto tree = world.files.tree();
    world.form.chkConfirm.setValue(ui::CheckBox::kOn);
    world.form.chkLog.setValue(ui::CheckBox::kOn);
    EXPECT_EQ(Preview::Outcome::Done, world.preview.search());
    EXPECT_EQ((Paths{"/d/JUNK", "/d/a/._x", "/d/a/deep/junk", "/d/b/Icon\r"}), world.paths());
    EXPECT_EQ(Match::Listed, world.row("/d/JUNK").why);
    EXPECT_EQ(Match::DotDash, world.row("/d/a/._x").why);
    EXPECT_EQ(Match::Icon, world.row("/d/b/Icon\r").why);
    EXPECT_EQ(5000U, world.preview.rows.bytes(world.rowOf("/d/a/deep/junk")));
    EXPECT_EQ(platform::EntryKind::Folder, world.row("/d/a/deep/junk").facts.kind);
    EXPECT_NE(0U, world.row("/d/b/Icon\r").facts.inode);
    EXPECT_EQ(tree, world.files.tree());
    EXPECT_TRUE(world.dialogs.boxes.empty());
    EXPECT_TRUE(world.folder.files.empty());
    EXPECT_FALSE(world.settings.values.contains({"Settings", "LastScanned"}));
}

TEST(Preview, deletesWhatIsChosenLikeAScan) {
    PreviewWorld world;
    world.form.chkLog.setValue(ui::CheckBox::kOn);
    world.settings.set("LastScanned", "before");
    ASSERT_EQ(Preview::Outcome::Done, world.preview.search());
    world.mark("/d/a/._x").chosen = false;
    world.mark("/d/JUNK").chosen = false;
    EXPECT_EQ(ScanOutcome::Done, world.preview.deleteChosen());
    EXPECT_EQ((Paths{"/d/a/deep/junk", "/d/b/Icon\r"}), world.files.deleted);
    EXPECT_EQ(RowState::Deleted, world.mark("/d/a/deep/junk").state);
    EXPECT_EQ(RowState::Found, world.mark("/d/JUNK").state);
    EXPECT_EQ("2", world.settings.setting("TotalNuked"));
    EXPECT_EQ("8", world.settings.setting("KB"));
    EXPECT_EQ("before", world.settings.setting("LastScanned")) << "not everything was swept";
    EXPECT_EQ((Paths{"m63(4,/d/a/deep/junk)", "m62(/d/b/icon?,%2)", "m56(2,8)"}),
              (Paths{world.folder.lines("deletions.log")[2], world.folder.lines("deletions.log")[3],
                     world.folder.lines("deletions.log")[4]}));
}

TEST(Preview, leavesWhatHasChangedSinceItWasShown) {
    PreviewWorld world;
    ASSERT_EQ(Preview::Outcome::Done, world.preview.search());
    for (const char* path : {"/d/JUNK", "/d/a/deep/junk", "/d/b"})
        world.files.remove(path);
    world.files.addFile("/d/JUNK", 5000);     // another file of the same name and size
    world.files.addFile("/d/a/deep/junk", 1); // a file where a folder was
    world.form.chkConfirm.setValue(ui::CheckBox::kOn);
    EXPECT_EQ(ScanOutcome::Done, world.preview.deleteChosen());
    EXPECT_TRUE(world.files.deleted.empty());
    for (const char* path : {"/d/JUNK", "/d/a/deep/junk", "/d/b/Icon\r"})
        EXPECT_EQ(RowState::Changed, world.mark(path).state) << path;
    EXPECT_EQ(RowState::Left, world.mark("/d/a/._x").state) << "asked about, and answered No";
    EXPECT_EQ(1U, world.dialogs.boxes.size()) << "nobody is asked about what is another entry";
}

TEST(Preview, canBeStoppedAndKeepsOthersAway) {
    PreviewWorld world;
    world.preview.progressed = [&world] {
        EXPECT_EQ(ScanOutcome::Busy, world.scanRun.runScan());
        EXPECT_EQ(Preview::Outcome::Busy, world.preview.search());
        if (world.preview.rows.size() == 2)
            world.scan.stop();
    };
    EXPECT_EQ(Preview::Outcome::Stopped, world.preview.search());
    EXPECT_EQ((Paths{"/d/JUNK", "/d/a/._x"}), world.paths());
    EXPECT_FALSE(world.scan.busy());
    EXPECT_TRUE(world.files.deleted.empty());
}

TEST(PreviewWindow, showsAThousandBytesOfAFolderAtMost) {
    PreviewWorld world;
    ui::FrmPreview shown;
    PreviewWindow window({shown, world.form, world.scan, world.teller.speech, world.preview,
                          world.cleaner.keepList, world.files, world.shell, world.pump, world.clock,
                          world.regional, world.letters});
    std::string deep = "/d/";
    for (int level = 0; level < 40; ++level)
        deep += std::string(254, 'x') + '/';
    world.files.addFile(deep + "junk");
    window.cmdPreview_Click();
    const std::string last = shown.tblFound.line(world.preview.rows.size() - 1).cells.at(1);
    EXPECT_LE(last.size(), 1024U + 10U);
    EXPECT_NE(std::string::npos, last.find("x … x")) << last;
}

TEST(PreviewView, sortsFiltersAndGroupsAndTheLastWishCounts) {
    PreviewRows rows;
    rows.beginTop("/d");
    const std::tuple<const char*, const char*, std::uint64_t> found[] = {
        {"/d/", "b", 1}, {"/d/z/", "A", 3}, {"/d/a/", "B", 2}, {"/d/a/", "a", 3}};
    for (const auto& [folder, name, bytes] : found) {
        Deletion deletion{folder, name, name, Match::Listed};
        deletion.bytes = bytes;
        rows.add(deletion);
    }
    CleanerWorld world;
    PreviewView view(rows, world.pump, world.letters);
    std::string shown;
    view.renewed = [&] {
        shown.clear();
        for (const PreviewView::Line& line : view.lines())
            shown += (line.heading ? "#" : "") + rows.path(line.row) + " ";
    };
    using By = PreviewView::By;
    using Group = PreviewView::Group;
    const std::pair<PreviewView::Wish, const char*> wishes[] = {
        {{}, "/d/b /d/z/A /d/a/B /d/a/a "},
        {{By::Name, false, Group::None, ""}, "/d/z/A /d/a/a /d/b /d/a/B "},
        {{By::Size, true, Group::None, ""}, "/d/z/A /d/a/a /d/a/B /d/b "},
        {{By::Found, false, Group::None, "B"}, "/d/b /d/a/B "},
        {{By::Found, false, Group::None, "/a/"}, "/d/a/B /d/a/a "},
        {{By::Size, false, Group::Folder, ""}, "#/d/b /d/b #/d/a/B /d/a/B /d/a/a #/d/z/A /d/z/A "},
        {{By::Found, false, Group::Name, ""}, "#/d/z/A /d/z/A /d/a/a #/d/b /d/b /d/a/B "},
    };
    for (const auto& [wish, order] : wishes) {
        view.arrange(wish);
        EXPECT_EQ(order, shown);
    }
    bool wished = false;
    world.pump.onPump = [&] {
        if (!std::exchange(wished, true))
            view.arrange(wishes[1].first); // somebody clicks meanwhile
    };
    view.arrange(wishes[2].first);
    EXPECT_EQ(wishes[1].second, shown);
}

} // namespace
} // namespace brovin::cleaner
