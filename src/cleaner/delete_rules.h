#pragma once

#include "ui/controls.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace brovin::cleaner {

/// The names on the Nasty File List, for one look-up a name.
class NameSet {
public:
    explicit NameSet(const std::vector<ui::ListControl::Item>& items);

    [[nodiscard]] bool empty() const { return names_.empty(); }
    [[nodiscard]] bool contains(std::string_view name) const { return names_.contains(name); }

private:
    struct Hash {
        using is_transparent = void; // NOLINT(readability-identifier-naming): the library asks for this name
        std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>{}(name); }
    };
    std::unordered_set<std::string, Hash, std::equal_to<>> names_;
};

/// Why an entry goes: not at all, as an icon file, for its name on the list, for the "._" that it begins
/// with.
enum class Match : std::uint8_t { None, Icon, Listed, DotDash };

/// What goes, decided by the name alone.
struct DeleteRules {
    bool iconFiles = false; ///< names that begin with "icon" and end with "?"
    bool dotDash = false;   ///< names that begin with "._", as long as the list has an entry

    /// The name in lower case, as a listed folder gives it.
    [[nodiscard]] Match match(std::string_view name, const NameSet& names) const;
};

} // namespace brovin::cleaner
