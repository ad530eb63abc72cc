#include "character/image_codec.h"
#include "character/match_finder.h"
#include "character/offset_classes.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace brovin::character {
namespace {

/// A literal or a copy on the cheapest way to a position.
struct Step {
    std::uint32_t bits = std::numeric_limits<std::uint32_t>::max(); ///< of all steps up to here
    std::uint32_t offset = 0;                                       ///< 0: a literal
    std::uint32_t length = 1;                                       ///< bytes since the step before
};

/// Finds the cheapest sequence of the literals and copies that the match finder has to offer: by position,
/// the last step of the cheapest way to it. Of the lengths that cost the same only the longest is tried,
/// since what is left can only become cheaper when there is less of it.
class CheapestWay {
public:
    explicit CheapestWay(std::span<const std::uint8_t> plain) : steps_(plain.size() + 1) {
        steps_.front().bits = 0;
        MatchFinder finder(plain);
        for (std::size_t at = 0; at < plain.size(); ++at) {
            offer(at, kLiteralBits, {});
            const Matches& matches = finder.next();
            for (std::size_t i = 0; i < matches.size(); ++i)
                offerCopies(at, matches[i], kOffsetClasses[i]);
        }
    }

    /// The steps in the order of the stream.
    [[nodiscard]] std::vector<Step> steps() const {
        std::vector<Step> way;
        for (std::size_t at = steps_.size() - 1; at > 0; at -= steps_[at].length)
            way.push_back(steps_[at]);
        std::reverse(way.begin(), way.end());
        return way;
    }

private:
    void offer(std::size_t from, unsigned bits, const Match& match) {
        const std::uint32_t length = std::max(match.length, 1U);
        Step& there = steps_[from + length];
        const std::uint32_t total = steps_[from].bits + bits;
        if (total < there.bits)
            there = {total, match.offset, length};
    }

    void offerCopies(std::size_t from, const Match& match, const OffsetClass& offsets) {
        for (unsigned ones = 0; ones <= kMostLengthOnes && match.length >= offsets.shortest; ++ones) {
            const std::uint32_t length = std::min(match.length, longestCopy(offsets, ones));
            offer(from, offsets.prefixBits + offsets.valueBits + 2 * ones + 1, {match.offset, length});
            if (length == match.length)
                return;
        }
    }

    std::vector<Step> steps_;
};

class BitSink {
public:
    explicit BitSink(std::vector<std::uint8_t>& bytes) : bytes_(bytes) {}

    /// At most 24 bits, the lowest first.
    void put(std::uint32_t bits, unsigned count) {
        held_ |= static_cast<std::uint64_t>(bits) << count_;
        for (count_ += count; count_ >= 8; count_ -= 8, held_ >>= 8U)
            bytes_.push_back(static_cast<std::uint8_t>(held_ & 0xFFU));
    }

    void fillByteWithOnes() {
        if (count_ > 0)
            put(0xFFU >> count_, 8 - count_);
    }

private:
    std::vector<std::uint8_t>& bytes_;
    std::uint64_t held_ = 0;
    unsigned count_ = 0;
};

void putCopy(BitSink& sink, const Step& copy) {
    const auto* offsets = kOffsetClasses.begin();
    while (copy.offset > offsets->lastOffset)
        ++offsets;
    sink.put(offsets->prefix, offsets->prefixBits);
    sink.put(copy.offset - offsets->firstOffset, offsets->valueBits);
    unsigned ones = 0;
    while (copy.length > longestCopy(*offsets, ones))
        ++ones;
    const std::uint32_t above = (1U << ones) - 1U;
    sink.put(above, ones + 1);
    sink.put(copy.length - offsets->shortest - above, ones);
}

} // namespace

std::vector<std::uint8_t> pack(std::span<const std::uint8_t> plain) {
    std::vector<std::uint8_t> packed{0};
    BitSink sink(packed);
    std::size_t at = 0;
    for (const Step& step : CheapestWay(plain).steps()) {
        if (step.offset == 0)
            sink.put(static_cast<std::uint32_t>(plain[at]) << 1U, kLiteralBits);
        else
            putCopy(sink, step);
        at += step.length;
    }
    sink.fillByteWithOnes();
    packed.insert(packed.end(), kPackedTailBytes, 0xFF);
    return packed;
}

} // namespace brovin::character
