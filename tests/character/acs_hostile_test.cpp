#include "character/acs_reader.h"
#include "character/acs_writer.h"
#include "character/image_store.h"
#include "character/indexed_image.h"
#include "character/soundness.h"
#include "raw_file.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <new>
#include <string_view>
#include <tuple>

namespace {

/// In front of each block stands its size; this much room keeps what follows aligned.
constexpr std::size_t kFront = alignof(std::max_align_t);
static_assert(kFront >= sizeof(std::size_t));

std::size_t taken = 0;
std::size_t mostTaken = 0;

void giveBack(void* block) {
    if (block == nullptr)
        return;
    auto* const front = static_cast<std::byte*>(block) - kFront;
    taken -= *static_cast<std::size_t*>(static_cast<void*>(front));
    std::free(front);
}

} // namespace

void* operator new(std::size_t size) {
    void* const front = std::malloc(size + kFront);
    if (front == nullptr)
        throw std::bad_alloc();
    *static_cast<std::size_t*>(front) = size;
    taken += size;
    mostTaken = taken > mostTaken ? taken : mostTaken;
    return static_cast<std::byte*>(front) + kFront;
}

void operator delete(void* block) noexcept {
    giveBack(block);
}

void operator delete(void* block, std::size_t) noexcept {
    giveBack(block);
}

namespace brovin::character {
namespace {

/// Counts the bytes that the program has on the heap, from its construction on. One at a time, in one thread.
class AllocationMeter {
public:
    AllocationMeter() { mostTaken = taken; }

    /// Bytes taken since, less those given back.
    [[nodiscard]] std::size_t current() const { return taken - before_; }
    /// The most that `current` ever was.
    [[nodiscard]] std::size_t peak() const { return mostTaken - before_; }

private:
    std::size_t before_ = taken;
};

using Bytes = std::vector<std::uint8_t>;
constexpr std::uint32_t kHuge = 0xFFFFFFFF;

void expectTheSameAgain(const CharacterData& character) {
    const auto file = writeCharacter(character);
    if (!file) { // parts that lie upon one another are written one by one
        EXPECT_EQ("The file would be larger than 64 MiB", file.failure().reason);
        return;
    }
    const auto back = readCharacter(SharedBytes(*file));
    ASSERT_TRUE(back);
    EXPECT_TRUE(*back == character);
}

/// Reads a file that may be anything. Whatever it is, a failure has something to say, a character is sound
/// and comes back the same, every image can be asked for, and the memory stays within what is promised.
void expectNoHarm(const Bytes& file) {
    const SharedBytes shared(file);
    AllocationMeter meter;
    auto character = readCharacter(shared);
    EXPECT_LE(meter.peak(), 40 * file.size() + (std::size_t{1} << 20U));
    EXPECT_LE(meter.current(), 24 * file.size() + (std::size_t{1} << 20U));
    static_cast<void>(readListing(file, 0x0409));
    if (!character) {
        EXPECT_FALSE(character.failure().where.empty() || character.failure().reason.empty());
        EXPECT_LE(character.failure().position, file.size());
        return;
    }
    EXPECT_EQ("", unsoundness(*character));
    expectTheSameAgain(*character);
    ImageStore images(character->images, 0);
    for (std::size_t i = 0; i < images.count() && i < 20; ++i)
        static_cast<void>(images.image(i));
}

/// Small, with every kind of record, the optional ones included.
Bytes goodFile() {
    CharacterData character;
    character.guid.first = 1;
    character.info = {{0x0409, "Joe", "is good", ""}, {0x0407, "J\u00F6", "", "ist gut"}};
    character.width = character.height = 9;
    character.palette = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
    character.voice.emplace().traits.emplace().dialect = "US";
    character.balloon.emplace().fontName = "Sans";
    character.trayIcon = TrayIcon{SharedBytes({1, 2, 3}), SharedBytes({4})};
    character.images = {encodeImage({9, 9, Bytes(81, 1)}), encodeImage({3, 1, {0, 1, 2}}), EncodedImage()};
    character.sounds = {{SharedBytes({'R', 'I', 'F', 'F', 4, 0, 0, 0, 'W', 'A', 'V', 'E'})}};
    Frame frame;
    frame.images = {{1, 3, 4}, {0, 0, -1}};
    frame.branches = {{0, 50}, {1, 50}};
    frame.mouths = {{Mouth::OpenMedium, true, 1, 3, 4}, {Mouth::Closed, false, 2, 0, 0}};
    frame.duration = FrameDuration(10);
    frame.sound = 0;
    frame.exitFrame = 1;
    character.animations = {{"Wave", Transition::ReturnAnimation, 1, {frame, Frame()}},
                            {"WaveReturn", Transition::ExitBranches, {}, {frame, frame}}};
    character.states = {{"Showing", {0, 1}}, {"Hiding", {}}};
    const auto file = writeCharacter(character);
    return file ? *file : Bytes();
}

TEST(AcsHostile, isCutOffAnywhere) {
    const Bytes good = goodFile();
    ASSERT_TRUE(readCharacter(SharedBytes(good)));
    for (std::size_t size = 0; size < good.size(); ++size) {
        const Bytes cut(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(size));
        expectNoHarm(cut);
        EXPECT_FALSE(readCharacter(SharedBytes(cut))) << "the lists are at the end";
    }
}

TEST(AcsHostile, isChangedAnywhere) {
    const Bytes good = goodFile();
    for (std::size_t at = 0; at < good.size(); ++at)
        for (const unsigned change : {0x01U, 0x80U, 0xFFU}) {
            Bytes bad = good;
            bad[at] = static_cast<std::uint8_t>(bad[at] ^ change);
            expectNoHarm(bad);
        }
}

/// What the fuzzer has found: an input for each piece of code that a long run of it reached.
TEST(AcsHostile, isWhateverTheFuzzerMadeUp) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(BROVIN_CORPUS "/acs_reader")) {
        SCOPED_TRACE(entry.path());
        std::ifstream file(entry.path(), std::ios::binary);
        expectNoHarm(Bytes(std::istreambuf_iterator<char>(file), {}));
        ++files;
    }
    EXPECT_LT(200, files);
}

