#include "language/language_check.h"
#include "require.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// Looks for the faults of a language file, as its author does: several times the work of loading it.
// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto lines = std::count(bytes.begin(), bytes.end(), '\n') + 1;
    std::size_t last = 0;
    for (const auto& [line, text] : brovin::language::checkLanguage(bytes).others) {
        brovin::fuzz::require(!text.empty() && line >= last && line <= static_cast<std::size_t>(lines));
        last = line;
    }
    return 0;
}
