#pragma once

#include "cleaner/apple_double.h"
#include "language/message_table.h"
#include "platform/file_system.h"
#include "platform/regional.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brovin::cleaner {

/// Whether a name (in lower case) is that of a file that may carry what belongs to the one beside it.
[[nodiscard]] inline bool mayCarry(std::string_view name) {
    return name.starts_with("._");
}

/// What goes with a "._" file.
struct Carried {
    /// Something of the user's is lost with it, or nobody can tell: what cannot be read, or is something else
    /// under such a name, is taken for somebody's own.
    bool something = true;
    std::optional<AppleDouble> told; ///< nullopt: not readable, or no AppleDouble
};

/// Looks into a file of the current folder, of `bytes` bytes in all: into kAppleDoubleHead of them at most.
[[nodiscard]] Carried lookInto(platform::FolderEntries& folder, std::string_view trueName,
                               std::uint64_t bytes);

/// One line for the user: what goes with it, with names and sizes.
[[nodiscard]] std::string carriedText(const Carried& carried, const language::MessageTable& messages,
                                      const platform::Regional& regional);

} // namespace brovin::cleaner