struct Hostile {
    std::string_view reason; ///< of the failure; "" when the file loads, its one part left out
    std::string_view why;
    RawFile file;
};

/// A file whose table is replaced.
RawFile with(Table table, const Raw& block) {
    RawFile file = smallestFile();
    file.set(table, block);
    return file;
}

RawFile withInformation(const Raw& tail) {
    Raw information = informationHead(0x110);
    return with(Table::Information, information.raw(tail.bytes()));
}

RawFile withBalloon(std::uint32_t lines, std::uint32_t characters) {
    Raw information = informationHead(0x210);
    information.u8(lines).u8(characters).u32(kHuge).u32(kHuge).u32(kHuge).text(u"").zeros(10);
    return with(Table::Information, plainTail(information));
}

RawFile withAnimation(const Raw& data) {
    RawFile file = smallestFile();
    const auto place = file.add(data);
    file.set(Table::Animations, Raw().u32(1).text(u"A").locator(place));
    return file;
}

RawFile withImage(const Raw& data) {
    RawFile file = smallestFile();
    const auto place = file.add(data);
    file.set(Table::Images, Raw().u32(1).locator(place).u32(0));
    return file;
}

RawFile pointing(Table table, const RawFile::Place& place) {
    RawFile file = smallestFile();
    file.point(table, place);
    return file;
}

/// A palette of one colour, no icon, and whatever follows.
RawFile withStates(const Raw& states) {
    return withInformation(Raw().u32(1).u32(0).u8(0).raw(states.bytes()));
}

std::vector<Hostile> hostileTables() {
    constexpr std::string_view kOutside = "points outside of the file";
    constexpr std::string_view kCount = "counts more items than its bytes can hold";
    constexpr std::string_view kPalette = "has a palette of no or too many colours";
    constexpr std::string_view kLong = "has a text that is too long";
    const std::u16string longName(256, u'a');
    return {
        {kOutside, "a table beyond the end", pointing(Table::Images, {10000, 4})},
        {kOutside, "a table that passes the end", pointing(Table::Sounds, {36, 10000})},
        {kOutside, "little when added up in 32 bits", pointing(Table::Animations, {100, kHuge - 50})},
        {"ends early", "an empty table", pointing(Table::Images, {36, 0})},
        {kCount, "animations without any bytes", with(Table::Animations, Raw().u32(4096).zeros(100))},
        {"has too many animations", "2^32 - 1", with(Table::Animations, Raw().u32(kHuge).zeros(100))},
        {kCount, "images without any bytes", with(Table::Images, Raw().u32(65536).zeros(100))},
        {"has too many entries", "2^32 - 1 images", with(Table::Images, Raw().u32(kHuge).zeros(100))},
        {"has too many entries", "2^32 - 1 sounds", with(Table::Sounds, Raw().u32(kHuge))},
        {kCount, "two sounds in the bytes of one", with(Table::Sounds, Raw().u32(2).zeros(23))},
        {kLong, "a name without end", with(Table::Animations, Raw().u32(1).u32(kHuge).zeros(100))},
        {kLong, "a name of 256 units", with(Table::Animations, Raw().u32(1).text(longName).zeros(8))},
        {"ends early", "a name up to the end", with(Table::Animations, Raw().u32(1).u32(48).zeros(96))},
        {kPalette, "none", withInformation(Raw().u32(0).u8(0).u16(0))},
        {kPalette, "2^32 - 1", withInformation(Raw().u32(kHuge).zeros(100))},
        {"says neither yes nor no where it must", "icon 2",
         withInformation(Raw().u32(1).u32(0).u8(2).u16(0))},
        {"has a balloon without room for text", "no lines", withBalloon(0, 30)},
        {"has a balloon without room for text", "no characters in a line", withBalloon(2, 0)},
        {"has a tray icon that is too large", "4 GiB",
         withInformation(Raw().u32(1).u32(0).u8(1).u32(kHuge).u16(0))},
        {"has too many states", "65535", withStates(Raw().u16(0xFFFF))},
        {kCount, "4096 names in a state", withStates(Raw().u16(1).text(u"").u16(4096))},
        {"has a state of too many animations", "4097", withStates(Raw().u16(1).text(u"").u16(4097))},
        {"ends early", "shorter than its head", with(Table::Information, Raw().u16(1).u16(2).zeros(20))},
        {"has a frame of no possible size", "0 by 0",
         with(Table::Information, Raw().u16(1).u16(2).zeros(60))},
    };
}

