#include "character/byte_reader.h"

#include "character/byte_writer.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace brovin::character {
namespace {

TEST(ByteReader, takesNumbersLowestByteFirst) {
    constexpr std::array<std::uint8_t, 13> kBytes{1, 2, 3, 4, 5, 6, 7, 0xFE, 0xFF, 0xFD, 0xFF, 0xFF, 0xFF};
    ByteReader in(kBytes, 100);
    EXPECT_EQ(0x01U, in.u8());
    EXPECT_EQ(0x0302U, in.u16());
    EXPECT_EQ(0x07060504U, in.u32());
    EXPECT_EQ(-2, in.i16());
    EXPECT_EQ(109U, in.position());
    EXPECT_EQ(-3, in.i32());
    EXPECT_EQ(0U, in.left());
    EXPECT_TRUE(in.ok());
}

TEST(ByteReader, keepsItsFirstFailure) {
    constexpr std::array<std::uint8_t, 3> kBytes{1, 2, 3};
    ByteReader in(kBytes);
    EXPECT_EQ(1U, in.u8());
    EXPECT_EQ(0U, in.u32()) << "two bytes are left";
    EXPECT_EQ(0U, in.u8()) << "nothing after a failure, though a byte would be there";
    in.fail("other");
    EXPECT_EQ("ends early", in.reason());
    EXPECT_EQ(1U, in.position());
    EXPECT_EQ(0U, in.left());
}

TEST(ByteReader, countsWithoutOverflow) {
    constexpr std::array<std::uint8_t, 12> kBytes{};
    ByteReader in(kBytes);
    EXPECT_TRUE(in.canHold(3, 4));
    EXPECT_TRUE(in.canHold(0, 100));
    EXPECT_FALSE(ByteReader(in).canHold(4, 4));
    EXPECT_FALSE(ByteReader(in).canHold(std::numeric_limits<std::uint64_t>::max() / 4 + 2, 4));
    EXPECT_TRUE(in.bytes(std::numeric_limits<std::size_t>::max()).empty());
    EXPECT_FALSE(in.ok());
}

TEST(ByteWriter, putsWhatTheReaderTakes) {
    ByteWriter out;
    out.u8(7);
    out.u32(0);
    out.i16(-2);
    out.i32(std::numeric_limits<std::int32_t>::min());
    out.patchU32(1, 0x01020304);
    EXPECT_EQ((std::vector<std::uint8_t>{7, 4, 3, 2, 1, 0xFE, 0xFF, 0, 0, 0, 0x80}), std::move(out).take());
}

} // namespace
} // namespace brovin::character
