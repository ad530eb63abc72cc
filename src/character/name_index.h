#pragma once

#include "character/character_data.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::character {

/// Finds a place by its name without regard to case.
class NameIndex {
public:
    NameIndex() = default;
    /// The names of a character's animations, each with its index.
    explicit NameIndex(const std::vector<Animation>& animations);

    /// False, and nothing added: the name is empty or already there.
    bool add(std::string_view name, std::uint32_t place);

    /// nullopt: no such name.
    [[nodiscard]] std::optional<std::uint32_t> find(std::string_view name) const;

private:
    std::map<std::string, std::uint32_t> places_; ///< by folded name
};

} // namespace brovin::character
