#include "cleaner/apple_double.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

/// The first byte is how much longer the file is than what is read of it, in 4 KiB. The rest lies on the heap
/// by itself, where a sanitizer sees every step beside it.
// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brovin::cleaner;
    if (size == 0)
        return 0;
    const std::vector<std::uint8_t> head(data + 1, data + size);
    const auto found = readAppleDouble(head, head.size() + std::uint64_t{data[0]} * kAppleDoubleHead);
    // An attribute takes at least 12 bytes of the head; more of them would have been made up.
    constexpr std::size_t kLeastAttribute = 12;
    if (found && found->attributes.size() * kLeastAttribute > kAppleDoubleHead)
        std::abort();
    return 0;
}
