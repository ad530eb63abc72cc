#include "posix/disk_program_folder.h"

#include "posix/directory_reader.h"
#include "posix/line_file.h"
#include "posix/make_folders.h"
#include "posix/open_folder.h"
#include "posix/plain_name.h"
#include "posix/read_up_to.h"
#include "posix/replace_file.h"
#include "posix/system_call.h"
#include "posix/write_all.h"
#include "text/strings.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <set>
#include <thread>

namespace brovin::posix {
namespace {

std::string join(const std::string& folder, const std::string& name) {
    return folder + '/' + name;
}

bool isRegularFile(const std::string& path) {
    struct stat facts {};
    return ::stat(path.c_str(), &facts) == 0 && S_ISREG(facts.st_mode);
}

/// What the descriptor refers to, which may have been put in a file's place since it was looked at.
bool isRegularFile(const Descriptor& file) {
    struct stat facts {};
    return file && ::fstat(file.number(), &facts) == 0 && S_ISREG(facts.st_mode);
}

/// The size of a file whose last line is not closed, 0 for any other.
off_t sizeIfWithinALine(const Descriptor& file) {
    struct stat facts {};
    char last = '\n';
    const bool within = ::fstat(file.number(), &facts) == 0 && facts.st_size > 0 &&
                        ::pread(file.number(), &last, 1, facts.st_size - 1) == 1 && last != '\n';
    return within ? facts.st_size : 0;
}

/// Whether a sudden end has torn the last line, which the next one must not run into. The system shows a line
/// that another process is just writing in pieces: only one that stays as it is has been torn.
bool endsWithATornLine(const Descriptor& file) {
    constexpr std::chrono::milliseconds kLongerThanAWrite{50};
    const off_t size = sizeIfWithinALine(file);
    if (size == 0)
        return false;
    std::this_thread::sleep_for(kLongerThanAWrite);
    return sizeIfWithinALine(file) == size;
}

void gatherNames(const std::string& folderPath, std::string_view ending, std::set<std::string>& names) {
    const platform::Result<Descriptor> folder = openFolder(folderPath);
    DirectoryReader reader;
    if (!folder || !reader.read((*folder).number()))
        return;
    while (const auto record = reader.next()) {
        std::string name(record->name);
        if (text::asciiLower(name).ends_with(ending) && isRegularFile(join(folderPath, name)))
            names.insert(std::move(name));
    }
}

} // namespace

std::vector<std::string> DiskProgramFolder::list(std::string_view ending) {
    std::set<std::string> names;
    gatherNames(paths_.own, ending, names);
    gatherNames(paths_.installed, ending, names);
    return {names.begin(), names.end()};
}

std::optional<std::string> DiskProgramFolder::read(const std::string& name, std::size_t limit) {
    if (!isPlainName(name))
        return std::nullopt;
    const std::string where = path(name);
    const Descriptor file(uninterrupted(
        [&where] { return ::open(where.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }));
    return isRegularFile(file) ? readUpTo(file, limit) : std::nullopt;
}

platform::Result<std::unique_ptr<platform::LineWriter>> DiskProgramFolder::openText(const std::string& name,
                                                                                    platform::OpenMode mode) {
    if (!isPlainName(name))
        return systemFailure(EINVAL);
    if (const platform::Status made = makeFolders(paths_.own); !made)
        return made.failure();
    // A link in the user's own folder is the user's: a log may be kept on another disk. Only a regular file
    // is emptied, and not before it is known to be one.
    const int flags = O_RDWR | O_CREAT | O_APPEND | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const std::string where = join(paths_.own, name);
    Descriptor file(uninterrupted([&] { return ::open(where.c_str(), flags, S_IRUSR | S_IWUSR); }));
    if (!file)
        return lastFailure();
    if (!isRegularFile(file))
        return systemFailure(EINVAL);
    makePrivate(where); // what was deleted is nobody else's business
    if (mode == platform::OpenMode::Replace && ::ftruncate(file.number(), 0) != 0)
        return lastFailure();
    if (mode == platform::OpenMode::Append && endsWithATornLine(file))
        if (const platform::Status closed = writeAll(file.number(), "\r\n"); !closed)
            return closed.failure();
    return std::unique_ptr<platform::LineWriter>(std::make_unique<LineFile>(std::move(file)));
}

platform::Status DiskProgramFolder::replace(const std::string& name, std::string_view content) {
    if (!isPlainName(name))
        return systemFailure(EINVAL);
    if (const platform::Status made = makeFolders(paths_.own); !made)
        return made.failure();
    return replaceFile(join(paths_.own, name), content, S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH);
}

std::string DiskProgramFolder::path(const std::string& name) {
    if (!isPlainName(name))
        return {};
    std::string own = join(paths_.own, name);
    std::string installed = join(paths_.installed, name);
    return !isRegularFile(own) && isRegularFile(installed) ? installed : own;
}

} // namespace brovin::posix
