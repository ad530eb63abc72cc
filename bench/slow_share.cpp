// Shows a folder as a share that answers each request after a delay: what stands between this machine and a
// file server, without the server. Runs until it is unmounted. Usage: slow_share FOLDER MOUNT-POINT
// MICROSECONDS cached|uncached|hangs "hangs": as cached, until a folder named "hang" is opened, which never
// ends.

#define FUSE_USE_VERSION FUSE_MAKE_VERSION(3, 12)

#include <fuse3/fuse.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct Share {
    std::string folder;
    std::chrono::microseconds delay{0};
    bool cached = true;
    bool hangs = false;
};
Share share; // libfuse calls plain functions; one process is one share

std::string request(const char* path) {
    std::this_thread::sleep_for(share.delay);
    return share.folder + path;
}

int outcome(int result) {
    return result < 0 ? -errno : 0;
}

int tellFacts(const char* path, struct stat* facts, fuse_file_info* open) {
    const std::string place = request(path);
    return outcome(open != nullptr ? fstat(static_cast<int>(open->fh), facts) : lstat(place.c_str(), facts));
}

int openFolder(const char* path, fuse_file_info* info) {
    const std::string place = request(path);
    if (share.hangs && std::string_view(path).ends_with("/hang")) {
        while (fuse_interrupted() == 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return -EINTR;
    }
    const int folder = open(place.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    info->fh = static_cast<std::uint64_t>(folder);
    return outcome(folder);
}

/// All entries in one go: the library keeps them and answers the kernel's further requests from that.
int listFolder(const char* path, void* buffer, fuse_fill_dir_t fill, off_t, fuse_file_info*,
               fuse_readdir_flags) {
    DIR* const folder = opendir(request(path).c_str());
    if (folder == nullptr)
        return -errno;
    while (const dirent* entry = readdir(folder)) {
        struct stat facts {};
        facts.st_ino = entry->d_ino;
        facts.st_mode = static_cast<mode_t>(DTTOIF(entry->d_type));
        fill(buffer, entry->d_name, &facts, 0, fuse_fill_dir_flags{});
    }
    closedir(folder);
    return 0;
}

int closeFolder(const char*, fuse_file_info* info) {
    return outcome(close(static_cast<int>(info->fh)));
}

int removeFile(const char* path) {
    return outcome(unlink(request(path).c_str()));
}

int removeFolder(const char* path) {
    return outcome(rmdir(request(path).c_str()));
}

void* begin(fuse_conn_info* connection, fuse_config* config) {
    // What a plain request costs is to be seen, so none brings along what was not asked for.
    connection->want &= ~static_cast<unsigned>(FUSE_CAP_READDIRPLUS | FUSE_CAP_READDIRPLUS_AUTO);
    constexpr double kLong = 3600; // seconds
    config->entry_timeout = config->attr_timeout = config->negative_timeout = share.cached ? kLong : 0;
    config->use_ino = 1;
    config->intr = share.hangs ? 1 : 0; // as with network file systems, whoever waits can be killed
    config->nullpath_ok = 0;
    return nullptr;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        std::fprintf(stderr, "Usage: slow_share FOLDER MOUNT-POINT MICROSECONDS cached|uncached|hangs\n");
        return 2;
    }
    const std::string_view kind = argv[4];
    share = {argv[1], std::chrono::microseconds(std::atol(argv[3])), kind != "uncached", kind == "hangs"};
    std::signal(SIGUSR1, [](int) {}); // by which the library wakes who serves a request that was given up
    fuse_operations operations{};
    operations.getattr = tellFacts;
    operations.opendir = openFolder;
    operations.readdir = listFolder;
    operations.releasedir = closeFolder;
    operations.unlink = removeFile;
    operations.rmdir = removeFolder;
    operations.init = begin;
    std::array<char*, 1> arguments{argv[0]};
    fuse_args args{1, arguments.data(), 0};
    fuse* const session = fuse_new(&args, &operations, sizeof operations, nullptr);
    if (session == nullptr || fuse_mount(session, argv[2]) != 0)
        return 1;
    fuse_loop_config* const loop = fuse_loop_cfg_create();
    fuse_loop_cfg_set_max_threads(loop, 64);
    fuse_loop_cfg_set_idle_threads(loop, 64);
    const int status = fuse_loop_mt(session, loop);
    fuse_loop_cfg_destroy(loop);
    fuse_unmount(session);
    fuse_destroy(session);
    return status == 0 ? 0 : 1;
}
