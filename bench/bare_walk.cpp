// The least that a walk over a tree can do: opens each folder, reads its names, looks each up in a set of
// ten, closes it. What a sweep takes beyond this is its own. Usage: bare_walk FOLDER [THREADS] [delete]

#include <algorithm>
#include <array>
#include <cctype>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_set>
#include <utility>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

const std::unordered_set<std::string_view> kClutter = {
    "thumbs.db",       ".ds_store",  "desktop.ini",     "__macosx", ".trashes",
    ".spotlight-v100", ".fseventsd", ".temporaryitems", ".apdisk",  "ehthumbs.db"};

bool deletes = false;

struct Count {
    unsigned long entries = 0;
    unsigned long folders = 0;
    unsigned long clutter = 0;
};

/// Reads an open folder and calls back for each of its folders.
template <class Found>
void readFolder(int folder, Count& count, std::vector<char>& memory, Found found) {
    ++count.folders;
    for (ssize_t bytes = 0; (bytes = getdents64(folder, memory.data(), memory.size())) > 0;) {
        for (ssize_t at = 0; at < bytes;) {
            const auto* entry = reinterpret_cast<const dirent64*>(&memory[static_cast<std::size_t>(at)]);
            at += entry->d_reclen;
            if (std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0)
                continue;
            ++count.entries;
            std::array<char, 256> lowered{};
            std::size_t length = 0;
            for (const char* c = entry->d_name; *c != '\0'; ++c)
                lowered[length++] = static_cast<char>(std::tolower(static_cast<unsigned char>(*c)));
            if (kClutter.contains(std::string_view(lowered.data(), length))) {
                ++count.clutter;
                if (deletes)
                    unlinkat(folder, entry->d_name, 0);
            } else if (entry->d_type == DT_DIR) {
                found(entry->d_name);
            }
        }
    }
}

int openIn(int parent, const char* name) {
    return openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
}

/// On one thread, a folder's folders after all its entries. Of the way down the lowest folders are open, so
/// that neither depth nor the number of descriptors bound it.
Count walkAlone(int top) {
    constexpr std::size_t kMostOpen = 128;
    constexpr int kClosed = -1;
    struct Level {
        int folder;
        std::vector<std::string> below;
    };
    Count count;
    std::vector<char> memory(std::size_t{1} << 18);
    std::vector<Level> levels;
    const auto enter = [&](int folder) {
        Level& level = levels.emplace_back(Level{folder, {}});
        readFolder(folder, count, memory, [&level](const char* name) { level.below.emplace_back(name); });
        std::reverse(level.below.begin(), level.below.end());
        if (levels.size() > kMostOpen)
            close(std::exchange(levels[levels.size() - kMostOpen - 1].folder, kClosed));
    };
    enter(top);
    while (!levels.empty()) {
        Level& level = levels.back();
        if (!level.below.empty()) {
            const int folder = openIn(level.folder, level.below.back().c_str());
            level.below.pop_back();
            if (folder >= 0)
                enter(folder);
            continue;
        }
        if (levels.size() > 1 && levels[levels.size() - 2].folder == kClosed)
            levels[levels.size() - 2].folder = openIn(level.folder, "..");
        close(level.folder);
        levels.pop_back();
    }
    return count;
}

/// Closes itself with the last of the folders below that were to be opened in it.
struct Place {
    int folder;
    explicit Place(int number) : folder(number) {}
    ~Place() { close(folder); }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;
};

/// Folders that are known and not yet read, for any number of threads.
class SharedWalk {
public:
    explicit SharedWalk(int top) : waiting_{{std::make_shared<Place>(top), "."}} {}

    Count run(unsigned threads) {
        std::vector<std::thread> workers;
        for (unsigned i = 0; i < threads; ++i)
            workers.emplace_back([this] { work(); });
        for (std::thread& worker : workers)
            worker.join();
        return total_;
    }

private:
    struct Folder {
        std::shared_ptr<Place> parent;
        std::string name;
    };

    void work() {
        Count count;
        std::vector<char> memory(std::size_t{1} << 18);
        std::unique_lock lock(mutex_);
        for (;;) {
            changed_.wait(lock, [this] { return !waiting_.empty() || busy_ == 0; });
            if (waiting_.empty())
                break;
            const Folder next = std::move(waiting_.back());
            waiting_.pop_back();
            ++busy_;
            lock.unlock();
            std::vector<Folder> found;
            if (const int folder = openIn(next.parent->folder, next.name.c_str()); folder >= 0) {
                const auto place = std::make_shared<Place>(folder);
                readFolder(folder, count, memory, [&](const char* name) { found.push_back({place, name}); });
            }
            lock.lock();
            --busy_;
            for (Folder& each : found)
                waiting_.push_back(std::move(each));
            changed_.notify_all();
        }
        total_.entries += count.entries;
        total_.folders += count.folders;
        total_.clutter += count.clutter;
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<Folder> waiting_;
    unsigned busy_ = 0;
    Count total_;
};

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "Usage: bare_walk FOLDER [THREADS] [delete]\n");
        return 2;
    }
    const unsigned threads = argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 1;
    deletes = argc > 3 && std::strcmp(argv[3], "delete") == 0;
    const int top = open(argv[1], O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (top < 0) {
        std::perror(argv[1]);
        return 1;
    }
    const Count count = threads > 1 ? SharedWalk(top).run(threads) : walkAlone(top);
    std::printf("%lu entries, %lu folders, %lu clutter\n", count.entries, count.folders, count.clutter);
    return 0;
}
