#include "posix/name_lookup.h"

#include "posix/descriptor.h"
#include "posix/directory_reader.h"
#include "posix/open_folder.h"
#include "posix/system_call.h"
#include "posix/unicode_case.h"
#include "text/strings.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace brovin::posix {
namespace {

/// Opens a folder to look names up in it, which needs no permission to list it. Links are followed.
Descriptor openPlace(int parent, const std::string& name) {
    return Descriptor(
        uninterrupted([&] { return ::openat(parent, name.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC); }));
}

bool isThere(int place, const std::string& name) {
    struct stat facts {};
    return ::fstatat(place, name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0;
}

std::optional<std::string> onlyNameWithoutCase(int place, std::string_view lowered) {
    const Descriptor folder(uninterrupted([place] { return ::openat(place, ".", kFolderFlags); }));
    DirectoryReader reader;
    if (!folder || !reader.read(folder.number()))
        return std::nullopt;
    std::optional<std::string> only;
    for (;;) {
        while (const auto record = reader.next()) {
            if (lowerCase(record->name) != lowered)
                continue;
            if (only)
                return std::nullopt;
            only = record->name;
        }
        const platform::Result<bool> more = reader.readOn();
        if (!more)
            return std::nullopt;
        if (!*more)
            return only;
    }
}

} // namespace

std::optional<std::string> findPathWithoutCase(std::string_view loweredPath) {
    Descriptor place = openPlace(AT_FDCWD, "/");
    std::string found;
    for (const std::string_view piece : text::split(loweredPath, '/')) {
        if (piece.empty())
            continue;
        std::optional<std::string> name(piece);
        if (!isThere(place.number(), *name))
            name = onlyNameWithoutCase(place.number(), piece);
        if (!name)
            return std::nullopt;
        found += '/' + *name;
        place = openPlace(place.number(), *name);
    }
    return found.empty() ? "/" : found;
}

} // namespace brovin::posix
