#include "character/image_codec.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

using namespace brovin::character;
using Bytes = std::vector<std::uint8_t>;

void checkRoundTrip(const Bytes& plain) {
    Bytes again(plain.size());
    if (unpack(pack(plain), again) != Unpacked::Done || again != plain)
        std::abort();
}

} // namespace

/// The first byte says what to do: 0 packs the rest and unpacks it again, anything else unpacks what follows
/// the two bytes that say how long the output is to be. Each run lies on the heap by itself, where a
/// sanitizer sees every step beside it.
// NOLINTNEXTLINE(readability-identifier-naming): the name that libFuzzer calls
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kFront = 3;
    if (size < kFront)
        return 0;
    const Bytes rest(data + kFront, data + size);
    if (data[0] == 0) {
        checkRoundTrip(rest);
        return 0;
    }
    Bytes plain(data[1] | (static_cast<std::size_t>(data[2]) << 8U));
    static_cast<void>(unpack(rest, plain));
    return 0;
}
