#include "posix/standard_random.h"

namespace brovin::posix {

double StandardRandom::next() {
    // As many bits as a double holds exactly. The library's own distribution may round up to 1.
    constexpr int kBits = 53;
    return static_cast<double>(engine_() >> (64 - kBits)) * 0x1.0p-53;
}

} // namespace brovin::posix
