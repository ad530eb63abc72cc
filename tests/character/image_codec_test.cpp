#include "character/image_codec.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string_view>

namespace brovin::character {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// Packed runs written down bit by bit, in the order of the stream, as one would on paper.
class BitText {
public:
    /// '0' and '1'; anything else is for the eye.
    BitText& bits(std::string_view text) {
        for (const char c : text)
            if (c == '0' || c == '1')
                bit(c == '1');
        return *this;
    }

    /// A number, its lowest bit first.
    BitText& number(std::uint32_t value, unsigned count) {
        for (unsigned i = 0; i < count; ++i)
            bit(((value >> i) & 1U) != 0);
        return *this;
    }

    BitText& literal(std::uint8_t byte) { return bits("0").number(byte, 8); }

    /// The run so far: the zero byte before it, filled up with ones, and the six bytes behind it.
    [[nodiscard]] std::vector<std::uint8_t> packed() const {
        std::vector<std::uint8_t> bytes = bytes_;
        if (count_ % 8 != 0)
            bytes.back() = static_cast<std::uint8_t>(bytes.back() | (0xFFU << (count_ % 8)));
        bytes.insert(bytes.end(), 6, 0xFF);
        return bytes;
    }

private:
    void bit(bool one) {
        if (count_ % 8 == 0)
            bytes_.push_back(0);
        if (one)
            bytes_.back() = static_cast<std::uint8_t>(bytes_.back() | (1U << (count_ % 8)));
        ++count_;
    }

