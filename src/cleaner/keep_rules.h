#pragma once

#include "cleaner/delete_rules.h"
#include "platform/file_system.h"
#include "platform/letters.h"
#include "ui/controls.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::cleaner {

/// What is never deleted: entries of a name, and what stands at a full path, each with all that is in it. All
/// is compared in lower case. An entry of the list that is neither counts for nothing.
class KeepRules {
public:
    KeepRules() : names_({}), ends_({}) {}
    /// Each path counts by itself and, where a link leads to it, by the place where it really is.
    KeepRules(const std::vector<ui::ListControl::Item>& items, platform::FileSystem& files,
              const platform::Letters& letters);

    [[nodiscard]] bool empty() const { return names_.empty() && paths_.empty(); }

    /// The sweep begins with a watched folder, under the path that the user sees and where it really is, both
    /// in lower case. True: the folder is kept as a whole.
    bool begin(std::string_view shownPath, std::string_view realPath);

    /// Whether an entry is kept. `below`: the folder in work below the watched one, in lower case, with a
    /// separator at its end; empty: the watched one itself.
    [[nodiscard]] bool keeps(std::string_view below, std::string_view name) const;

    /// Whether something is kept that lies somewhere below this folder of the current one.
    [[nodiscard]] bool keepsWithin(platform::FolderEntries& entries, std::string_view below,
                                   const platform::Entry& folder) const;

private:
    void addPath(std::string path);
    [[nodiscard]] bool isBelow(std::string_view folder) const;

    NameSet names_;
    NameSet ends_; ///< the last names of the paths: most entries have none of them
    std::set<std::string, std::less<>> paths_; ///< without a separator at their ends; of the root: empty
    std::vector<std::string> tops_; ///< the watched folder's two paths, with a separator at the end
};

} // namespace brovin::cleaner
