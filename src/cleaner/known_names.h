#pragma once

#include "language/texts.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace brovin::cleaner {

/// What becomes of a user when a thing of this name is deleted.
enum class Origin : std::uint8_t {
    Safe,    ///< whoever made it makes it again; offered and ticked
    Caution, ///< something of somebody's choice or work may go with it; offered, not ticked
    Trash,   ///< what was thrown away and may be wanted back; never offered
};

/// A name that systems are known to leave on shared disks.
struct KnownName {
    std::string_view name; ///< in lower case, as it stands on the Nasty File List
    Origin origin;
    language::Text told; ///< one line: what made it, whether it is safe, what goes with it
};

/// All of them, those that belong together side by side.
[[nodiscard]] std::span<const KnownName> knownNames();

/// What is known of an entry of this name (lower case), "._" and icon files included; nullopt: nothing.
[[nodiscard]] std::optional<KnownName> knownName(std::string_view name);

} // namespace brovin::cleaner
