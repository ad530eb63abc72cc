#include "posix/directory_reader.h"

#include "posix/system_call.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace brovin::posix {
namespace {

unsigned char typeOnDisk(int folder, const char* name) {
    struct stat facts {};
    const bool known = ::fstatat(folder, name, &facts, AT_SYMLINK_NOFOLLOW) == 0;
    return known && S_ISDIR(facts.st_mode) ? DT_DIR : DT_REG;
}

bool isFolderItselfOrAbove(const char* name) {
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

std::size_t lengthOf(const char* record) {
    unsigned short length = 0;
    std::memcpy(&length, record + offsetof(dirent64, d_reclen), sizeof length);
    return length;
}

} // namespace

platform::Status DirectoryReader::read(int folder, std::size_t mostBytes) {
    folder_ = folder;
    ended_ = several_ = false;
    return readPart(mostBytes);
}

platform::Result<bool> DirectoryReader::readOn() {
    position_ = end_ = 0;
    if (ended_)
        return false;
    if (platform::Status part = readPart(kMostBytes); !part)
        return part.failure();
    return end_ > 0;
}

platform::Status DirectoryReader::readPart(std::size_t mostBytes) {
    position_ = end_ = 0;
    while (end_ + kLeastRoom <= mostBytes && !ended_) {
        makeRoom(kLeastRoom);
        const std::size_t begin = end_;
        platform::Status read = readPortion();
        if (read && end_ > begin)
            read = watch(begin);
        if (!read) {
            ended_ = true;
            end_ = 0;
            return read;
        }
        if (end_ > kMostAtOnce && whileReading)
            whileReading();
    }
    return platform::Done{};
}

platform::Status DirectoryReader::readPortion() {
    const std::size_t room = std::min(capacity_ - end_, kMostAtOnce);
    const ssize_t bytes =
        uninterrupted([this, room] { return ::getdents64(folder_, memory_.get() + end_, room); });
    if (bytes < 0)
        return lastFailure();
    end_ += static_cast<std::size_t>(bytes);
    ended_ = bytes == 0;
    return platform::Done{};
}

/// Looks at what was read from `begin` on. The first portion of a folder is never too much.
platform::Status DirectoryReader::watch(std::size_t begin) {
    if (!several_) {
        several_ = true;
        guard_ = ListingGuard();
        return platform::Done{};
    }
    return guard_.admit(end_ - begin, lastOf(begin));
}

void DirectoryReader::makeRoom(std::size_t bytes) {
    if (capacity_ - end_ >= bytes)
        return;
    const std::size_t capacity = std::max({4 * kLeastRoom, 2 * capacity_, end_ + bytes});
    auto memory = std::make_unique_for_overwrite<char[]>(capacity);
    std::copy_n(memory_.get(), end_, memory.get());
    memory_ = std::move(memory);
    capacity_ = capacity;
}

ListingGuard::Place DirectoryReader::lastOf(std::size_t begin) const {
    const char* record = memory_.get() + begin;
    while (record + lengthOf(record) < memory_.get() + end_)
        record += lengthOf(record);
    std::int64_t offset = 0;
    std::memcpy(&offset, record + offsetof(dirent64, d_off), sizeof offset);
    return {offset, record + offsetof(dirent64, d_name)};
}

void DirectoryReader::adopt(int folder, const FolderRecords& records) {
    position_ = end_ = 0;
    makeRoom(records.bytes);
    std::copy_n(records.memory.get(), records.bytes, memory_.get());
    folder_ = folder;
    end_ = records.bytes;
    ended_ = records.ended;
    several_ = false;
}

FolderRecords DirectoryReader::copy() const {
    FolderRecords records{std::make_unique_for_overwrite<char[]>(end_), end_, ended_};
    std::copy_n(memory_.get(), end_, records.memory.get());
    return records;
}

std::optional<DirectoryReader::Record> DirectoryReader::next() {
    while (position_ < end_) {
        char* const record = memory_.get() + position_;
        position_ += lengthOf(record);
        const char* const name = record + offsetof(dirent64, d_name);
        if (isFolderItselfOrAbove(name))
            continue;
        char& type = record[offsetof(dirent64, d_type)];
        if (type == DT_UNKNOWN) // asked once: the record may be looked at again
            type = static_cast<char>(typeOnDisk(folder_, name));
        return Record{name, type == DT_DIR ? platform::EntryKind::Folder : platform::EntryKind::File};
    }
    return std::nullopt;
}

} // namespace brovin::posix
