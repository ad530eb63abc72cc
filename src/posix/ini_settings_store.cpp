#include "posix/ini_settings_store.h"

#include "posix/descriptor.h"
#include "posix/file_lock.h"
#include "posix/ini_content.h"
#include "posix/make_folders.h"
#include "posix/read_up_to.h"
#include "posix/replace_file.h"
#include "posix/system_call.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <filesystem>

namespace brovin::posix {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kLargestFile = std::size_t{64} * 1024 * 1024;
constexpr mode_t kOwnFile = S_IRUSR | S_IWUSR;
/// A save takes milliseconds; whoever holds the lock longer than this is stopped or hangs.
constexpr auto kPatience = 2s;

/// What tells one state of a file from the next.
bool same(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino && one.st_size == other.st_size &&
           one.st_mtim.tv_sec == other.st_mtim.tv_sec && one.st_mtim.tv_nsec == other.st_mtim.tv_nsec &&
           one.st_ctim.tv_sec == other.st_ctim.tv_sec && one.st_ctim.tv_nsec == other.st_ctim.tv_nsec;
}

/// The file itself, where its place is taken by a link: a write must not put a file in the link's place.
std::string behindLinks(std::string path) {
    constexpr int kMostLinks = 40;
    std::error_code noLink;
    for (int i = 0; i < kMostLinks; ++i) {
        const std::filesystem::path target = std::filesystem::read_symlink(path, noLink);
        if (noLink)
            break;
        path = (std::filesystem::path(path).parent_path() / target).string();
    }
    return path;
}

std::string lockBeside(const std::string& file) {
    return file + ".lock";
}

/// The folder for settings holds what the user alone is to read. One that the user has linked to another
/// place is left as it is.
void makeFolderOf(const std::string& path) {
    const std::string folder = path.substr(0, path.rfind('/'));
    static_cast<void>(makeFolders(folder)); // whether the file can be written shows when it is
    makePrivate(folder);
}

} // namespace

struct IniSettingsStore::Content {
    IniContent ini;
    struct stat facts {};
    Descriptor file; ///< held open, so that no other file can have its inode
    enum class Kind { Missing, Whole, Damaged, Unreadable } kind = Kind::Missing;
    std::string bytes; ///< of a damaged file

    explicit Content(const std::string& path);
    [[nodiscard]] bool current(const std::string& path) const;
};

IniSettingsStore::Content::Content(const std::string& path) {
    file = Descriptor(uninterrupted(
        [&path] { return ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }));
    if (!file) {
        kind = errno == ENOENT || errno == ENOTDIR ? Kind::Missing : Kind::Unreadable;
        return;
    }
    kind = Kind::Unreadable;
    const bool regular = ::fstat(file.number(), &facts) == 0 && S_ISREG(facts.st_mode);
    auto read = regular ? readUpTo(file, kLargestFile) : std::nullopt;
    const auto how = read ? ini.read(*read) : IniContent::Read::Failed;
    if (how == IniContent::Read::Whole)
        kind = Kind::Whole;
    if (how == IniContent::Read::Damaged) {
        kind = Kind::Damaged;
        bytes = std::move(*read);
    }
}

bool IniSettingsStore::Content::current(const std::string& path) const {
    struct stat now {};
    if (::stat(path.c_str(), &now) != 0)
        return kind == Kind::Missing;
    return file && same(facts, now);
}

IniSettingsStore::IniSettingsStore(std::string path) : path_(std::move(path)) {
    const std::string file = behindLinks(path_);
    struct stat facts {};
    const std::string leftOver = file + ".new";
    if (::lstat(leftOver.c_str(), &facts) == 0 && FileLock(lockBeside(file), 0ms).held())
        ::unlink(leftOver.c_str());
    refresh();
}

IniSettingsStore::~IniSettingsStore() = default;

bool IniSettingsStore::damaged() const {
    return content_->kind == Content::Kind::Damaged || content_->kind == Content::Kind::Unreadable;
}

const std::string& IniSettingsStore::damagedCopy() const {
    return damagedCopy_;
}

void IniSettingsStore::refresh() {
    if (content_ && content_->current(path_))
        return;
    content_ = std::make_unique<Content>(path_);
    if (content_->kind != Content::Kind::Damaged)
        return;
    const std::string copy = path_ + ".damaged";
    if (replaceFile(copy, content_->bytes, kOwnFile))
        damagedCopy_ = copy;
    content_->bytes.clear();
}

std::optional<std::string> IniSettingsStore::read(std::string_view section, std::string_view key) {
    refresh();
    return content_->ini.find(section, key);
}

bool IniSettingsStore::write(std::string_view section, std::span<const platform::SettingsEntry> entries) {
    refresh();
    if (content_->kind != Content::Kind::Unreadable &&
        !content_->ini.change(section, entries, IniContent::Change::Ask))
        return true; // what is stored needs no second write
    makeFolderOf(path_);
    const std::string file = behindLinks(path_);
    const FileLock lock(lockBeside(file), kPatience);
    if (!lock.held())
        return false;
    refresh(); // another copy of the program may have stored something meanwhile
    if (content_->kind == Content::Kind::Unreadable)
        return false; // what it holds would be lost
    if (!content_->ini.change(section, entries, IniContent::Change::Make))
        return true;
    const auto bytes = content_->ini.file();
    const bool stored = bytes && replaceFile(file, *bytes, kOwnFile);
    // Read again, so that what is in memory is what is on the disk, whether that succeeded or not.
    content_ = std::make_unique<Content>(path_);
    return stored;
}

} // namespace brovin::posix
