#pragma once

#include "platform/deletion_history.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brovin::cleaner {

/// What a run deletes, added up by watched folder and by what it was deleted for. It grows with the lists and
/// not with what is deleted.
class RunShares {
public:
    void clear();
    /// What follows is below this watched folder.
    void enter(const std::string& folder);
    /// `name`: of the Nasty File List, or of a rule.
    void add(std::string_view name, std::int32_t kilobytes);
    /// All of it.
    [[nodiscard]] std::vector<platform::DeletedShare> take();

private:
    struct Hash {
        using is_transparent = void; // NOLINT(readability-identifier-naming): the library asks for this name
        std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>{}(name); }
    };
    struct Sum {
        std::int64_t items = 0;
        std::int64_t kilobytes = 0;
    };

    std::string folder_;
    std::unordered_map<std::string, Sum, Hash, std::equal_to<>> sums_; ///< of this folder
    std::vector<platform::DeletedShare> shares_;                       ///< of those before it
};

} // namespace brovin::cleaner
