// The sweep beside the least that a walk can do and beside other tools, in turn, on trees that it makes once.
// Prints a table with medians, ratios and peak memory, and the goals beside what came out. Usage: sweep_bench
// BROVIN TOOLS-FOLDER SCRATCH-FOLDER RUNS [cold]

#include "command.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using brovin::bench::Cost;
using Command = std::vector<std::string>;

const std::vector<std::string> kNasty = {"thumbs.db", ".ds_store",       "desktop.ini", "__macosx",
                                         ".trashes",  ".spotlight-v100", ".fseventsd",  ".temporaryitems",
                                         ".apdisk",   "ehthumbs.db"};

struct Figures {
    double seconds = 0;   ///< median
    double processor = 0; ///< seconds of all threads, median
    double mebibytes = 0; ///< at most
};

struct Goal {
    std::string what;
    std::string reference; ///< ratio to this one; empty: the figure itself
    double atMost;
};

class Bench {
public:
    Bench(Command brovin, std::string tools, fs::path scratch, int runs)
        : brovin_(std::move(brovin)), tools_(std::move(tools)), scratch_(std::move(scratch)), runs_(runs) {}

    [[nodiscard]] Command sweep(const fs::path& tree, bool dry) const {
        Command command = brovin_;
        command.insert(command.end(), {"--scan", "--yes-this-folder", "--folder", tree});
        if (dry)
            command.emplace_back("--dry-run");
        for (const std::string& name : kNasty)
            command.insert(command.end(), {"--nasty", name});
        return command;
    }

    /// find, bfs or fd, looking for the same names.
    [[nodiscard]] static Command finder(const std::string& tool, const fs::path& tree) {
        Command command{tool, tree};
        for (const std::string& name : kNasty) {
            if (command.size() > 2)
                command.emplace_back("-o");
            command.insert(command.end(), {"-iname", name});
        }
        return command;
    }
    [[nodiscard]] static Command fd(const fs::path& tree, const std::string& threads = "") {
        std::string names = "^(thumbs\\.db|\\.ds_store|desktop\\.ini|__macosx|\\.trashes|\\.spotlight-v100|";
        names += "\\.fseventsd|\\.temporaryitems|\\.apdisk|ehthumbs\\.db)$";
        Command command{"fdfind", "-u", "-i", names, tree};
        if (!threads.empty())
            command.insert(command.begin() + 1, "-j" + threads);
        return command;
    }
    [[nodiscard]] Command bare(const fs::path& tree, const std::string& threads = "1",
                               const std::string& what = "look") const {
        return {tools_ + "/bare_walk", tree, threads, what};
    }

    /// A tree of the generator, made when it is not there.
    [[nodiscard]] fs::path tree(const std::string& name, const Command& shape) const {
        const fs::path place = scratch_ / name;
        if (!fs::exists(place)) {
            Command command{tools_ + "/make_tree", place};
            command.insert(command.end(), shape.begin(), shape.end());
            static_cast<void>(brovin::bench::run(command));
        }
        return place;
    }

    /// Runs them in turn, so that what disturbs one disturbs all. `before` makes ready for each run,
    /// unmeasured.
    void compare(
        const std::string& title, const std::vector<std::pair<std::string, Command>>& commands,
        const std::vector<Goal>& goals, const std::function<void()>& before = [] {},
        const std::function<void()>& after = [] {}) {
        std::map<std::string, std::vector<Cost>> costs;
        for (int run = 0; run < runs_; ++run) {
            for (const auto& [name, command] : commands) {
                before();
                costs[name].push_back(brovin::bench::run(command));
                after();
            }
        }
        std::map<std::string, Figures> figures;
        for (auto& [name, each] : costs)
            figures[name] = summary(each);
        print(title, commands, figures);
        judge(title, figures, goals);
        std::fflush(stdout);
    }

    /// Reads the tree once, unmeasured: some machines throw out of memory what rests for seconds.
    [[nodiscard]] std::function<void()> warmed(const fs::path& tree) const {
        return [command = bare(tree)] { static_cast<void>(brovin::bench::run(command)); };
    }

    /// What four times as many entries take of memory beyond `before`.
    void compareMemory(const std::string& title, const Command& few, const Command& many) {
        const double more = brovin::bench::run(many).mebibytes - brovin::bench::run(few).mebibytes;
        tell(title, "MiB more", 1, more);
    }

