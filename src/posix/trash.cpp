#include "posix/trash.h"

#include "posix/folder_facts.h"
#include "posix/make_folders.h"
#include "posix/open_folder.h"
#include "posix/places.h"
#include "posix/system_call.h"
#include "posix/tree_removal.h"
#include "posix/write_all.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string_view>

namespace brovin::posix {
namespace {

using platform::Done;
using platform::Failure;
using platform::Result;
using platform::Status;

constexpr const char* kFiles = "files";
constexpr const char* kInfo = "info";
constexpr std::string_view kNote = ".trashinfo";
constexpr int kMostNames = 16; ///< so many are tried for one entry

/// A folder of the user's own in another one, made where it is missing. A link is refused, and what belongs
/// to somebody else, who could look into it.
Result<Descriptor> ownFolderIn(int above, const char* name) {
    if (::mkdirat(above, name, S_IRWXU) != 0 && errno != EEXIST)
        return lastFailure();
    Result<Descriptor> folder = openFolderIn(above, name);
    struct stat facts {};
    if (folder && ::fstat(folder->number(), &facts) != 0)
        return lastFailure();
    if (folder && facts.st_uid != ::getuid())
        return systemFailure(EPERM);
    return folder;
}

std::string trashOf(uid_t user) {
    return ".Trash-" + std::to_string(user);
}

/// With everything but plain letters, digits and slashes as the numbers of its bytes.
std::string percentEncoded(std::string_view path) {
    constexpr std::string_view kPlain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.!~*'()/";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (kPlain.find(c) != std::string_view::npos)
            encoded.push_back(c);
        else
            encoded.append({'%', kDigits[byte >> 4U], kDigits[byte & 15U]});
    }
    return encoded;
}

std::string localTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    char text[32] = {};
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &local);
    return {text, length};
}

/// The name that an entry has in the trash: its own, at the next tries with a number, drawn from ever more of
/// them, so that the millionth of a name finds its place as quickly as the second.
std::string keptName(std::string_view name, int tried) {
    constexpr int kMostBits = 28;
    constexpr std::size_t kLongest = 255 - kNote.size();
    std::string number;
    if (tried > 0)
        number = "." + std::to_string(2 + ::arc4random_uniform(1U << std::min(4 * tried, kMostBits)));
    std::size_t length = std::min(name.size(), kLongest - number.size());
    const auto isWithinCharacter = [&](std::size_t at) {
        constexpr unsigned kMask = 0xC0;
        constexpr unsigned kFollows = 0x80;
        return at < name.size() && (static_cast<unsigned char>(name[at]) & kMask) == kFollows;
    };
    while (length > 1 && isWithinCharacter(length))
        --length;
    return std::string(name.substr(0, length)) + number;
}

