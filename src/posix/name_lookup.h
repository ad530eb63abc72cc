#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace brovin::posix {

/// The true spelling of a full path that is known in lower case only: for each name in it the entry of
/// exactly that name, else the only one that is the same in lower case. Doubled slashes and one at the end
/// are dropped. nullopt: for some name there is no entry, or several.
[[nodiscard]] std::optional<std::string> findPathWithoutCase(std::string_view loweredPath);

} // namespace brovin::posix
