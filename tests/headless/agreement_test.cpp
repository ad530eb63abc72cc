#include "cleaner/cleaner_world.h"
#include "fakes/test_language.h"
#include "headless/scan_command.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <sstream>

namespace brovin::headless {
namespace {

using PathSet = std::multiset<std::string>;

/// A tree with clutter in it and options, drawn by a number: the same for whoever asks again.
class Draw {
public:
    explicit Draw(unsigned seed) : seed_(seed) {}

    void fill(fakes::FakeFileSystem& disk) const {
        std::mt19937 chance(seed_);
        std::vector<std::string> folders = {"/d", "/e"};
        for (int i = 0; i < 40; ++i) {
            const std::string path = one(chance, folders) + "/" + one(chance, kNames);
            if (disk.exists(path))
                continue;
            if (chance() % 3 == 0) {
                disk.addFolder(path);
                folders.push_back(path);
                continue;
            }
            disk.addFile(path, chance() % 9000);
            if (chance() % 2 == 0) // a "._" file without anything in it
                disk.setContent(path, std::string("\0\5\x16\7\0\2\0\0", 8) + std::string(18, '\0'));
        }
    }
    [[nodiscard]] std::vector<std::string> keeps() const {
        std::mt19937 chance(seed_ + 1);
        std::vector<std::string> all;
        for (auto left = chance() % 3; left > 0; --left)
            all.push_back(chance() % 2 == 0 ? one(chance, kNames) : "/d/" + one(chance, kNames));
        return all;
    }
    [[nodiscard]] bool option(unsigned which) const { return (seed_ >> which & 1U) != 0; }

    static inline const std::vector<std::string> kNasty = {"thumbs.db", "old"};

private:
    static std::string one(std::mt19937& chance, const std::vector<std::string>& of) {
        return of[chance() % of.size()];
    }
    static inline const std::vector<std::string> kNames = {"Thumbs.db", "THUMBS.DB", "Old",    "._a", "._b",
                                                           "Icon\r",    "notes",     "photos", "more"};
    unsigned seed_;
};

struct Window : cleaner::CleanerWorld {
    explicit Window(const Draw& draw) {
        draw.fill(files);
        watchedFolders.show({"/d", "/e"});
        for (const std::string& name : Draw::kNasty)
            nasty(name);
        for (const std::string& entry : draw.keeps())
            cleaner.keepList.addUnstored(entry);
        form.chkDotDash.setValue(draw.option(0) ? 1 : 0);
        form.chkIcon.setValue(draw.option(1) ? 1 : 0);
        form.chkSpare.setValue(draw.option(2) ? 1 : 0);
    }
    [[nodiscard]] PathSet rows(bool chosen) const {
        PathSet paths;
        for (std::size_t row = 0; row < preview.rows.size(); ++row)
            if (preview.rows.mark(row).chosen == chosen)
                paths.insert(preview.rows.path(row));
        return paths;
    }
    [[nodiscard]] PathSet deleted() const { return {files.deleted.begin(), files.deleted.end()}; }
};

/// The paths in the report of a dry run.
PathSet dryRun(const Draw& draw) {
    fakes::FakeMachine machine;
    draw.fill(machine.files);
    machine.folder.files["default.blp"] = fakes::testLanguage();
    ScanOptions options;
    options.dryRun = options.json = true;
    options.folders = {"/d", "/e"};
    options.nasty = Draw::kNasty;
    options.keep = draw.keeps();
    options.dotUnderscore = draw.option(0);
    options.iconFiles = draw.option(1);
    options.spareCarriers = draw.option(2);
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    static_cast<void>(
        scanCommand(options,
                    {machine.settings, machine.files, machine.landmarks, machine.folder, machine.scanLock,
                     machine.regional, machine.letters, machine.clock, machine.random, machine.history},
                    {in, out, err, false, false}, {"Brovin", 1, 0, 0}));
    PathSet paths;
    const std::string begin = "{\"path\":\"";
    std::istringstream lines(out.str());
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(begin) && line.find("\"reason\"") == std::string::npos)
            paths.insert(text::replaceAll(
                line.substr(begin.size(), line.find('"', begin.size()) - begin.size()), "\\u000d", "\r"));
    return paths;
}

TEST(Agreement, previewDryRunAndScanAreOfOneMind) {
    std::size_t found = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        const Draw draw(seed);
        Window previewed(draw);
        ASSERT_EQ(cleaner::Preview::Outcome::Done, previewed.preview.search());
        const PathSet rows = previewed.rows(true);
        found += rows.size();
        EXPECT_EQ(rows, dryRun(draw)) << seed;
        Window scanned(draw);
        ASSERT_EQ(cleaner::ScanOutcome::Done, scanned.scanRun.runScan());
        EXPECT_EQ(rows, scanned.deleted()) << seed;

        for (std::size_t row = seed % 3; row < previewed.preview.rows.size(); row += 2)
            previewed.preview.rows.mark(row).chosen = false;
        const PathSet chosen = previewed.rows(true);
        ASSERT_EQ(cleaner::ScanOutcome::Done, previewed.preview.deleteChosen());
        EXPECT_EQ(chosen, previewed.deleted()) << seed;
    }
    EXPECT_LT(1000U, found);
}

} // namespace
} // namespace brovin::headless
