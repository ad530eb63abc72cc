#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace brovin::cleaner {

/// Sorts and keeps equal ones in their order, like the library's own, but asks every few milliseconds whether
/// to go on. False: it was not to, and the items stand in any order.
template <class Item, class Less, class GoesOn>
bool slicedSort(std::vector<Item>& items, Less less, GoesOn goesOn) {
    constexpr std::size_t kSlice = 8192;
    const std::size_t count = items.size();
    const auto at = [](std::vector<Item>& of, std::size_t index) {
        return of.begin() + static_cast<std::ptrdiff_t>(index);
    };
    for (std::size_t begin = 0; begin < count; begin += kSlice) {
        if (!goesOn())
            return false;
        std::stable_sort(at(items, begin), at(items, std::min(begin + kSlice, count)), less);
    }
    std::vector<Item> merged(count > kSlice ? count : 0);
    for (std::size_t width = kSlice; width < count; width *= 2) {
        std::size_t out = 0;
        for (std::size_t begin = 0; begin < count; begin += 2 * width) {
            const std::size_t middle = std::min(begin + width, count);
            const std::size_t end = std::min(begin + 2 * width, count);
            for (std::size_t left = begin, right = middle; out < end; ++out) {
                if (out % kSlice == 0 && !goesOn())
                    return false;
                const bool takesRight = left == middle || (right < end && less(items[right], items[left]));
                merged[out] = items[takesRight ? right++ : left++];
            }
        }
        items.swap(merged);
    }
    return true;
}

} // namespace brovin::cleaner
