#pragma once

#include "platform/result.h"
#include "posix/descriptor.h"
#include "posix/directory_reader.h"
#include "posix/folder_chain.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::posix {

/// What is done with the parts of a tree. Names are zero-terminated and mean an entry of the open folder
/// `parent`. A failure ends the traversal.
class TreeVisitor {
public:
    virtual ~TreeVisitor() = default;

    /// Opens a folder that is about to be visited.
    virtual platform::Result<Descriptor> open(int parent, const char* name) = 0;

    /// Whether the traversal goes on without a folder that could not be opened for this reason.
    [[nodiscard]] virtual bool passesOver(int errorNumber) const = 0;

    /// A file or a link of a folder that is open.
    virtual platform::Status visitFile(int parent, const char* name) = 0;

    /// A folder, after all that was in it.
    virtual platform::Status leaveFolder(int parent, const char* name) = 0;
};

/// Visits a folder and everything below it without following links: first the files of a folder, then its
/// folders one by one, then the folder itself. Depth costs memory for the names on the way, nothing else.
class TreeTraversal {
public:
    TreeTraversal(int parent, TreeVisitor& visitor) : chain_(parent), visitor_(visitor) {}

    platform::Status run(std::string_view name);

private:
    struct Level {
        std::size_t name;    ///< where the folder's own name stands in pending_
        std::size_t pending; ///< where the names of its folders begin
    };

    platform::Status visitNext();
    platform::Status visitContents();
    platform::Status visitPart();
    platform::Status leave();

    FolderChain chain_;
    TreeVisitor& visitor_;
    DirectoryReader reader_;
    std::string pending_; ///< names of folders to visit, each with a zero: of all levels, the lowest last
    std::vector<Level> levels_;
};

} // namespace brovin::posix