    /// The program's window sweeps; beside it the same scan without one.
    void compareWindow(const fs::path& tree, const std::string& programFolder) {
        const std::string name = "no such name";
        Command command = brovin_;
        command.insert(command.end(), {"--scan", "--folder", tree, "--nasty", name});
        std::vector<Cost> alone;
        std::vector<std::vector<double>> window; // what window_sweep prints
        const std::string line = "tools/virtual_desktop " + tools_ + "/window_sweep " + programFolder + " " +
                                 tree.string() + " '" + name + "'";
        for (int run = 0; run < runs_; ++run) {
            warmed(tree)();
            alone.push_back(brovin::bench::run(command));
            warmed(tree)();
            std::vector<double>& took = window.emplace_back(4);
            FILE* const output = popen(line.c_str(), "r");
            if (std::fscanf(output, "%lf %lf %lf %lf", &took[0], &took[1], &took[2], &took[3]) != 4)
                std::fprintf(stderr, "failed: %s\n", line.c_str());
            pclose(output);
        }
        const Figures headless = summary(alone);
        std::printf(
            "\n### In the window\n\nThe sweep: %.3f s, of a processor %.3f s; headless %.3f s and %.3f s. "
            "Longest pause: %.1f ms, %.1f ms of it on a processor.\n",
            median(window, 0), median(window, 1), headless.seconds, headless.processor, median(window, 2),
            median(window, 3));
        tell("In the window", "x headless", 1.1, median(window, 0) / headless.seconds);
        tell("In the window, longest pause", "ms", 15, median(window, 2));
        std::fflush(stdout);
    }

    void printGoals() const {
        std::printf("\n### Goals\n\n| what | at most | came out | |\n|---|---|---|---|\n%s", goals_.c_str());
    }

private:
    static double median(std::vector<std::vector<double>>& rows, std::size_t column) {
        std::sort(rows.begin(), rows.end(),
                  [column](const auto& a, const auto& b) { return a[column] < b[column]; });
        return rows[rows.size() / 2][column];
    }

    static Figures summary(std::vector<Cost>& costs) {
        std::sort(costs.begin(), costs.end(),
                  [](const Cost& a, const Cost& b) { return a.seconds < b.seconds; });
        Figures figures{costs[costs.size() / 2].seconds, 0, 0};
        std::vector<double> processor;
        for (const Cost& cost : costs) {
            figures.mebibytes = std::max(figures.mebibytes, cost.mebibytes);
            processor.push_back(cost.processor);
        }
        std::sort(processor.begin(), processor.end());
        figures.processor = processor[processor.size() / 2];
        return figures;
    }

    static void print(const std::string& title, const std::vector<std::pair<std::string, Command>>& commands,
                      std::map<std::string, Figures>& figures) {
        std::printf("\n### %s\n\n| command | median | brovin takes | processor | peak memory "
                    "|\n|---|---|---|---|---|\n",
                    title.c_str());
        for (const auto& [name, command] : commands)
            std::printf("| %-18s | %7.3f s | %5.2f of it | %7.3f s | %5.1f MiB |\n", name.c_str(),
                        figures[name].seconds, figures["brovin"].seconds / figures[name].seconds,
                        figures[name].processor, figures[name].mebibytes);
    }

    void judge(const std::string& title, std::map<std::string, Figures>& figures,
               const std::vector<Goal>& goals) {
        for (const auto& [what, reference, atMost] : goals) {
            const Figures& brovin = figures["brovin"];
            const double got = what == "MiB"       ? brovin.mebibytes
                               : reference.empty() ? brovin.seconds * 1000
                                                   : brovin.seconds / figures[reference].seconds;
            tell(title, reference.empty() ? (what == "MiB" ? "MiB" : "ms") : "x " + reference, atMost, got);
        }
    }

    void tell(const std::string& title, const std::string& unit, double atMost, double got) {
        std::vector<char> row(300);
        std::snprintf(row.data(), row.size(), "| %s | %.2f %s | %.2f | %s |\n", title.c_str(), atMost,
                      unit.c_str(), got, got <= atMost ? "held" : "missed");
        goals_ += row.data();
    }

    Command brovin_;
    std::string tools_;
    fs::path scratch_;
    int runs_;
    std::string goals_;
};

void shell(const std::string& command) {
    if (std::system(command.c_str()) != 0)
        std::fprintf(stderr, "failed: %s\n", command.c_str());
}

/// Mounted afresh for each run, so that nothing is cached from the one before.
void slowShare(Bench& bench, const std::string& tools, const fs::path& scratch, const std::string& kind,
               const std::vector<Goal>& goals) {
    const fs::path tree = bench.tree("share", {"folders=1651", "files=18349", "fan=6"});
    const fs::path mount = scratch / "mount";
    fs::create_directories(mount);
    const std::string begin = tools + "/slow_share " + tree.string() + " " + mount.string() + " 1000 " +
                              kind + " & while ! mountpoint -q " + mount.string() + "; do sleep 0.01; done";
    bench.compare(
        "Slow share, 1 ms, " + kind,
        {{"brovin", bench.sweep(mount, true)},
         {"bare walk", bench.bare(mount)},
         {"bare walk, 16", bench.bare(mount, "16")},
         {"find", Bench::finder("find", mount)},
         {"fd -j16", Bench::fd(mount, "16")}},
        goals, [&] { shell(begin); }, [&] { shell("umount " + mount.string()); });
}

