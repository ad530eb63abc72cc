// A disk in memory that forgets, when its power is cut, what was not flushed: of a file what was written
// since its last fsync, and of a folder the names that came, went or were moved since its own. As "early" it
// keeps the names at once and only forgets contents, which is how files come to be empty after a power cut.
// Making the folder "@flush" flushes everything; making "@cut" cuts the power, and turns it on again.

#define FUSE_USE_VERSION 31
#include <fuse3/fuse.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Node {
    struct stat facts {};
    std::string content; ///< of a link: where it leads
    std::string flushed;
};
using Names = std::map<std::string, std::shared_ptr<Node>>; ///< by path

Names names;
Names flushedNames;
bool namesAreKeptAtOnce = false;

std::string parentOf(const std::string& path) {
    const auto end = path.rfind('/');
    return end == 0 ? "/" : path.substr(0, end);
}

Node* find(const char* path) {
    const auto found = names.find(path);
    return found == names.end() ? nullptr : found->second.get();
}

int make(const char* path, mode_t mode) {
    if (find(path) != nullptr)
        return -EEXIST;
    static ino_t number = 1;
    auto node = std::make_shared<Node>();
    node->facts.st_ino = number++;
    node->facts.st_mode = mode;
    node->facts.st_nlink = S_ISDIR(mode) ? 2 : 1;
    node->facts.st_uid = getuid();
    node->facts.st_gid = getgid();
    node->facts.st_mtime = node->facts.st_atime = node->facts.st_ctime = time(nullptr);
    names.emplace(path, std::move(node));
    return 0;
}

void flushNames(const std::string& folder) {
    const auto within = [&folder](const auto& entry) { return parentOf(entry.first) == folder; };
    std::erase_if(flushedNames, within);
    for (const auto& entry : names)
        if (within(entry))
            flushedNames.insert(entry);
}

void flushAll() {
    for (const auto& [path, node] : names)
        node->flushed = node->content;
    flushedNames = names;
}

void cutPower() {
    if (!namesAreKeptAtOnce)
        names = flushedNames;
    // A folder whose own name was not flushed takes along what is in it.
    std::erase_if(names, [](const auto& entry) {
        return entry.first != "/" && !names.contains(parentOf(entry.first));
    });
    for (const auto& [path, node] : names)
        node->content = node->flushed;
    flushedNames = names;
}

// An open file lives on without its name, so each open holds its node.
using Held = std::shared_ptr<Node>;

Node& nodeOf(fuse_file_info* info) {
    return **reinterpret_cast<Held*>(info->fh);
}

int tellFacts(const char* path, struct stat* facts, fuse_file_info* info) {
    const Node* const node = info != nullptr ? &nodeOf(info) : find(path);
    if (node == nullptr)
        return -ENOENT;
    *facts = node->facts;
    facts->st_size = static_cast<off_t>(node->content.size());
    facts->st_blocks = (facts->st_size + 511) / 512;
    return 0;
}

int makeFolder(const char* path, mode_t mode) {
    if (std::string_view(path) == "/@flush")
        return flushAll(), 0;
    if (std::string_view(path) == "/@cut")
        return cutPower(), 0;
    return make(path, S_IFDIR | mode);
}

int makeFile(const char* path, mode_t mode, fuse_file_info*) {
    return make(path, S_IFREG | mode);
}

int makeLink(const char* target, const char* path) {
    const int made = make(path, S_IFLNK | 0777);
    if (made == 0)
        find(path)->content = target;
    return made;
}

int readLink(const char* path, char* buffer, size_t size) {
    std::snprintf(buffer, size, "%s", find(path)->content.c_str());
    return 0;
}

int removeName(const char* path) {
    return names.erase(path) > 0 ? 0 : -ENOENT;
}

int removeFolder(const char* path) {
    for (const auto& [other, node] : names)
        if (other != "/" && parentOf(other) == path)
            return -ENOTEMPTY;
    return removeName(path);
}

int rename(const char* from, const char* to, unsigned flags) {
    if (find(from) == nullptr)
        return -ENOENT;
    if (flags != 0 && find(to) != nullptr)
        return -EEXIST;
    const std::string below = std::string(from) + '/';
    Names moved;
    for (const auto& [path, node] : names)
        if (path == from || path.starts_with(below))
            moved[to + path.substr(std::strlen(from))] = node;
    std::erase_if(names,
                  [&](const auto& entry) { return entry.first == from || entry.first.starts_with(below); });
    for (auto& [path, node] : moved)
        names[path] = node;
    return 0;
}