std::vector<Hostile> hostileRecords() {
    const auto frames = [](std::uint32_t count) { return Raw().text(u"A").u8(2).text(u"").u16(count); };
    const auto image = [](std::uint32_t width, std::uint32_t height, std::uint32_t packed,
                          std::uint32_t bytes) {
        return Raw().u8(0).u16(width).u16(height).u8(packed).u32(bytes);
    };
    RawFile overlapping = smallestFile();
    for (const Table table : {Table::Animations, Table::Images, Table::Sounds})
        overlapping.point(table, {36, 41});
    return {
        {"", "65535 frames without bytes", withAnimation(frames(0xFFFF).zeros(50))},
        {"", "a frame of 65535 images", withAnimation(frames(1).u16(0xFFFF))},
        {"", "a frame of 257 images", withAnimation(frames(1).u16(257).zeros(257 * 8 + 8))},
        {"", "a mouth's region without end",
         withAnimation(frames(1).zeros(9).u8(1).zeros(5).u8(1).zeros(8).u32(kHuge))},
        {"", "an inner name without end", withAnimation(Raw().u32(kHuge).zeros(50))},
        {"", "65535 by 65535 pixels", withImage(image(0xFFFF, 0xFFFF, 1, 7).zeros(7))},
        {"", "4096 by 4096 pixels", withImage(image(4096, 4096, 1, 7).zeros(7))},
        {"", "0 by 5 pixels", withImage(image(0, 5, 1, 7).zeros(7))},
        {"", "pixel data beyond the block", withImage(image(4, 4, 0, kHuge).zeros(16))},
        {"", "plain pixel data that are too short", withImage(image(4, 4, 0, 15).zeros(15))},
        {"", "nine bytes", withImage(Raw().u8(0).u16(4).u16(4).u8(1).zeros(3))},
        {"", "a byte alone", withImage(Raw().u8(1))},
        {"has too many entries", "tables that lie upon the information", overlapping},
    };
}

TEST(AcsHostile, isRefusedForWhatIsWrongOrLosesItsDamagedPart) {
    for (const auto& hostile : {hostileTables(), hostileRecords()})
        for (const auto& [reason, why, file] : hostile) {
            expectNoHarm(file.bytes());
            const auto character = readCharacter(SharedBytes(file.bytes()));
            EXPECT_EQ(reason, character ? "" : character.failure().reason) << why;
            if (!character)
                continue;
            for (const EncodedImage& image : character->images)
                EXPECT_EQ(EncodedImage(), image) << why;
            for (const Animation& animation : character->animations)
                EXPECT_TRUE(animation.frames.empty()) << why;
        }
}

std::size_t languagesIn(const Raw& info) {
    RawFile file = smallestFile();
    Raw information = informationHead(0x110, file.add(info));
    file.set(Table::Information, plainTail(information));
    const auto character = readCharacter(SharedBytes(file.bytes()));
    EXPECT_TRUE(character) << "the names alone are left out";
    return character ? character->info.size() : 0;
}

TEST(AcsHostile, hasMoreNamesThanAreTaken) {
    const auto described = [](std::size_t units) {
        return Raw().u16(1).u16(9).text(u"").text(std::u16string(units, u'a')).text(u"");
    };
    EXPECT_EQ(1U, languagesIn(described(65535)));
    EXPECT_EQ(0U, languagesIn(described(65536)));
    EXPECT_EQ(256U, languagesIn(Raw().u16(256).zeros(std::size_t{256} * 14)));
    EXPECT_EQ(0U, languagesIn(Raw().u16(257).zeros(std::size_t{257} * 14)));
    EXPECT_EQ(0U, languagesIn(Raw().u16(2).zeros(14))) << "what could be read of a damaged list is no use";
}

