#include "posix/tree_traversal.h"

#include "posix/plain_name.h"
#include "posix/system_call.h"

namespace brovin::posix {

// The way is kept as data and not as calls, because whoever writes to a shared disk decides how deep it goes.
// All names that wait stand in one text, those of the lowest level last: a level is over when nothing stands
// behind the place where its names begin, and leaving it cuts the text off there.
platform::Status TreeTraversal::run(std::string_view name) {
    pending_.assign(name).push_back('\0');
    platform::Status status = visitNext();
    while (status && !levels_.empty())
        status = pending_.size() > levels_.back().pending ? visitNext() : leave();
    return status;
}

/// Goes down into the folder whose name stands last. Its name stays there until it is left: that is when it
/// is deleted. A folder that may be passed over is forgotten at once.
platform::Status TreeTraversal::visitNext() {
    const std::size_t zeroBefore =
        pending_.size() < 2 ? std::string::npos : pending_.rfind('\0', pending_.size() - 2);
    const std::size_t name = zeroBefore == std::string::npos ? 0 : zeroBefore + 1;
    platform::Result<Descriptor> folder = visitor_.open(chain_.current(), &pending_[name]);
    if (!folder) {
        if (levels_.empty() || !visitor_.passesOver(folder.failure().number))
            return folder.failure();
        pending_.resize(name);
        return platform::Done{};
    }
    if (platform::Status entered = chain_.enter(FolderChain::held(std::move(*folder))); !entered)
        return entered;
    levels_.push_back({name, pending_.size()});
    return visitContents();
}

/// Reads the folder to its end before going down, so that one buffer serves the whole tree.
platform::Status TreeTraversal::visitContents() {
    if (platform::Status read = reader_.read(chain_.current()); !read)
        return read;
    for (;;) {
        if (platform::Status visited = visitPart(); !visited)
            return visited;
        const platform::Result<bool> more = reader_.readOn();
        if (!more)
            return more.failure();
        if (!*more)
            return platform::Done{};
    }
}

platform::Status TreeTraversal::visitPart() {
    while (const auto record = reader_.next()) {
        // A disk behind a network may be hostile: a name such as "../x" must not lead out of the tree.
        if (!isPlainName(record->name))
            return systemFailure(EIO);
        if (record->kind == platform::EntryKind::Folder) {
            pending_.append(record->name).push_back('\0');
            continue;
        }
        if (platform::Status visited = visitor_.visitFile(chain_.current(), record->name.data()); !visited)
            return visited;
    }
    return platform::Done{};
}

platform::Status TreeTraversal::leave() {
    if (const auto left = chain_.leave(); !left)
        return left.failure();
    const Level level = levels_.back();
    levels_.pop_back();
    platform::Status status = visitor_.leaveFolder(chain_.current(), &pending_[level.name]);
    pending_.resize(level.name);
    return status;
}

} // namespace brovin::posix