void trees(Bench& bench, const std::string& tools, const fs::path& scratch, bool cold) {
    const fs::path million = bench.tree("million", {"folders=80999", "files=919001"});
    const std::vector<std::pair<std::string, Command>> all = {{"brovin", bench.sweep(million, true)},
                                                              {"bare walk", bench.bare(million)},
                                                              {"find", Bench::finder("find", million)},
                                                              {"bfs", Bench::finder("bfs", million)},
                                                              {"fd", Bench::fd(million)}};
    bench.compare(
        "1 M entries, 81,000 folders, warm", all,
        {{"", "bare walk", 1.15}, {"", "find", 0.3}, {"", "bfs", 0.45}, {"", "fd", 0.6}, {"MiB", "", 12}},
        bench.warmed(million));
    const std::string list = (scratch / "clutter").string();
    std::string find;
    for (const std::string& word : Bench::finder("find", million))
        find += word.starts_with('-') || word == million ? word + " "
                : word == "find"                         ? "find "
                                                         : "'" + word + "' ";
    find.insert(find.find("-iname"), "\\( ");
    shell(find + "\\) -print0 >" + list);
    bench.compare(
        "The same, deleting",
        {{"brovin", bench.sweep(million, false)}, {"bare walk", bench.bare(million, "1", "delete")}},
        {{"", "bare walk", 1.2}}, [&] {
            shell("xargs -0 touch <" + list);
            bench.warmed(million)();
        });
    shell("xargs -0 touch <" + list); // for the next time
    const fs::path wide = bench.tree("wide", {"folders=0", "files=1000000"});
    bench.compare("One folder of 1 M files",
                  {{"brovin", bench.sweep(wide, true)}, {"bare walk", bench.bare(wide)}},
                  {{"", "bare walk", 1.35}, {"MiB", "", 12}}, bench.warmed(wide));
    const fs::path chain = bench.tree("chain", {"folders=5000", "files=5000", "fan=1"});
    Command few = bench.sweep(chain, true);
    few.insert(few.begin(), {"prlimit", "--nofile=256"});
    bench.compare("Chain, 5,000 deep, 256 descriptors", {{"brovin", few}, {"bare walk", bench.bare(chain)}},
                  {{"", "bare walk", 2}}, bench.warmed(chain));
    const fs::path four = bench.tree("four million", {"folders=323999", "files=3676001"});
    bench.compareMemory("Memory at 4 M entries", bench.sweep(million, true), bench.sweep(four, true));
    if (fs::exists(tools + "/window_sweep"))
        bench.compareWindow(million, fs::path(tools).parent_path() / "share/brovin");
    if (cold)
        bench.compare("1 M entries, cold",
                      {{"brovin", bench.sweep(million, true)},
                       {"bare walk", bench.bare(million)},
                       {"fd", Bench::fd(million)}},
                      {{"", "bare walk", 0.4}, {"", "fd", 0.6}},
                      [] { shell("sync; echo 3 >/proc/sys/vm/drop_caches"); });
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 5) {
        std::fprintf(stderr, "Usage: sweep_bench BROVIN TOOLS-FOLDER SCRATCH-FOLDER RUNS [cold]\n");
        return 2;
    }
    const fs::path scratch = argv[3];
    fs::create_directories(scratch / "empty");
    setenv("XDG_CONFIG_HOME", (scratch / "config").c_str(), 1);
    setenv("XDG_DATA_HOME", (scratch / "data").c_str(), 1);
    Bench bench({argv[1]}, argv[2], scratch, std::max(1, std::atoi(argv[4])));
    bench.compare("brovin --version", {{"brovin", {argv[1], "--version"}}}, {{"ms", "", 10}});
    bench.compare("--scan of an empty folder", {{"brovin", bench.sweep(scratch / "empty", true)}},
                  {{"ms", "", 25}});
    trees(bench, argv[2], scratch, argc > 5);
    if (geteuid() == 0 && fs::exists("/dev/fuse")) {
        slowShare(bench, argv[2], scratch, "cached",
                  {{"", "fd -j16", 1.2}, {"", "find", 0.15}, {"MiB", "", 44}});
        slowShare(bench, argv[2], scratch, "uncached",
                  {{"", "fd -j16", 0.5}, {"", "find", 0.07}, {"MiB", "", 44}});
    } else {
        std::printf("\nThe slow share was left out: only the administrator may mount it.\n");
    }
    bench.printGoals();
    return 0;
}