/// Frames with as many mouth overlays as there can be: 3,580 bytes each, of which 4 MiB hold 1,171.
TEST(AcsHostile, hasMoreAnimationThanIsTaken) {
    const std::vector<std::uint8_t> frame = Raw().zeros(9).u8(255).zeros(std::size_t{255} * 14).bytes();
    for (const std::uint32_t frames : {1171U, 1172U}) {
        Raw data;
        data.text(u"").u8(2).text(u"").u16(frames);
        for (std::uint32_t i = 0; i < frames; ++i)
            data.raw(frame);
        const auto character = readCharacter(SharedBytes(withAnimation(data).bytes()));
        EXPECT_EQ(frames == 1171U ? frames : 0U, character->animations.at(0).frames.size());
    }
}

TEST(AcsHostile, hasSoundsThatAreTooLong) {
    constexpr std::size_t kMost = std::size_t{16} << 20U;
    for (const auto& [bytes, taken] : {std::pair{kMost, kMost}, {kMost + 1, 0}}) {
        RawFile file = smallestFile();
        const auto sound =
            file.add(Raw({'R', 'I', 'F', 'F', 0, 0, 0, 0, 'W', 'A', 'V', 'E'}).zeros(bytes - 12));
        file.set(Table::Sounds, Raw().u32(1).locator(sound).u32(0));
        EXPECT_EQ(taken, readCharacter(SharedBytes(file.bytes()))->sounds.at(0).wave.size());
    }
}

TEST(AcsHostile, isNotOfTheFormatAtAll) {
    const std::tuple<LoadProblem, std::string_view, Bytes> kCases[] = {
        {LoadProblem::NotACharacterFile, "nothing", {}},
        {LoadProblem::NotACharacterFile, "three bytes", {0xC3, 0xAB, 0xCD}},
        {LoadProblem::NotACharacterFile, "bytes in another order", {0xAB, 0xCD, 0xAB, 0xC3, 0, 0, 0, 0}},
        {LoadProblem::UnsupportedVersion, "without animations", {0xC4, 0xAB, 0xCD, 0xAB}},
        {LoadProblem::UnsupportedVersion,
         "a compound document",
         {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1}},
        {LoadProblem::UnsupportedVersion, "1.5",
         with(Table::Information, Raw().u16(5).u16(1).zeros(60)).bytes()},
        {LoadProblem::NewerVersion, "3.0", with(Table::Information, Raw().u16(0).u16(3).zeros(60)).bytes()},
        {LoadProblem::Damaged, "a signature alone", {0xC3, 0xAB, 0xCD, 0xAB}},
        {LoadProblem::TooLarge, "64 MiB and a byte",
         Raw({0xC3, 0xAB, 0xCD, 0xAB}).zeros((64U << 20U) - 3).bytes()},
    };
    for (const auto& [problem, why, file] : kCases) {
        const auto character = readCharacter(SharedBytes(file));
        ASSERT_FALSE(character) << why;
        EXPECT_EQ(problem, character.failure().problem) << why;
        const auto listing = readListing(file, 0x0409);
        ASSERT_FALSE(listing) << why;
        EXPECT_EQ(problem, listing.failure().problem) << why;
    }
}

/// 4096 animations that are all the same 40 kB of frames, 16384 images that are all the same block: what
/// would unfold to gigabytes.
TEST(AcsHostile, unfoldsNoFurtherThanItsSize) {
    RawFile file = smallestFile();
    const auto frames = file.add(Raw().text(u"").u8(2).text(u"").u16(4000).zeros(40000));
    const auto image = file.add(Raw().u8(0).u16(200).u16(200).u8(0).u32(40000).zeros(40000));
    Raw animations;
    animations.u32(4096);
    for (char16_t i = 0; i < 4096; ++i)
        animations.text(std::u16string(1, static_cast<char16_t>(0x4E00 + i))).locator(frames);
    file.set(Table::Animations, animations);
    Raw images;
    images.u32(16384);
    for (int i = 0; i < 16384; ++i)
        images.locator(image).u32(0);
    file.set(Table::Images, images);
    expectNoHarm(file.bytes());
    const auto character = readCharacter(SharedBytes(file.bytes()));
    ASSERT_TRUE(character);
    EXPECT_EQ(4096U, character->animations.size()) << "all names stay";
    EXPECT_EQ(4000U, character->animations.front().frames.size());
    EXPECT_TRUE(character->animations.back().frames.empty());
}

TEST(LoadError, tellsWhatAndWhere) {
    const RawFile file = with(Table::Sounds, Raw().u32(2).zeros(23));
    const auto character = readCharacter(SharedBytes(file.bytes()));
    ASSERT_FALSE(character);
    EXPECT_EQ("The sound list counts more items than its bytes can hold (at byte 108).",
              message(character.failure()));
}

} // namespace
} // namespace brovin::character
