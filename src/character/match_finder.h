#pragma once

#include "character/offset_classes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace brovin::character {

/// What a copy at some position could take over from before. Length 0: nothing.
struct Match {
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
};

/// For each offset class, the longest match that was found.
using Matches = std::array<Match, kOffsetClasses.size()>;

/// Looks for repetitions in a run of bytes, position by position. Bounded in its effort, so a match may be
/// missed, but always with the same result for the same bytes.
class MatchFinder {
public:
    /// `plain` must outlive the finder.
    explicit MatchFinder(std::span<const std::uint8_t> plain);

    /// The matches at the next position, beginning with the first byte; to be called once a byte.
    [[nodiscard]] const Matches& next();

private:
    void carryOver();
    void search();
    void remember();
    void consider(std::size_t from);
    [[nodiscard]] std::uint32_t matchLength(std::uint32_t offset, std::uint32_t known,
                                            const OffsetClass& offsets) const;
    [[nodiscard]] std::uint32_t pairHash() const;
    [[nodiscard]] std::uint32_t tripleHash() const;

    std::span<const std::uint8_t> plain_;
    std::size_t position_ = 0;
    bool started_ = false;
    Matches matches_{};
    unsigned hashBits_;
    std::vector<std::uint32_t>
        lastPair_; ///< by a hash of two bytes: where they stood last, plus one; 0: nowhere
    std::vector<std::uint32_t> lastTriple_;   ///< the same for three bytes
    std::vector<std::uint32_t> beforeTriple_; ///< by position: where the same hash stood before, plus one
};

} // namespace brovin::character
