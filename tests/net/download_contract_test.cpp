#include "fakes/fake_downloads.h"
#include "net/private_downloads.h"
#include "posix/scratch_folder.h"

#include <gtest/gtest.h>

namespace brovin {
namespace {

using Names = std::vector<std::string>;

struct DownloadsInMemory {
    fakes::FakeDownloads downloads;
    void put(const std::string& name) { downloads.files[name] = "old"; }
    [[nodiscard]] Names names() const {
        Names all;
        for (const auto& [name, content] : downloads.files)
            all.push_back(name);
        return all;
    }
    void refuse() { downloads.refuses = true; }
};
struct DownloadsOnDisk {
    posix::ScratchFolder disk;
    net::PrivateDownloads downloads{disk.path("own")};
    void put(const std::string& name) const { disk.addText("own/" + name, "old"); }
    [[nodiscard]] Names names() const {
        Names all = disk.tree();
        all.erase(all.begin()); // the folder itself
        for (std::string& name : all)
            name.erase(0, name.find('/') + 1);
        return all;
    }
    void refuse() const { // stands in the way, for an administrator too
        std::filesystem::remove_all(disk.path("own"));
        disk.addFile("own");
    }
};

template <class World>
struct DownloadContract : testing::Test {
    World world;
};
using DownloadWorlds = testing::Types<DownloadsInMemory, DownloadsOnDisk>;
TYPED_TEST_SUITE(DownloadContract, DownloadWorlds);

TYPED_TEST(DownloadContract, makesFilesOfNewNames) {
    const auto one = *this->world.downloads.create("bro");
    const auto other = *this->world.downloads.create("bro");
    for (const auto* file : {one.get(), other.get()}) {
        const std::string name = file->name().substr(file->name().rfind('/') + 1);
        EXPECT_TRUE(name.starts_with("bro") && name.ends_with(".tmp")) << name;
    }
    EXPECT_NE(one->name(), other->name());
    this->world.refuse();
    EXPECT_FALSE(this->world.downloads.create("bro"));
}

TYPED_TEST(DownloadContract, keepsWhatIsAppendedUnderAllItsNames) {
    const auto file = *this->world.downloads.create("bro");
    EXPECT_TRUE(file->append("hel"));
    EXPECT_TRUE(file->append("lo"));
    EXPECT_TRUE(file->close());
    EXPECT_EQ(5U, file->size());
    EXPECT_TRUE(file->alsoNamed(".one"));
    EXPECT_EQ(2U, this->world.names().size());
    file->remove();
    EXPECT_EQ(Names{}, this->world.names());
}

TYPED_TEST(DownloadContract, hashesTheContentUnlessItIsStopped) {
    const auto hash = [this](const char* content) {
        const auto file = *this->world.downloads.create("bro");
        EXPECT_TRUE(file->append(content) && file->close());
        EXPECT_FALSE(file->sha512([] { return false; })) << "stopped";
        return *file->sha512([] { return true; });
    };
    EXPECT_EQ(128U, hash("abc").size());
    EXPECT_EQ(hash("abc"), hash("abc"));
    EXPECT_NE(hash("abc"), hash("abd"));
}

TYPED_TEST(DownloadContract, removesLeftOversByBothEndsOfTheirNames) {
    for (const char* name : {"bro1.tmp", "bro1.tmp.exe", "other.tmp"})
        this->world.put(name);
    this->world.downloads.removeLeftOvers("bro", ".tmp");
    EXPECT_EQ((Names{"bro1.tmp.exe", "other.tmp"}), this->world.names());
}

} // namespace
} // namespace brovin
