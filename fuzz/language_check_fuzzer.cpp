#include "language/language_check.h"
#include "require.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Looks for the faults of a language file, as its author does: twenty times the work of loading it.
// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const auto& fault : brovin::language::checkLanguage(bytes))
        brovin::fuzz::require(!fault.text.empty());
    return 0;
}
