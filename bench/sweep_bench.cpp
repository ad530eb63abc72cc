// A sweep without a display over a warm tree, beside find(1) with the same names. Prints a table with ratios.
// Usage: sweep_bench BROVIN SCRATCH-FOLDER

#include "command.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using brovin::bench::Cost;

constexpr int kFolders = 80'000;
constexpr int kFiles = 920'000;
constexpr int kFoldersInOne = 8;
constexpr int kRuns = 5;

const std::vector<std::string> kNasty = {"thumbs.db", ".ds_store",       "desktop.ini", "__macosx",
                                         ".trashes",  ".spotlight-v100", ".fseventsd",  ".temporaryitems",
                                         ".apdisk",   "ehthumbs.db"};

/// Folder number n is one of the eight below folder number (n - 1) / 8.
std::vector<fs::path> makeFolders(const fs::path& root) {
    const char* const words[] = {"Holiday", "letters", "Project", "music",
                                 "Backup",  "Taxes",   "photos",  "Old"};
    std::vector<fs::path> folders{root};
    fs::create_directories(root);
    for (int n = 1; n < kFolders; ++n) {
        const auto above = static_cast<std::size_t>((n - 1) / kFoldersInOne);
        folders.push_back(folders[above] / (words[n % 8] + std::to_string(n)));
        fs::create_directory(folders.back());
    }
    return folders;
}

void makeTree(const fs::path& root) {
    const char* const endings[] = {".JPG", ".txt", ".odt", ".mp3", ".PDF", ".cpp", ".html"};
    const auto folders = makeFolders(root);
    for (int n = 0; n < kFiles; ++n) {
        const fs::path& folder = folders[static_cast<std::size_t>(n) % folders.size()];
        std::ofstream(folder / ("IMG_" + std::to_string(n) + endings[n % 7]));
    }
}

void print(const char* what, const Cost& cost, double reference) {
    std::printf("| %-40s | %6.2f s | %5.2f | %5.1f MiB |\n", what, cost.seconds, cost.seconds / reference,
                cost.mebibytes);
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "Usage: sweep_bench BROVIN SCRATCH-FOLDER\n");
        return 2;
    }
    const fs::path scratch = argv[2];
    const fs::path tree = scratch / "tree";
    if (!fs::exists(scratch / "complete")) {
        fs::remove_all(tree);
        // In a process of its own: what this one has once used counts for the commands that it starts.
        const pid_t maker = fork();
        if (maker == 0) {
            makeTree(tree);
            _exit(0);
        }
        int status = -1;
        if (waitpid(maker, &status, 0) != maker || status != 0)
            return 1;
        std::ofstream(scratch / "complete");
    }
    setenv("XDG_CONFIG_HOME", (scratch / "config").c_str(), 1);
    setenv("XDG_DATA_HOME", (scratch / "data").c_str(), 1);

    std::vector<std::string> sweep{argv[1], "--scan", "--folder", tree};
    std::vector<std::string> find{"find", tree};
    const std::vector<std::string> bare = find;
    for (const std::string& name : kNasty) {
        sweep.insert(sweep.end(), {"--nasty", name});
        if (find.size() > 2)
            find.emplace_back("-o");
        find.insert(find.end(), {"-iname", name});
    }
    const Cost named = brovin::bench::cheapest(find, kRuns);
    std::printf("%d entries in %d folders, %zu names, warm, best of %d runs\n\n", kFiles + kFolders, kFolders,
                kNasty.size(), kRuns);
    std::printf("| command | wall time | ratio | peak memory |\n|---|---|---|---|\n");
    print("find with -iname for each name", named, named.seconds);
    print("find alone", brovin::bench::cheapest(bare, kRuns), named.seconds);
    print("brovin --scan", brovin::bench::cheapest(sweep, kRuns), named.seconds);
    return 0;
}
