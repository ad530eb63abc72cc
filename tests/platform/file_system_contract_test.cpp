#include "fakes/fake_file_system.h"
#include "platform/file_system.h"
#include "posix/outcome.h"
#include "posix/posix_file_system.h"
#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>

namespace brovin {
namespace {

using platform::EntryKind;
using platform::Force;
using Paths = std::vector<std::string>;

/// A disk with one folder for the test to fill. Names are relative to that folder.
class World {
public:
    virtual ~World() = default;
    virtual platform::FileSystem& files() = 0;
    [[nodiscard]] virtual std::string root() const = 0;
    virtual void addFolder(const std::string& name) = 0;
    virtual void addFile(const std::string& name, std::uint64_t bytes) = 0;
    virtual void setReadOnly(const std::string& name) = 0;
    [[nodiscard]] virtual Paths tree() const = 0;
};

class FakeWorld final : public World {
public:
    FakeWorld() { disk_.addFolder(root()); }
    platform::FileSystem& files() override { return disk_; }
    [[nodiscard]] std::string root() const override { return "/share"; }
    void addFolder(const std::string& name) override { disk_.addFolder("/share/" + name); }
    void addFile(const std::string& name, std::uint64_t bytes) override {
        disk_.addFile("/share/" + name, bytes);
    }
    void setReadOnly(const std::string& name) override { disk_.setReadOnly("/share/" + name); }
    [[nodiscard]] Paths tree() const override {
        Paths names;
        for (const std::string& path : disk_.tree()) {
            if (path != root())
                names.push_back(path.substr(root().size() + 1));
        }
        return names;
    }

private:
    fakes::FakeFileSystem disk_;
};

class DiskWorld final : public World {
public:
    explicit DiskWorld(posix::ReadingAhead when) : files_(when) {}
    platform::FileSystem& files() override { return files_; }
    [[nodiscard]] std::string root() const override { return scratch_.path(); }
    void addFolder(const std::string& name) override { scratch_.addFolder(name); }
    void addFile(const std::string& name, std::uint64_t bytes) override { scratch_.addFile(name, bytes); }
    void setReadOnly(const std::string& name) override {
        scratch_.setMode(name, std::filesystem::is_directory(scratch_.path(name)) ? 0555 : 0444);
    }
    [[nodiscard]] Paths tree() const override { return scratch_.tree(); }

private:
    posix::ScratchFolder scratch_;
    posix::PosixFileSystem files_;
};

struct Kind {
    std::string name;
    std::function<std::unique_ptr<World>()> make;

    friend std::ostream& operator<<(std::ostream& out, const Kind& kind) { return out << kind.name; }
};

class FileSystemContract : public testing::TestWithParam<Kind> {
protected:
    std::unique_ptr<platform::FolderWalk> open() { return *world_->files().open(world_->root()); }

