#pragma once

#include "ui/controls.h"

#include <algorithm>
#include <bitset>
#include <cstddef>
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
    [[nodiscard]] bool contains(std::string_view name) const {
        return lengths_.test(lengthClass(name)) && beginnings_.test(beginning(name)) && names_.contains(name);
    }

private:
    struct Hash {
        using is_transparent = void; // NOLINT(readability-identifier-naming): the library asks for this name
        std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>{}(name); }
    };
    static std::size_t lengthClass(std::string_view name) { return std::min(name.size(), kLengths - 1); }
    static std::size_t beginning(std::string_view name) {
        return name.empty() ? 0 : static_cast<unsigned char>(name.front());
    }

    std::unordered_set<std::string, Hash, std::equal_to<>> names_;
    // Nearly all of millions of names are told from those on the list by these alone.
    static constexpr std::size_t kLengths = 64;
    std::bitset<kLengths> lengths_;
    std::bitset<256> beginnings_;
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
