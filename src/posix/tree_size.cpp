#include "posix/tree_size.h"

#include "posix/open_folder.h"
#include "posix/system_call.h"
#include "posix/tree_traversal.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace brovin::posix {
namespace {

class SizeVisitor final : public TreeVisitor {
public:
    [[nodiscard]] std::uint64_t total() const { return total_; }

    platform::Result<Descriptor> open(int parent, const char* name) override {
        return openFolderIn(parent, name);
    }

    [[nodiscard]] bool passesOver(int errorNumber) const override { return errorNumber == ENOENT; }

    platform::Status visitFile(int parent, const char* name) override {
        struct stat facts {};
        if (::fstatat(parent, name, &facts, AT_SYMLINK_NOFOLLOW) == 0)
            total_ += S_ISDIR(facts.st_mode) ? 0 : static_cast<std::uint64_t>(facts.st_size);
        else if (errno != ENOENT)
            return lastFailure();
        return platform::Done{};
    }

    platform::Status leaveFolder(int, const char*) override { return platform::Done{}; }

private:
    std::uint64_t total_ = 0;
};

} // namespace

platform::Result<std::uint64_t> treeSize(int parent, const char* name) {
    SizeVisitor size;
    if (const platform::Status status = TreeTraversal(parent, size).run(name); !status)
        return status.failure();
    return size.total();
}

} // namespace brovin::posix
