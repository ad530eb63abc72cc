#include "character/image_codec.h"
#include "character/offset_classes.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>

namespace brovin::character {
namespace {

/// Of a copy with the longest codes for offset and length.
constexpr unsigned kLongestToken = 47;

/// The bits of a stream, lowest first, in a window of 64 that holds at least the longest token after a
/// refill, as long as the stream goes on. Bits beyond the end read as zero.
class BitWindow {
public:
    explicit BitWindow(std::span<const std::uint8_t> stream) : next_(stream.data()), left_(stream.size()) {}

    void refill() {
        if (count_ >= kLongestToken)
            return;
        if (left_ >= sizeof(std::uint64_t)) {
            refillAtOnce();
            return;
        }
        for (; count_ <= 56 && left_ > 0; count_ += 8, ++next_, --left_)
            bits_ |= static_cast<std::uint64_t>(*next_) << count_;
    }

    [[nodiscard]] std::uint64_t bits() const { return bits_; }

    /// False: the stream ends before.
    [[nodiscard]] bool drop(unsigned count) {
        if (count > count_)
            return false;
        bits_ >>= count;
        count_ -= count;
        return true;
    }

private:
    /// Takes as many whole bytes as fit. The bits of a further byte that come along above `count_` are right,
    /// and the next refill puts them there once more.
    void refillAtOnce() {
        std::uint64_t word = 0;
        for (unsigned i = 0; i < sizeof word; ++i) // compilers make one load of this
            word |= static_cast<std::uint64_t>(next_[i]) << (8 * i);
        bits_ |= word << count_;
        const unsigned bytes = (63 - count_) / 8;
        next_ += bytes;
        left_ -= bytes;
        count_ += 8 * bytes;
    }

    const std::uint8_t* next_;
    std::size_t left_;
    std::uint64_t bits_ = 0;
    unsigned count_ = 0; ///< 0 to 64
};

struct Copy {
    std::uint32_t offset = 0; ///< 0: not a copy but the end of the stream
    std::uint32_t length = 0;
    unsigned bits = 0; ///< of the token
    bool badLength = false;
};

/// The token at the front of `bits`, which begins with the copy bit.
Copy copyIn(std::uint64_t bits) {
    const auto ones = static_cast<unsigned>(std::countr_one(bits));
    const OffsetClass& offsets = kOffsetClasses[std::min(ones - 1, 3U)];
    const std::uint64_t value = (bits >> offsets.prefixBits) & ((1U << offsets.valueBits) - 1U);
    Copy copy;
    copy.bits = offsets.prefixBits + offsets.valueBits;
    if (value == kEndOfStream)
        return copy;
    bits >>= copy.bits;
    const auto lengthOnes = static_cast<unsigned>(std::countr_one(bits));
    copy.badLength = lengthOnes > kMostLengthOnes;
    if (copy.badLength)
        return copy;
    const std::uint32_t above = (1U << lengthOnes) - 1U;
    copy.offset = offsets.firstOffset + static_cast<std::uint32_t>(value);
    copy.length = offsets.shortest + above + (static_cast<std::uint32_t>(bits >> (lengthOnes + 1U)) & above);
    copy.bits += 2 * lengthOnes + 1;
    return copy;
}

/// Copies from `offset` bytes before `to`, where the source may run into what is being written. `room` is how
/// much may be written at all, beyond `length` too.
void copyWithin(std::uint8_t* to, const Copy& copy, std::size_t room) {
    constexpr std::size_t kStep = 8;
    const std::uint8_t* from = to - copy.offset;
    if (copy.offset == 1) {
        std::memset(to, *from, copy.length);
        return;
    }
    if (copy.offset < kStep || room < copy.length + kStep) {
        for (std::uint32_t i = 0; i < copy.length; ++i)
            to[i] = from[i];
        return;
    }
    for (std::uint32_t i = 0; i < copy.length; i += kStep)
        std::memcpy(to + i, from + i, kStep);
}

Unpacked unpackStream(BitWindow window, std::span<std::uint8_t> plain) {
    std::size_t done = 0;
    // A stream that stops when everything is there has only lost its end code.
    const auto outOfBits = [&] { return done == plain.size() ? Unpacked::Done : Unpacked::EndsEarly; };
    for (;;) {
        window.refill();
        const std::uint64_t bits = window.bits();
        if ((bits & 1U) == 0) {
            if (!window.drop(kLiteralBits))
                return outOfBits();
            if (done == plain.size())
                return Unpacked::TooMuch;
            plain[done++] = static_cast<std::uint8_t>((bits >> 1U) & 0xFFU);
            continue;
        }
        const Copy copy = copyIn(bits);
        if (!window.drop(copy.bits))
            return outOfBits();
        if (copy.badLength)
            return Unpacked::BadLengthCode;
        if (copy.offset == 0)
            return outOfBits();
        if (copy.offset > done)
            return Unpacked::BadOffset;
        if (copy.length > plain.size() - done)
            return Unpacked::TooMuch;
        copyWithin(plain.data() + done, copy, plain.size() - done);
        done += copy.length;
    }
}

} // namespace

Unpacked unpack(std::span<const std::uint8_t> packed, std::span<std::uint8_t> plain) {
    if (packed.size() < kSmallestPacked || packed.front() != 0)
        return Unpacked::BadStart;
    return unpackStream(BitWindow(packed.subspan(1)), plain);
}

} // namespace brovin::character
