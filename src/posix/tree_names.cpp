#include "posix/tree_names.h"

#include "posix/entry_name.h"
#include "posix/open_folder.h"
#include "posix/system_call.h"
#include "posix/tree_traversal.h"

#include <string>

namespace brovin::posix {
namespace {

/// Ends the traversal, as a failure does, when it has seen enough.
class NameVisitor final : public TreeVisitor {
public:
    explicit NameVisitor(const std::function<bool(std::string_view)>& wanted) : wanted_(wanted) {}

    [[nodiscard]] bool found() const { return found_; }

    platform::Result<Descriptor> open(int parent, const char* name) override {
        // The folder itself comes first; whoever asks knows its name.
        if (platform::Status seen = top_ ? platform::Done{} : see(name); !seen)
            return seen.failure();
        top_ = false;
        return openFolderIn(parent, name);
    }

    [[nodiscard]] bool passesOver(int errorNumber) const override { return errorNumber == ENOENT; }
    platform::Status visitFile(int, const char* name) override { return see(name); }
    platform::Status leaveFolder(int, const char*) override { return platform::Done{}; }

private:
    platform::Status see(const char* name) {
        const std::string_view trueName(name);
        memory_.clear();
        memory_.reserve(roomForShownNames(trueName.size()));
        found_ = wanted_(shownName(trueName, memory_));
        return found_ ? platform::Status(systemFailure(ECANCELED)) : platform::Done{};
    }

    const std::function<bool(std::string_view)>& wanted_;
    std::string memory_;
    bool top_ = true;
    bool found_ = false;
};

} // namespace

platform::Result<bool> treeHolds(int parent, const char* name,
                                 const std::function<bool(std::string_view)>& wanted) {
    NameVisitor names(wanted);
    const platform::Status status = TreeTraversal(parent, names).run(name);
    if (!status && !names.found())
        return status.failure();
    return names.found();
}

} // namespace brovin::posix