int openFile(const char* path, fuse_file_info* info) {
    const auto found = names.find(path);
    if (found == names.end())
        return -ENOENT;
    info->fh = reinterpret_cast<std::uint64_t>(new Held(found->second));
    info->direct_io = 1;
    if ((info->flags & O_TRUNC) != 0)
        found->second->content.clear();
    return 0;
}

int createFile(const char* path, mode_t mode, fuse_file_info* info) {
    const int made = makeFile(path, mode, info);
    return made == 0 ? openFile(path, info) : made;
}

int closeFile(const char*, fuse_file_info* info) {
    delete reinterpret_cast<Held*>(info->fh);
    return 0;
}

int readFile(const char*, char* buffer, size_t size, off_t at, fuse_file_info* info) {
    const std::string& content = nodeOf(info).content;
    const auto from = std::min(content.size(), static_cast<size_t>(at));
    return static_cast<int>(content.copy(buffer, size, from));
}

int writeFile(const char*, const char* buffer, size_t size, off_t at, fuse_file_info* info) {
    std::string& content = nodeOf(info).content;
    const size_t from = (info->flags & O_APPEND) != 0 ? content.size() : static_cast<size_t>(at);
    content.resize(std::max(content.size(), from + size));
    content.replace(from, size, buffer, size);
    return static_cast<int>(size);
}

int truncateFile(const char* path, off_t size, fuse_file_info* info) {
    Node* const node = info != nullptr ? &nodeOf(info) : find(path);
    if (node == nullptr)
        return -ENOENT;
    node->content.resize(static_cast<size_t>(size));
    return 0;
}

int flushFile(const char*, int, fuse_file_info* info) {
    nodeOf(info).flushed = nodeOf(info).content;
    return 0;
}

int flushFolder(const char* path, int, fuse_file_info*) {
    flushNames(path);
    return 0;
}

int listFolder(const char* path, void* buffer, fuse_fill_dir_t fill, off_t, fuse_file_info*,
               fuse_readdir_flags) {
    for (const auto& [name, node] : names)
        if (name != "/" && parentOf(name) == path)
            fill(buffer, name.substr(name.rfind('/') + 1).c_str(), nullptr, 0, fuse_fill_dir_flags{});
    return 0;
}

int changeMode(const char* path, mode_t mode, fuse_file_info*) {
    Node* const node = find(path);
    if (node == nullptr)
        return -ENOENT;
    node->facts.st_mode = (node->facts.st_mode & S_IFMT) | (mode & 07777U);
    return 0;
}

int changeTimes(const char* path, const timespec times[2], fuse_file_info*) {
    find(path)->facts.st_mtime = times[1].tv_sec;
    return 0;
}

void* begin(fuse_conn_info*, fuse_config* config) {
    config->entry_timeout = config->attr_timeout = config->negative_timeout = 0;
    config->hard_remove = 1;
    return nullptr;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "Usage: forgetful_disk MOUNT-POINT late|early\n");
        return 2;
    }
    namesAreKeptAtOnce = std::string_view(argv[2]) == "early";
    make("/", S_IFDIR | 0700);
    flushAll();
    fuse_operations operations{};
    operations.getattr = tellFacts;
    operations.mkdir = makeFolder;
    operations.create = createFile;
    operations.symlink = makeLink;
    operations.readlink = readLink;
    operations.unlink = removeName;
    operations.rmdir = removeFolder;
    operations.rename = rename;
    operations.open = openFile;
    operations.release = closeFile;
    operations.read = readFile;
    operations.write = writeFile;
    operations.truncate = truncateFile;
    operations.fsync = flushFile;
    operations.fsyncdir = flushFolder;
    operations.readdir = listFolder;
    operations.chmod = changeMode;
    operations.utimens = changeTimes;
    operations.init = begin;
    char* arguments[] = {argv[0], argv[1], const_cast<char*>("-f"), const_cast<char*>("-s"), nullptr};
    return fuse_main(4, arguments, &operations, nullptr);
}
