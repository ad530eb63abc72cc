// What a preview costs beside a dry run of the same folder, and how long its rows take to arrange.
// Usage: preview_bench FOLDER RUNS ROWS   FOLDER: a tree of make_tree; ROWS: so many, made up, are arranged.

#include "cleaner/cleaner_world.h"
#include "cleaner/preview_view.h"
#include "posix/posix_file_system.h"
#include "posix/unicode_letters.h"
#include "text/utf8.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include <malloc.h>
#include <time.h>

namespace {

using namespace brovin;

/// Processor time, so that the figures are the same on a busy machine.
double now() {
    timespec time{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

double median(std::vector<double>& values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// Bytes that the program has from the heap.
std::size_t heap() {
    const struct mallinfo2 info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// The longest time between two looks at what goes on.
class Gaps final : public platform::EventPump {
public:
    double longest = 0;
    void begin() { last_ = now(); }
    void pump() override {
        longest = std::max(longest, now() - last_);
        last_ = now();
    }

private:
    double last_ = now();
};

struct World : cleaner::CleanerWorld {
    explicit World(const std::string& top) {
        for (const char* name :
             {"thumbs.db", ".ds_store", "desktop.ini", "__macosx", ".trashes", ".spotlight-v100",
              ".fseventsd", ".temporaryitems", ".apdisk", "ehthumbs.db"})
            nasty(name);
        form.chkIgnoreErrors.setValue(ui::CheckBox::kOn);
        watchedFolders.show({top});
    }
    posix::PosixFileSystem disk;
    posix::UnicodeLetters allLetters;
    Gaps gaps;
    cleaner::Preview search{{form, form, form, scan, teller.speech, scanRun, watchedFolders, disk, dialogs,
                             gaps, regional, allLetters}};
    cleaner::PreviewFileSystem noDisk{disk};
    cleaner::FolderSweep dry{{form, form, form, teller.speech, noDisk, dialogs, regional, allLetters, gaps}};
};

void compare(const std::string& folder, int runs) {
    World world(folder);
    std::ofstream out("/dev/null");
    world.dry.deletionTried = [&out](const cleaner::Deletion& deletion) {
        out << "would delete " << text::displayText(deletion.path()) << "\n";
    };
    std::vector<double> dry;
    std::vector<double> preview;
    std::size_t bytes = 0;
    for (int run = 0; run < runs; ++run) {
        auto begin = now();
        world.dry.beginRun(nullptr);
        world.watchedFolders.sweep(0, world.dry);
        dry.push_back(now() - begin);
        world.search.rows.clear();
        const std::size_t before = heap();
        begin = now();
        static_cast<void>(world.search.search());
        preview.push_back(now() - begin);
        bytes = heap() - before;
    }
    const std::size_t rows = world.search.rows.size();
    std::printf("| dry run | preview | ratio | rows | bytes a row |\n|---|---|---|---|---|\n");
    std::printf("| %.3f s | %.3f s | %.2f | %zu | %.0f |\n", median(dry), median(preview),
                median(preview) / median(dry), rows,
                static_cast<double>(bytes) / static_cast<double>(std::max<std::size_t>(rows, 1)));
}

void arrange(std::size_t count) {
    World world("/");
    const std::size_t before = heap();
    cleaner::PreviewRows rows;
    rows.beginTop("/share");
    std::string folder;
    for (std::size_t i = 0; i < count; ++i) {
        if (i % 20 == 0)
            folder = "/share/part " + std::to_string(i % 7) + "/folder " + std::to_string(i / 20) + "/";
        const std::string name = "._picture " + std::to_string(i * 7919 % count) + ".jpg";
        cleaner::Deletion deletion{folder, name, name, cleaner::Match::DotDash};
        deletion.bytes = i * 104729 % 1000003;
        rows.add(deletion);
    }
    const double each = static_cast<double>(heap() - before) / static_cast<double>(count);
    std::printf("\n%zu rows made up: %.0f bytes each\n\n", count, each);
    cleaner::PreviewView view(rows, world.gaps, world.allLetters);
    view.renewed = [] {};
    using By = cleaner::PreviewView::By;
    using Group = cleaner::PreviewView::Group;
    const std::pair<const char*, cleaner::PreviewView::Wish> wishes[] = {
        {"as found", {}},
        {"by name", {By::Name, false, Group::None, ""}},
        {"by folder", {By::Folder, true, Group::None, ""}},
        {"by size", {By::Size, true, Group::None, ""}},
        {"filter \"77\"", {By::Found, false, Group::None, "77"}},
        {"grouped by folder, by size", {By::Size, false, Group::Folder, ""}},
    };
    std::printf("| wish | time | longest between two looks at events |\n|---|---|---|\n");
    for (const auto& [name, wish] : wishes) {
        world.gaps.longest = 0;
        world.gaps.begin();
        const auto begin = now();
        view.arrange(wish);
        const double took = now() - begin;
        world.gaps.pump();
        std::printf("| %s | %.0f ms | %.0f ms |\n", name, took * 1000, world.gaps.longest * 1000);
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fprintf(stderr, "Usage: preview_bench FOLDER RUNS ROWS\n");
        return 2;
    }
    compare(argv[1], std::max(1, std::atoi(argv[2])));
    arrange(std::strtoull(argv[3], nullptr, 10));
}
