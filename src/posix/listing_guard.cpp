#include "posix/listing_guard.h"

#include <cerrno>

namespace brovin::posix {

platform::Status ListingGuard::admit(std::size_t bytes, const Place& end) {
    bytes_ += bytes;
    if (bytes_ > mostBytes_)
        return platform::Failure{EOVERFLOW, "The list of its entries has no end"};
    if (portions_ > 0 && end.offset == markedOffset_ && end.name == markedName_)
        return platform::Failure{ELOOP, "The list of its entries repeats itself"};
    // The mark moves on at each doubling (Brent's way to find a cycle): at last it stands within the cycle,
    // and as far from being moved as the cycle is long.
    if (++portions_ == nextMark_) {
        nextMark_ *= 2;
        markedOffset_ = end.offset;
        markedName_ = end.name;
    }
    return platform::Done{};
}

} // namespace brovin::posix
