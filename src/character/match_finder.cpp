#include "character/match_finder.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace brovin::character {
namespace {

constexpr unsigned kFewestHashBits = 8;
constexpr unsigned kMostHashBits = 16;
constexpr std::size_t kFarthest = kOffsetClasses.back().lastOffset;
/// With a match of this length in hand, looking for a better one is not worth the time.
constexpr std::uint32_t kLongEnough = 128;
constexpr int kMostCandidates = 32;

/// Small images are many; clearing large tables for each would take longer than packing it.
unsigned hashBitsFor(std::size_t bytes) {
    return std::clamp(static_cast<unsigned>(std::bit_width(bytes)), kFewestHashBits, kMostHashBits);
}

std::uint32_t hashOf(std::uint32_t bytes, unsigned bits) {
    return (bytes * 0x9E3779B1U) >> (32U - bits);
}

std::size_t classOf(std::size_t offset) {
    std::size_t index = 0;
    while (offset > kOffsetClasses[index].lastOffset)
        ++index;
    return index;
}

} // namespace

MatchFinder::MatchFinder(std::span<const std::uint8_t> plain)
    : plain_(plain), hashBits_(hashBitsFor(plain.size())), lastPair_(std::size_t{1} << hashBits_),
      lastTriple_(std::size_t{1} << hashBits_), beforeTriple_(plain.size()) {}

const Matches& MatchFinder::next() {
    if (started_) {
        remember();
        ++position_;
    }
    started_ = true;
    carryOver();
    search();
    return matches_;
}

/// A match of the position before, less its first byte, is one here.
void MatchFinder::carryOver() {
    for (std::size_t i = 0; i < matches_.size(); ++i) {
        Match& match = matches_[i];
        if (match.length == 0)
            continue;
        match.length = matchLength(match.offset, match.length - 1, kOffsetClasses[i]);
        if (match.length < kOffsetClasses[i].shortest)
            match = {};
    }
}

void MatchFinder::search() {
    const auto longEnough = [](const Match& match) { return match.length >= kLongEnough; };
    if (position_ + 2 > plain_.size() || std::any_of(matches_.begin(), matches_.end(), longEnough))
        return;
    if (const std::uint32_t pair = lastPair_[pairHash()]; pair > 0)
        consider(pair - 1);
    if (position_ + 3 > plain_.size())
        return;
    std::uint32_t candidate = lastTriple_[tripleHash()];
    for (int tries = 0; candidate > 0 && tries < kMostCandidates; ++tries) {
        if (position_ - (candidate - 1) > kFarthest)
            return;
        consider(candidate - 1);
        candidate = beforeTriple_[candidate - 1];
    }
}

void MatchFinder::remember() {
    const auto place = static_cast<std::uint32_t>(position_ + 1);
    if (position_ + 2 <= plain_.size())
        lastPair_[pairHash()] = place;
    if (position_ + 3 <= plain_.size()) {
        std::uint32_t& last = lastTriple_[tripleHash()];
        beforeTriple_[position_] = last;
        last = place;
    }
}

void MatchFinder::consider(std::size_t from) {
    const std::size_t offset = position_ - from;
    if (offset > kFarthest)
        return;
    const std::size_t index = classOf(offset);
    Match& best = matches_[index];
    const std::size_t decisive = position_ + best.length;
    const std::uint8_t* const bytes = plain_.data();
    if (decisive < plain_.size() && bytes[decisive] != bytes[decisive - offset])
        return;
    const auto near = static_cast<std::uint32_t>(offset);
    const std::uint32_t length = matchLength(near, 0, kOffsetClasses[index]);
    if (length >= kOffsetClasses[index].shortest && length > best.length)
        best = {near, length};
}

/// How many bytes agree with those `offset` before, given that `known` do, as far as a copy can reach.
std::uint32_t MatchFinder::matchLength(std::uint32_t offset, std::uint32_t known,
                                       const OffsetClass& offsets) const {
    const std::size_t longest = longestCopy(offsets, kMostLengthOnes);
    const std::size_t end = std::min(plain_.size() - position_, longest);
    const std::uint8_t* const here = plain_.data() + position_;
    std::size_t length = known;
    // Eight at once: most of the time of packing is spent here.
    for (std::uint64_t a = 0, b = 0; length + sizeof a <= end; length += sizeof a) {
        std::memcpy(&a, here + length, sizeof a);
        std::memcpy(&b, here + length - offset, sizeof b);
        if (a != b)
            break;
    }
    while (length < end && here[length] == (here + length)[-std::ptrdiff_t{offset}])
        ++length;
    return static_cast<std::uint32_t>(length);
}

std::uint32_t MatchFinder::pairHash() const {
    const std::uint32_t pair = plain_[position_] | (static_cast<std::uint32_t>(plain_[position_ + 1]) << 8U);
    return hashOf(pair, hashBits_);
}

std::uint32_t MatchFinder::tripleHash() const {
    const std::uint32_t triple = plain_[position_] |
                                 (static_cast<std::uint32_t>(plain_[position_ + 1]) << 8U) |
                                 (static_cast<std::uint32_t>(plain_[position_ + 2]) << 16U);
    return hashOf(triple, hashBits_);
}

} // namespace brovin::character
