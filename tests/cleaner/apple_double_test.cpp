#include "cleaner/apple_double.h"

#include <gtest/gtest.h>

#include <string>

namespace brovin::cleaner {
namespace {

using Bytes = std::vector<std::uint8_t>;

void put(Bytes& bytes, std::uint32_t value, int size) {
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        bytes.push_back(static_cast<std::uint8_t>(value >> static_cast<unsigned>(shift)));
}

void fillTo(Bytes& bytes, std::size_t size) {
    bytes.resize(size);
}

/// A file as a Mac writes it on a shared disk: 4096 bytes, the Finder's part with its attributes up to 0xEE2,
/// the resource fork from there.
struct MacFile {
    std::vector<AppleDouble::Attribute> attributes{};
    std::uint8_t label = 0;                 ///< one of the Finder's bytes
    std::uint32_t resourceLength = 286;     ///< as the table says
    std::uint32_t resourceData = 0;         ///< as the fork says
    std::uint32_t attributeOffset = 0x0400; ///< where the values stand

    [[nodiscard]] Bytes bytes() const {
        Bytes file;
        put(file, 0x00051607, 4);
        put(file, 0x00020000, 4);
        for (const char sign : std::string("Mac OS X        "))
            file.push_back(static_cast<std::uint8_t>(sign));
        put(file, 2, 2);
        for (const std::uint32_t number : {9U, 0x32U, 0xEB0U, 2U, 0xEE2U})
            put(file, number, 4);
        put(file, resourceLength, 4);
        fillTo(file, 0x32 + 9);
        file.push_back(label);
        fillTo(file, 0x32 + 34);
        if (!attributes.empty())
            putAttributes(file);
        fillTo(file, 0xEE2);
        for (const std::uint32_t number : {256U, 256U, resourceData, 30U})
            put(file, number, 4);
        fillTo(file, 0xEE2 + 256 + 24);
        put(file, 28, 2);
        put(file, 30, 2);
        put(file, 0xFFFF, 2);
        return file;
    }

    void putAttributes(Bytes& file) const {
        put(file, 0x41545452, 4);
        fillTo(file, file.size() + 30);
        put(file, static_cast<std::uint32_t>(attributes.size()), 2);
        for (const auto& attribute : attributes) {
            put(file, attributeOffset, 4);
            put(file, attribute.length, 4);
            put(file, 0, 2);
            put(file, static_cast<std::uint32_t>(attribute.name.size() + 1), 1);
            file.insert(file.end(), attribute.name.begin(), attribute.name.end());
            file.push_back(0);
            fillTo(file, (file.size() + 3) / 4 * 4);
        }
    }
};

TEST(AppleDouble, withOnlyThePlaceholderLosesNothing) {
    const Bytes file = MacFile{}.bytes();
    ASSERT_EQ(file.size(), 4096U);
    const auto found = readAppleDouble(file, file.size());
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->nothingLost());
}

TEST(AppleDouble, tellsWhatItCarries) {
    const std::vector<AppleDouble::Attribute> tags{{"com.apple.metadata:_kMDItemUserTags", 70},
                                                   {"com.apple.metadata:kMDItemFinderComment", 12}};
    const auto tagged = readAppleDouble(MacFile{.attributes = tags}.bytes(), 4096);
    EXPECT_EQ(tagged->attributes, tags);
    EXPECT_FALSE(tagged->damaged || tagged->nothingLost());

    const auto labelled = readAppleDouble(MacFile{.label = 4}.bytes(), 4096);
    EXPECT_TRUE(labelled->finderInfo);

    const auto fork =
        readAppleDouble(MacFile{.resourceLength = 70'000, .resourceData = 69'000}.bytes(), 80'000);
    EXPECT_EQ(fork->resourceFork, 70'000U);
    const auto resources = readAppleDouble(MacFile{.resourceData = 1}.bytes(), 4096);
    EXPECT_EQ(resources->resourceFork, 286U) << "a fork of the placeholder's size that has data";
}

TEST(AppleDouble, thatLiesIsDamagedAndNeverNothing) {
    const std::vector<AppleDouble::Attribute> one{{"a", 100}};
    struct {
        MacFile file;
        std::uint64_t size;
        std::size_t read;
        const char* why;
    } const cases[] = {
        {{.resourceLength = 287}, 4096, 4096, "the fork ends behind the file"},
        {{.resourceLength = 0xFFFFFFFF}, 4096, 4096, "offset and length overflow"},
        {{.attributes = one, .attributeOffset = 4000}, 4096, 4096, "a value ends behind the file"},
        {{.attributes = one}, 4096, 100, "the table of attributes is cut off"},
        {{}, 4096, 40, "the table of parts is cut off"},
        {{}, 60, 60, "the Finder's part is cut off"},
    };
    for (const auto& [file, size, read, why] : cases) {
        Bytes bytes = file.bytes();
        bytes.resize(read);
        const auto found = readAppleDouble(bytes, size);
        ASSERT_TRUE(found) << why;
        EXPECT_TRUE(found->damaged) << why;
        EXPECT_FALSE(found->nothingLost()) << why;
    }
}

TEST(AppleDouble, isKnownByItsMark) {
    Bytes file = MacFile{}.bytes();
    EXPECT_FALSE(readAppleDouble({}, 0));
    file[3] = 0; // an AppleSingle, which holds the contents too
    EXPECT_FALSE(readAppleDouble(file, file.size()));
}

} // namespace
} // namespace brovin::cleaner