/// Renames, unless the new name is taken. 0 or -1, as the system's calls do.
int renameInto(int from, const char* name, int to, const char* kept) {
    if (::renameat2(from, name, to, kept, RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return -1;
    struct stat taken {}; // a disk that cannot promise it; the note beside it has reserved the name
    if (::fstatat(to, kept, &taken, AT_SYMLINK_NOFOLLOW) == 0) {
        errno = EEXIST;
        return -1;
    }
    return ::renameat(from, name, to, kept);
}

/// A folder can only be moved by whom it lets write in it; with force that is granted for the moment.
int renameForced(int from, const char* name, int to, const char* kept, const Descriptor& entry) {
    constexpr mode_t kModeBits = 07777;
    struct stat facts {};
    const std::string handle = "/proc/self/fd/" + std::to_string(entry.number());
    if (::fstat(entry.number(), &facts) != 0 || !S_ISDIR(facts.st_mode) ||
        ::chmod(handle.c_str(), (facts.st_mode & kModeBits) | S_IRWXU) != 0) {
        errno = EACCES;
        return -1;
    }
    const int renamed = renameInto(from, name, to, kept);
    const int why = errno;
    static_cast<void>(::chmod(handle.c_str(), facts.st_mode & kModeBits));
    errno = why;
    return renamed;
}

bool isAt(const Descriptor& entry, int folder, const char* name) {
    struct stat held {};
    struct stat found {};
    return ::fstat(entry.number(), &held) == 0 && ::fstatat(folder, name, &found, AT_SYMLINK_NOFOLLOW) == 0 &&
           held.st_dev == found.st_dev && held.st_ino == found.st_ino;
}

} // namespace

Status Trash::take(int parent, const char* name, platform::EntryKind kind, platform::Force force) {
    const Descriptor entry(
        uninterrupted([parent, name] { return ::openat(parent, name, O_PATH | O_NOFOLLOW | O_CLOEXEC); }));
    struct stat facts {};
    if (!entry || ::fstat(entry.number(), &facts) != 0)
        return lastFailure();
    if (S_ISDIR(facts.st_mode) != (kind == platform::EntryKind::Folder))
        return systemFailure(S_ISDIR(facts.st_mode) ? EISDIR : ENOTDIR);
    if (Status free = mayRemove(parent, name, kind, force); !free)
        return free;
    if (Status found = find(parent); !found)
        return found;
    const Result<std::string> path = pathOf(parent);
    if (!path)
        return path.failure();
    std::string origin = *path == "/" ? *path + name : *path + "/" + name;
    if (!origin.starts_with(top_))
        return systemFailure(ESTALE); // moved away meanwhile
    return move(parent, name, entry, force, origin.erase(0, top_.size()));
}

bool Trash::holds(int folder) const {
    const Result<std::string> path = pathOf(folder);
    if (!path)
        return false;
    const std::string user = std::to_string(::getuid());
    const std::string whole = *path + "/";
    const std::string home = homeTrashFolder();
    const char* const resolved = home.empty() ? nullptr : ::realpath(home.c_str(), nullptr);
    const std::string atHome = resolved == nullptr ? home : std::string(resolved);
    std::free(const_cast<char*>(resolved));
    return (!atHome.empty() && whole.starts_with(atHome + "/")) ||
           whole.find("/" + trashOf(::getuid()) + "/") != std::string::npos ||
           whole.find("/.Trash/" + user + "/") != std::string::npos;
}

Result<Trash::Disk> Trash::diskOf(int folder) {
    struct stat facts {};
    if (::fstat(folder, &facts) != 0)
        return lastFailure();
    struct statx more {};
    const bool told =
        ::statx(folder, "", AT_EMPTY_PATH, STATX_MNT_ID, &more) == 0 && (more.stx_mask & STATX_MNT_ID) != 0;
    return Disk{facts.st_dev, told ? more.stx_mnt_id : 0};
}

/// The highest folder of the disk above an open one.
Result<Descriptor> Trash::topOf(int folder, const Disk& disk) {
    const auto openPlace = [](int below, const char* name) {
        return Descriptor(
            uninterrupted([below, name] { return ::openat(below, name, O_PATH | O_DIRECTORY | O_CLOEXEC); }));
    };
    for (Descriptor at = openPlace(folder, ".");;) {
        Descriptor above = at ? openPlace(at.number(), "..") : Descriptor();
        if (!above)
            return lastFailure();
        const Result<Disk> next = diskOf(above.number());
        if (!next)
            return next.failure();
        if (*next != disk || isAt(at, above.number(), "."))
            return at;
        at = std::move(above);
    }
}

/// The one that all users share, where the administrator has made it safe, else one of the user's alone.
Result<Descriptor> Trash::atTheTop(int top) {
    struct stat facts {};
    if (const Result<Descriptor> shared = openFolderIn(top, ".Trash");
        shared && ::fstat(shared->number(), &facts) == 0 && (facts.st_mode & S_ISVTX) != 0) {
        if (Result<Descriptor> own = ownFolderIn(shared->number(), std::to_string(::getuid()).c_str()))
            return own;
    }
    return ownFolderIn(top, trashOf(::getuid()).c_str());
}

Result<Descriptor> Trash::open(int parent, const Disk& disk) {
    const std::string home = homeTrashFolder();
    const std::string above = home.substr(0, home.find_last_of('/'));
    if (!above.empty())
        static_cast<void>(makeFolders(above)); // where that fails the next step does
    if (const Result<Descriptor> data = openFolder(above); data) {
        const Result<Disk> itsDisk = diskOf(data->number());
        if (itsDisk && *itsDisk == disk) {
            top_.clear();
            return ownFolderIn(data->number(), home.c_str() + above.size() + 1);
        }
    }
    const Result<Descriptor> top = topOf(parent, disk);
    if (!top)
        return top.failure();
    Result<std::string> path = pathOf(top->number());
    if (!path)
        return path.failure();
    top_ = path->ends_with('/') ? *path : *path + "/";
    return atTheTop(top->number());
}

Status Trash::find(int parent) {
    const Result<Disk> disk = diskOf(parent);
    if (!disk)
        return disk.failure();
    if (files_ && *disk == disk_)
        return Done{};
    files_ = Descriptor();
    const auto none = [](const Failure& why) {
        return Failure{platform::kNoTrash, "There is no trash on its disk: " + why.reason};
    };
    const Result<Descriptor> trash = open(parent, *disk);
    if (!trash)
        return none(trash.failure());
    Result<Descriptor> files = ownFolderIn(trash->number(), kFiles);
    if (!files)
        return none(files.failure());
    Result<Descriptor> info = ownFolderIn(trash->number(), kInfo);
    if (!info)
        return none(info.failure());
    files_ = std::move(*files);
    info_ = std::move(*info);
    disk_ = *disk;
    return Done{};
}

Status Trash::note(const std::string& kept, const std::string& origin) const {
    const std::string name = kept + std::string(kNote);
    const Descriptor file(uninterrupted([this, &name] {
        return ::openat(info_.number(), name.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_NOFOLLOW | O_CLOEXEC,
                        S_IRUSR | S_IWUSR);
    }));
    if (!file)
        return lastFailure();
    Status written = writeAll(file.number(), "[Trash Info]\nPath=" + percentEncoded(origin) +
                                                 "\nDeletionDate=" + localTime() + "\n");
    if (!written)
        ::unlinkat(info_.number(), name.c_str(), 0);
    return written;
}

/// Noted first, as the rules are: what lies there is always known to have come from somewhere.
Status Trash::move(int parent, const char* name, const Descriptor& entry, platform::Force force,
                   const std::string& origin) const {
    for (int tried = 0; tried < kMostNames; ++tried) {
        const std::string kept = keptName(name, tried);
        Status noted = note(kept, origin);
        if (!noted && noted.failure().number == EEXIST)
            continue;
        if (!noted)
            return noted;
        int renamed = renameInto(parent, name, files_.number(), kept.c_str());
        if (renamed != 0 && errno == EACCES && force == platform::Force::Yes)
            renamed = renameForced(parent, name, files_.number(), kept.c_str(), entry);
        Failure failed = lastFailure();
        if (renamed == 0) {
            if (isAt(entry, files_.number(), kept.c_str()))
                return Done{};
            // Another entry was put in its place since it was looked at, and goes back there.
            static_cast<void>(renameInto(files_.number(), kept.c_str(), parent, name));
            failed = systemFailure(ESTALE);
        }
        ::unlinkat(info_.number(), (kept + std::string(kNote)).c_str(), 0);
        if (failed.number != EEXIST)
            return failed;
    }
    return systemFailure(EEXIST);
}

} // namespace brovin::posix
