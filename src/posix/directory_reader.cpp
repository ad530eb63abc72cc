#include "posix/directory_reader.h"

#include "posix/system_call.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>

namespace brovin::posix {
namespace {

platform::EntryKind kindOf(int folder, const char* name, unsigned char type) {
    if (type != DT_UNKNOWN)
        return type == DT_DIR ? platform::EntryKind::Folder : platform::EntryKind::File;
    struct stat facts {};
    const bool known = ::fstatat(folder, name, &facts, AT_SYMLINK_NOFOLLOW) == 0;
    return known && S_ISDIR(facts.st_mode) ? platform::EntryKind::Folder : platform::EntryKind::File;
}

bool isFolderItselfOrAbove(const char* name) {
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

} // namespace

platform::Status DirectoryReader::read(int folder) {
    folder_ = folder;
    position_ = 0;
    end_ = 0;
    for (;;) {
        makeRoom();
        const ssize_t bytes =
            uninterrupted([this] { return ::getdents64(folder_, memory_.get() + end_, capacity_ - end_); });
        if (bytes == 0)
            return platform::Done{};
        if (bytes < 0) {
            end_ = 0;
            return lastFailure();
        }
        end_ += static_cast<std::size_t>(bytes);
    }
}

void DirectoryReader::makeRoom() {
    if (capacity_ - end_ >= kLeastRoom)
        return;
    const std::size_t capacity = std::max(4 * kLeastRoom, 2 * capacity_);
    auto memory = std::make_unique_for_overwrite<char[]>(capacity);
    std::copy_n(memory_.get(), end_, memory.get());
    memory_ = std::move(memory);
    capacity_ = capacity;
}

std::optional<DirectoryReader::Record> DirectoryReader::next() {
    while (position_ < end_) {
        const char* record = memory_.get() + position_;
        unsigned short length = 0;
        std::memcpy(&length, record + offsetof(dirent64, d_reclen), sizeof length);
        position_ += length;
        const char* name = record + offsetof(dirent64, d_name);
        if (isFolderItselfOrAbove(name))
            continue;
        const auto type = static_cast<unsigned char>(record[offsetof(dirent64, d_type)]);
        return Record{name, kindOf(folder_, name, type)};
    }
    return std::nullopt;
}

} // namespace brovin::posix