    std::unique_ptr<World> world_ = GetParam().make();
};

template <class Disk, auto... How>
std::unique_ptr<World> make() {
    return std::make_unique<Disk>(How...);
}

INSTANTIATE_TEST_SUITE_P(On, FileSystemContract,
                         testing::Values(Kind{"FakeDisk", make<FakeWorld>},
                                         Kind{"RealDisk", make<DiskWorld, posix::ReadingAhead::WhereSlow>},
                                         Kind{"RealDiskReadAhead",
                                              make<DiskWorld, posix::ReadingAhead::Always>}),
                         [](const auto& kind) { return kind.param.name; });

TEST_P(FileSystemContract, listsEachEntryUnderItsLoweredAndItsTrueName) {
    world_->addFile("Thumbs.DB", 1);
    world_->addFile(".hidden", 1);
    world_->addFile("plain", 1);
    world_->addFile("Icon\r", 1);
    world_->addFile("ICON\uF00D", 1);
    world_->addFolder("Photos/inside");
    std::map<std::string, std::pair<std::string, EntryKind>> seen;
    const auto walk = open();
    const auto entries = *walk->list();
    for (const platform::Entry& entry : entries)
        seen[std::string(entry.trueName)] = {std::string(entry.name), entry.kind};
    const decltype(seen) expected = {
        {"Thumbs.DB", {"thumbs.db", EntryKind::File}}, {".hidden", {".hidden", EntryKind::File}},
        {"plain", {"plain", EntryKind::File}},         {"Icon\r", {"icon?", EntryKind::File}},
        {"ICON\uF00D", {"icon?", EntryKind::File}},    {"Photos", {"photos", EntryKind::Folder}},
    };
    EXPECT_EQ(expected, seen);
}

TEST_P(FileSystemContract, listsAfreshEachTime) {
    const auto walk = open();
    EXPECT_EQ(0U, walk->list()->size());
    world_->addFile("late", 1);
    EXPECT_EQ(1U, walk->list()->size());
    EXPECT_EQ(1U, walk->list()->size());
}

TEST_P(FileSystemContract, keepsAListUsableWhileItsEntriesAreDeleted) {
    for (const char* name : {"A", "b", "C/x", "d/y"})
        world_->addFile(name, 1);
    const auto walk = open();
    const auto entries = *walk->list();
    for (const platform::Entry& entry : entries) {
        const bool folder = entry.kind == EntryKind::Folder;
        EXPECT_EQ(entry.kind, walk->facts(entry.trueName)->kind);
        EXPECT_TRUE(!folder || walk->folderSize(entry.trueName));
        EXPECT_TRUE(folder ? walk->deleteFolder(entry.trueName, Force::No)
                           : walk->deleteFile(entry.trueName, Force::No));
    }
    EXPECT_EQ(Paths{}, world_->tree());
}

TEST_P(FileSystemContract, goesDownAndUp) {
    world_->addFile("a/b/deep", 1);
    world_->addFile("top", 1);
    const auto walk = open();
    ASSERT_TRUE(walk->enter("a"));
    ASSERT_TRUE(walk->enter("b"));
    EXPECT_EQ("deep", walk->list()->front().name);
    ASSERT_TRUE(walk->leave());
    EXPECT_EQ("b", walk->list()->front().name);
    ASSERT_TRUE(walk->leave());
    EXPECT_EQ(2U, walk->list()->size());
    EXPECT_FALSE(walk->leave()) << "the folder that was opened first is the top";
    EXPECT_EQ(2U, walk->list()->size());
}

TEST_P(FileSystemContract, staysWhereItIsWhenItCannotEnter) {
    world_->addFile("file", 1);
    const auto walk = open();
    EXPECT_FALSE(walk->enter("file"));
    EXPECT_FALSE(walk->enter("missing"));
    EXPECT_EQ("file", walk->list()->front().name);
}

TEST_P(FileSystemContract, measuresFilesAndFolders) {
    world_->addFile("file", 6000);
    world_->addFile("folder/one", 100);
    world_->addFile("folder/sub/two", 20);
    world_->addFolder("folder/sub/empty");
    world_->addFolder("none");
    const auto walk = open();
    EXPECT_EQ(6000U, walk->facts("file")->bytes);
    EXPECT_EQ(120U, *walk->folderSize("folder"));
    EXPECT_EQ(0U, *walk->folderSize("none"));
    EXPECT_FALSE(walk->facts("missing"));
    EXPECT_FALSE(walk->folderSize("file"));
    EXPECT_FALSE(walk->folderSize("missing"));
}

TEST_P(FileSystemContract, tellsEntriesApartAndLooksIntoThem) {
    world_->addFile("file", 6000);
    world_->addFile("other", 6000);
    world_->addFile("folder/sub/Deep", 1);
    const auto walk = open();
    const auto facts = *walk->facts("file");
    EXPECT_TRUE(facts.sameEntry(*walk->facts("file")));
    EXPECT_FALSE(facts.sameEntry(*walk->facts("other")));
    EXPECT_EQ(EntryKind::Folder, walk->facts("folder")->kind);
    std::array<std::uint8_t, 4096> memory{};
    EXPECT_EQ(4096U, *walk->head("file", memory));
    EXPECT_FALSE(walk->head("folder", memory));
    EXPECT_FALSE(walk->head("missing", memory));
    const auto is = [](const char* wanted) {
        return [wanted](std::string_view name) { return name == wanted; };
    };
    EXPECT_TRUE(*walk->holds("folder", is("sub")));
    EXPECT_TRUE(*walk->holds("folder", is("deep"))) << "in lower case";
    EXPECT_FALSE(*walk->holds("folder", is("folder"))) << "it is not below itself";
    EXPECT_FALSE(walk->holds("file", is("file")));
}

TEST_P(FileSystemContract, deletesWhatItIsToldAndNothingElse) {
    world_->addFile("file", 1);
    world_->addFile("kept", 1);
    world_->addFile("folder/sub/x", 1);
    world_->addFile("folder kept/x", 1);
    const auto walk = open();
    EXPECT_FALSE(walk->deleteFile("folder", Force::Yes));
    EXPECT_FALSE(walk->deleteFolder("kept", Force::Yes));
    EXPECT_FALSE(walk->deleteFile("missing", Force::Yes));
    EXPECT_FALSE(walk->deleteFolder("missing", Force::Yes));
    EXPECT_TRUE(walk->deleteFile("file", Force::No));
    EXPECT_TRUE(walk->deleteFolder("folder", Force::No));
    EXPECT_EQ((Paths{"folder kept", "folder kept/x", "kept"}), world_->tree());
}

TEST_P(FileSystemContract, deletesReadOnlyEntriesByForceOnly) {
    world_->addFile("file", 1);
    world_->addFile("outer/inner/file", 1);
    world_->addFolder("locked");
    for (const char* name : {"file", "outer/inner/file", "locked"})
        world_->setReadOnly(name);
    const Paths all = world_->tree();
    const auto walk = open();
    EXPECT_EQ("Is read-only", posix::reasonOf(walk->deleteFile("file", Force::No)));
    EXPECT_EQ("Is read-only", posix::reasonOf(walk->deleteFolder("outer", Force::No)));
    EXPECT_EQ("Is read-only", posix::reasonOf(walk->deleteFolder("locked", Force::No)));
    EXPECT_EQ(all, world_->tree());
    EXPECT_TRUE(walk->deleteFile("file", Force::Yes));
    EXPECT_TRUE(walk->deleteFolder("outer", Force::Yes));
    EXPECT_TRUE(walk->deleteFolder("locked", Force::Yes));
    EXPECT_EQ(Paths{}, world_->tree());
}

TEST_P(FileSystemContract, takesNamesOnlyAndNoPaths) {
    world_->addFile("folder/file", 1);
    const auto walk = open();
    const std::string upAndDown = "../" + world_->root().substr(world_->root().rfind('/') + 1) + "/folder";
    for (const std::string& name : {std::string(), std::string("."), std::string(".."), std::string("/"),
                                    std::string("folder/file"), std::string("folder/"), upAndDown}) {
        EXPECT_FALSE(walk->enter(name)) << name;
        EXPECT_FALSE(walk->facts(name)) << name;
        EXPECT_FALSE(walk->folderSize(name)) << name;
        EXPECT_FALSE(walk->deleteFile(name, Force::Yes)) << name;
        EXPECT_FALSE(walk->deleteFolder(name, Force::Yes)) << name;
    }
    EXPECT_EQ((Paths{"folder", "folder/file"}), world_->tree());
}

TEST_P(FileSystemContract, opensFoldersByTheirFullPath) {
    world_->addFile("Folder/file", 1);
    platform::FileSystem& files = world_->files();
    EXPECT_TRUE(files.open(world_->root() + "/Folder"));
    EXPECT_TRUE(files.open(world_->root() + "/Folder/"));
    EXPECT_FALSE(files.open(world_->root() + "/folder"));
    EXPECT_FALSE(files.open(world_->root() + "/Folder/file"));
    EXPECT_FALSE(files.open(""));
    EXPECT_FALSE(files.open("."));
}

TEST_P(FileSystemContract, findsTheTrueSpelling) {
    for (const char* name : {"Photos/Summer", "both", "Both", "BOTH", "TWO", "Two", "Middle", "MIDDLE/x"})
        world_->addFolder(name);
    struct Case {
        std::string lowered;
        std::optional<std::string> found;
        std::string why;
    };
    const Case cases[] = {
        {"/photos/summer", "/Photos/Summer", "the only ones, on each level"},
        {"/Photos/Summer", "/Photos/Summer", "spelt exactly"},
        {"//photos//summer/", "/Photos/Summer", "slashes more than needed"},
        {"/both", "/both", "the exact name goes first"},
        {"/two", std::nullopt, "fits two"},
        {"/middle/x", std::nullopt, "a folder on the way fits two"},
        {"/missing", std::nullopt, "fits none"},
        {"/photos/summer/deeper", std::nullopt, "the last one is missing"},
        {"/photo", std::nullopt, "only the beginning fits"},
    };
    platform::FileSystem& files = world_->files();
    for (const auto& [lowered, found, why] : cases) {
        const auto expected = found ? std::optional(world_->root() + *found) : std::nullopt;
        EXPECT_EQ(expected, files.findWithoutCase(world_->root() + lowered)) << lowered << ": " << why;
    }
    EXPECT_EQ("/", files.findWithoutCase("/"));
    EXPECT_EQ(std::nullopt, files.findWithoutCase(""));
    EXPECT_EQ(std::nullopt, files.findWithoutCase(world_->root().substr(1))) << "not a full path";
}

} // namespace
} // namespace brovin
