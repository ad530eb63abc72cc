#pragma once

#include "platform/result.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brovin::posix {

/// Notices that a folder's listing repeats itself, or has no end: a broken or hostile file server must not
/// keep a walk for ever. Told of each portion that the system hands over, it needs the memory of one name.
class ListingGuard {
public:
    /// Where a portion ends.
    struct Place {
        std::int64_t offset = 0; ///< the system's own mark
        std::string_view name;   ///< of the last entry
    };

    /// What the largest folders that disks can hold stay below: more than a hundred million entries.
    static constexpr std::uint64_t kMostBytes = std::uint64_t{4} << 30;

    explicit ListingGuard(std::uint64_t mostBytes = kMostBytes) : mostBytes_(mostBytes) {}

    /// Failure: enough is enough.
    platform::Status admit(std::size_t bytes, const Place& end);

private:
    std::uint64_t mostBytes_;
    std::uint64_t bytes_ = 0;
    std::uint64_t portions_ = 0;
    std::uint64_t nextMark_ = 1;
    std::int64_t markedOffset_ = 0;
    std::string markedName_;
};

} // namespace brovin::posix
