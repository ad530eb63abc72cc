#include "posix/tree_removal.h"

#include "posix/folder_facts.h"
#include "posix/open_folder.h"
#include "posix/system_call.h"
#include "posix/tree_traversal.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <string>

namespace brovin::posix {
namespace {

constexpr mode_t kPermissionBits = 07777;

platform::Failure readOnly() {
    return {EACCES, "Is read-only"};
}

/// The facts of a folder, unless it lies on another disk than `device` or a disk was hung in there.
platform::Result<FolderFacts> factsUnlessMounted(int folder, dev_t device) {
    platform::Result<FolderFacts> facts = factsOf(folder);
    if (facts && (facts->isMountPoint || facts->device != device))
        return systemFailure(EBUSY);
    return facts;
}

platform::Status mayRemoveFile(int parent, const char* name) {
    struct stat facts {};
    if (::fstatat(parent, name, &facts, AT_SYMLINK_NOFOLLOW) != 0)
        return lastFailure();
    if (S_ISDIR(facts.st_mode))
        return systemFailure(EISDIR);
    if (!S_ISLNK(facts.st_mode) && (facts.st_mode & S_IWUSR) == 0)
        return readOnly();
    return platform::Done{};
}

/// Looks at every folder, and without force at every file, and touches nothing.
class Inspection final : public TreeVisitor {
public:
    Inspection(dev_t device, platform::Force force) : device_(device), force_(force) {}

    platform::Result<Descriptor> open(int parent, const char* name) override {
        platform::Result<Descriptor> folder = openFolderIn(parent, name);
        if (!folder)
            return folder;
        const auto facts = factsUnlessMounted(folder->number(), device_);
        if (!facts)
            return facts.failure();
        if (force_ == platform::Force::No && (facts->mode & S_IWUSR) == 0)
            return readOnly();
        return folder;
    }

    /// The deletion meets whatever else is in the way itself and knows better what to do about it.
    [[nodiscard]] bool passesOver(int errorNumber) const override {
        return errorNumber != EBUSY && (force_ == platform::Force::Yes || errorNumber != EACCES);
    }

    platform::Status visitFile(int parent, const char* name) override {
        return force_ == platform::Force::Yes ? platform::Done{} : mayRemoveFile(parent, name);
    }
    platform::Status leaveFolder(int, const char*) override { return platform::Done{}; }

private:
    dev_t device_;
    platform::Force force_;
};

class RemovalVisitor final : public TreeVisitor {
public:
    RemovalVisitor(dev_t device, platform::Force force) : device_(device), force_(force) {}

    platform::Result<Descriptor> open(int parent, const char* name) override {
        platform::Result<Descriptor> folder = openFolderIn(parent, name);
        if (!folder && folder.failure().number == EACCES && force_ == platform::Force::Yes)
            folder = openLocked(parent, name);
        if (!folder)
            return folder;
        if (const platform::Status ready = prepare(folder->number()); !ready)
            return ready.failure();
        return folder;
    }

    [[nodiscard]] bool passesOver(int errorNumber) const override { return errorNumber == ENOENT; }

    platform::Status visitFile(int parent, const char* name) override {
        return unlessGone(removeFile(parent, name, force_));
    }

    platform::Status leaveFolder(int parent, const char* name) override {
        if (::unlinkat(parent, name, AT_REMOVEDIR) != 0)
            return unlessGone(lastFailure());
        return platform::Done{};
    }

private:
    static platform::Status unlessGone(const platform::Status& status) {
        return !status && status.failure().number == ENOENT ? platform::Done{} : status;
    }

    platform::Result<Descriptor> openLocked(int parent, const char* name) const;
    platform::Status prepare(int folder) const;

    dev_t device_;
    platform::Force force_;
};

/// Opens a folder that denies its owner to look into it, after granting that. The grant goes by a descriptor,
/// so that it cannot reach what a link put in the folder's place points to.
platform::Result<Descriptor> RemovalVisitor::openLocked(int parent, const char* name) const {
    const Descriptor place(uninterrupted(
        [parent, name] { return ::openat(parent, name, O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC); }));
    if (!place)
        return lastFailure();
    platform::Result<FolderFacts> facts = factsUnlessMounted(place.number(), device_);
    if (!facts)
        return facts.failure();
    const std::string handle = "/proc/self/fd/" + std::to_string(place.number());
    if (::chmod(handle.c_str(), (facts->mode & kPermissionBits) | S_IRWXU) != 0)
        return systemFailure(EACCES);
    return openFolderIn(place.number(), ".");
}

/// Sees to it that an open folder may be emptied.
platform::Status RemovalVisitor::prepare(int folder) const {
    platform::Result<FolderFacts> facts = factsUnlessMounted(folder, device_);
    if (!facts)
        return facts.failure();
    if (force_ == platform::Force::No)
        return (facts->mode & S_IWUSR) == 0 ? platform::Status(readOnly()) : platform::Done{};
    // Who may not grant it may still be allowed to delete, as a member of the group: the deletion will tell.
    if ((facts->mode & S_IRWXU) != S_IRWXU)
        static_cast<void>(::fchmod(folder, (facts->mode & kPermissionBits) | S_IRWXU));
    return platform::Done{};
}

} // namespace

platform::Status removeFile(int parent, const char* name, platform::Force force) {
    if (force == platform::Force::No) {
        if (platform::Status may = mayRemoveFile(parent, name); !may)
            return may;
    }
    if (::unlinkat(parent, name, 0) != 0)
        return lastFailure();
    return platform::Done{};
}

platform::Status removeTree(int parent, const char* name, platform::Force force) {
    platform::Result<FolderFacts> facts = factsOf(parent);
    if (!facts)
        return facts.failure();
    Inspection search(facts->device, platform::Force::Yes);
    platform::Status searched = TreeTraversal(parent, search).run(name);
    if (!searched && searched.failure().number == EBUSY)
        return searched;
    RemovalVisitor removal(facts->device, force);
    return TreeTraversal(parent, removal).run(name);
}

platform::Status mayRemove(int parent, const char* name, platform::EntryKind kind, platform::Force force) {
    if (kind == platform::EntryKind::File)
        return force == platform::Force::Yes ? platform::Done{} : mayRemoveFile(parent, name);
    platform::Result<FolderFacts> facts = factsOf(parent);
    if (!facts)
        return facts.failure();
    Inspection search(facts->device, force);
    platform::Status searched = TreeTraversal(parent, search).run(name);
    const bool stays = !searched && !search.passesOver(searched.failure().number);
    return stays ? searched : platform::Done{};
}

} // namespace brovin::posix
