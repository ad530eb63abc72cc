#pragma once

#include <cstddef>

namespace brovin::character {

/// Counts the bytes that the program has on the heap, from its construction on. One at a time, in one thread.
class AllocationMeter {
public:
    AllocationMeter();

    /// Bytes taken since, less those given back.
    [[nodiscard]] std::size_t current() const;
    /// The most that `current` ever was.
    [[nodiscard]] std::size_t peak() const;

private:
    std::size_t before_;
};

} // namespace brovin::character
