#pragma once

#include "platform/file_system.h"

#include <string>
#include <string_view>

namespace brovin::cleaner {

/// What of all that matches is to go, where that is not everything. It follows the sweep down and up, so that
/// it knows where each entry is without comparing paths.
class Choice {
public:
    virtual ~Choice() = default;

    /// The sweep begins with a watched folder. False: nothing in it was chosen, and it is not opened.
    virtual bool begin(const std::string& truePath) = 0;

    /// Whether anything chosen lies below this folder of the current one; if not, it is not visited.
    [[nodiscard]] virtual bool leadsInto(std::string_view trueName) const = 0;
    virtual void enter(std::string_view trueName) = 0;
    virtual void leave() = 0;

    /// Whether this entry of the current folder goes.
    virtual bool takes(platform::FolderEntries& folder, const platform::Entry& entry) = 0;
    /// How the deletion of the entry that was taken last came out.
    virtual void tried(bool deleted) = 0;
};

} // namespace brovin::cleaner