    std::vector<std::uint8_t> bytes_{0};
    std::size_t count_ = 0;
};

Bytes letters(std::string_view text) {
    return {text.begin(), text.end()};
}

Bytes noise(std::size_t count, unsigned values) {
    std::mt19937 random(7);
    Bytes bytes(count);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(random() % values);
    return bytes;
}

Unpacked outcome(const Bytes& packed, std::size_t size) {
    Bytes plain(size);
    return unpack(packed, plain);
}

/// What `packed` stands for; the output is `size` bytes on the heap, where a sanitizer sees every step beside
/// it.
Bytes unpacked(const Bytes& packed, std::size_t size) {
    Bytes plain(size);
    EXPECT_EQ(Unpacked::Done, unpack(packed, plain));
    return plain;
}

const Bytes kEmptyRegion{0x20, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0xA8, 0, 0, 0,
                         0,    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,    0, 0, 0};

const struct {
    Bytes plain;
    Bytes packed;
    bool ours; ///< whether these are the bytes that our own packing gives
} kKnown[] = {
    {{}, {0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}, true},
    {letters("abcabcabcabc"),
     {0, 0xC2, 0x88, 0x19, 0x4B, 0x38, 0xFC, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF},
     true},
    {letters("aaaaaaaaaa"), {0, 0xC2, 0x02, 0x0E, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}, true},
    {Bytes(32, 0x0A), {0, 0x14, 0x02, 0x9E, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}, true},
    {kEmptyRegion,
     {0, 0x40, 0, 0x04, 0x10, 0xD0, 0x90, 0x80, 0x42, 0xED, 0x98, 1, 0xB7, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
      0xFF},
     false},
};

TEST(ImageCodec, agreesWithRunsWorkedOutByHand) {
    for (const auto& [plain, packed, ours] : kKnown) {
        EXPECT_EQ(plain, unpacked(packed, plain.size()));
        EXPECT_EQ(ours, packed == pack(plain));
        EXPECT_LE(pack(plain).size(), packed.size()) << "at least as tight";
    }
}

/// The lowest and the highest offset of each class, with the shortest and the longest copy.
TEST(Unpack, reachesBothEndsOfEveryClass) {
    const struct {
        std::string_view prefix;
        unsigned valueBits;
        std::uint32_t value;
        std::size_t offset;
        std::size_t shortest;
    } kCases[] = {
        {"1 0", 6, 0, 1, 2},       {"1 0", 6, 63, 64, 2},
        {"1 10", 9, 0, 65, 2},     {"1 10", 9, 511, 576, 2},
        {"1 110", 12, 0, 577, 2},  {"1 110", 12, 4095, 4672, 2},
        {"1 111", 20, 0, 4673, 3}, {"1 111", 20, 0xFFFFE, 1053247, 3},
    };
    const Bytes start = noise(4700, 256);
    for (const auto& [prefix, valueBits, value, offset, shortest] : kCases) {
        BitText text;
        Bytes plain;
        for (std::size_t i = 0; i < std::min(offset, start.size()); ++i) {
            text.literal(start[i]);
            plain.push_back(start[i]);
        }
        for (; plain.size() + 4096 <= offset; plain.insert(plain.end(), 4096, plain.back()))
            text.bits("1 0 000000  111111111110 11111111111");
        for (; plain.size() < offset; plain.push_back(0))
            text.literal(0);
        const std::size_t longest = shortest + 4094;
        text.bits(prefix).number(value, valueBits).bits("0");
        text.bits(prefix).number(value, valueBits).bits("111111111110 11111111111");
        for (std::size_t i = 0; i < shortest + longest; ++i)
            plain.push_back(plain[plain.size() - offset]);
        EXPECT_TRUE(plain == unpacked(text.packed(), plain.size())) << "offset " << offset;
    }
}

TEST(Unpack, refusesWhatIsNotAPackedRun) {
    const BitText a = BitText().literal('a');
    const Bytes full = BitText().literal('a').literal('b').packed();
    const struct {
        Bytes packed;
        std::size_t size;
        Unpacked expected;
        std::string_view why;
    } kCases[] = {
        {{}, 0, Unpacked::BadStart, "nothing"},
        {{0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}, 0, Unpacked::BadStart, "shorter than the end alone"},
        {{1, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}, 0, Unpacked::BadStart, "the first byte is not zero"},
        {full, 3, Unpacked::EndsEarly, "the end code comes before the output is full"},
        {full, 2, Unpacked::Done, "exactly"},
        {full, 1, Unpacked::TooMuch, "a literal too many"},
        {{0, 0, 0, 0, 0, 0, 0}, 5, Unpacked::Done, "five literals of nine bits, three bits of a sixth"},
        {{0, 0, 0, 0, 0, 0, 0}, 6, Unpacked::EndsEarly, "the bits end first"},
        {Bytes(11), 9, Unpacked::EndsEarly, "of the ninth literal one bit is missing"},
        {Bytes(10), 8, Unpacked::Done, "of the eighth none is"},
        {BitText(a).bits("1 0 000000 110 11").packed(), 8, Unpacked::TooMuch,
         "a copy that would pass the end"},
        {BitText(a).bits("1 0 100000 0").packed(), 3, Unpacked::BadOffset, "one before the beginning"},
        {BitText().bits("1 0 000000 0").packed(), 2, Unpacked::BadOffset, "a copy of nothing"},
        {BitText(a).bits("1 111").number(0xFFFFE, 20).bits("0").packed(), 4, Unpacked::BadOffset,
         "the farthest"},
        {BitText(a).bits("1 0 000000 111111111111 0").packed(), 5000, Unpacked::BadLengthCode, "twelve ones"},
        {BitText(a).bits("1 0 000000 111111111110 00000000000").packed(), 2050, Unpacked::Done,
         "eleven ones"},
    };
    for (const auto& [packed, size, expected, why] : kCases)
        EXPECT_EQ(expected, outcome(packed, size)) << why;
}

/// Bytes such as images have: runs, repetitions and noise.
Bytes pictureLike(std::uint32_t seed, std::size_t size) {
    std::mt19937 random(seed);
    const auto below = [&random](std::size_t bound) { return random() % bound; };
    Bytes bytes;
    while (bytes.size() < size) {
        const std::size_t length = 1 + below(below(10) == 0 ? 5000 : 40);
        const std::size_t back = 1 + below(below(2) == 0 ? 64 : 6000);
        const auto shade = static_cast<std::uint8_t>(below(256));
        const auto kind = below(3);
        for (std::size_t i = 0; i < length; ++i) {
            const bool repeats = kind == 0 && back <= bytes.size();
            const auto other = kind == 1 && length < 100 ? static_cast<std::uint8_t>(below(256)) : shade;
            bytes.push_back(repeats ? bytes[bytes.size() - back] : other);
        }
    }
    bytes.resize(size);
    return bytes;
}

TEST(ImageCodec, givesBackWhateverWasPacked) {
    Bytes alternating(10000);
    for (std::size_t i = 0; i < alternating.size(); ++i)
        alternating[i] = i % 2 == 0 ? 0 : 255;
    Bytes rising(70000);
    for (std::size_t i = 0; i < rising.size(); ++i)
        rising[i] = static_cast<std::uint8_t>(i / 256 * 31 + i);
    Bytes farApart = noise(6000, 256);
    farApart.resize(1053247); // so that the noise comes again at the farthest offset
    const Bytes again = noise(6000, 256);
    farApart.insert(farApart.end(), again.begin(), again.end());
    const struct {
        std::string_view what;
        Bytes plain;
        std::size_t most; ///< bytes, packed
    } kCases[] = {
        {"one byte", {7}, 9},
        {"constant", Bytes(100000, 9), 105}, // a literal and 25 copies of 31 bits: 784 bits
        {"alternating", alternating, 22},
        {"noise", noise(20000, 256), 20000 * 9 / 8 + 8},
        {"noise of two values", noise(20000, 2), 20000 / 4},
        {"rising", rising, 70000 / 8},
        {"far apart", farApart, 6000 * 9 / 8 + 2000},
    };
    for (const auto& [what, plain, most] : kCases) {
        const Bytes packed = pack(plain);
        EXPECT_TRUE(plain == unpacked(packed, plain.size())) << what;
        EXPECT_LE(packed.size(), most) << what;
    }
    for (std::uint32_t seed = 0; seed < 60; ++seed) {
        const Bytes plain = pictureLike(seed, std::size_t{seed} * 97);
        EXPECT_TRUE(plain == unpacked(pack(plain), plain.size())) << "seed " << seed;
    }
}

} // namespace
} // namespace brovin::character
