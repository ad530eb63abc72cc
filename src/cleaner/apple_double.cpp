#include "cleaner/apple_double.h"

#include <algorithm>

namespace brovin::cleaner {
namespace {

constexpr std::uint32_t kMagic = 0x00051607;
constexpr std::uint32_t kVersion1 = 0x00010000;
constexpr std::uint32_t kVersion2 = 0x00020000;
constexpr std::uint32_t kAttributesMark = 0x41545452; // "ATTR"
constexpr std::size_t kFiller = 16;

/// The numbers by which the format knows its parts.
enum Part : std::uint32_t { kDataFork = 1, kResourceFork = 2, kFinderInfo = 9 };

/// The numbers of a file, most significant byte first. Beyond the end everything is 0 and `ok` turns false.
class Numbers {
public:
    Numbers(std::span<const std::uint8_t> bytes, std::size_t begin)
        : bytes_(bytes), next_(std::min(begin, bytes.size())), ok_(begin <= bytes.size()) {}

    std::uint32_t take(std::size_t size) {
        if (bytes_.size() - next_ < size)
            ok_ = false;
        if (!ok_)
            return 0;
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < size; ++i)
            value = (value << 8U) | bytes_[next_++];
        return value;
    }
    std::uint32_t u16() { return take(2); }
    std::uint32_t u32() { return take(4); }
    std::span<const std::uint8_t> bytes(std::size_t count) {
        if (bytes_.size() - next_ < count)
            ok_ = false;
        if (!ok_)
            return {};
        next_ += count;
        return bytes_.subspan(next_ - count, count);
    }
    void skip(std::size_t count) { static_cast<void>(bytes(count)); }
    [[nodiscard]] std::size_t position() const { return next_; }
    [[nodiscard]] bool ok() const { return ok_; }

private:
    std::span<const std::uint8_t> bytes_;
    std::size_t next_;
    bool ok_;
};

/// Where a part stands in the file.
struct Extent {
    std::uint32_t offset = 0;
    std::uint32_t length = 0;

    [[nodiscard]] bool within(std::uint64_t size) const { return std::uint64_t{offset} + length <= size; }
};

/// Whether a resource fork has neither data nor resources: its map lists no types ("one less than their
/// number" is then -1). Such a fork is written where there is none, as a placeholder.
bool isPlaceholder(std::span<const std::uint8_t> head, const Extent& fork) {
    constexpr std::size_t kTypeListOffset = 24;
    constexpr std::uint32_t kNoTypes = 0xFFFF;
    Numbers header(head, fork.offset);
    header.u32(); // where the data begins
    const std::uint32_t map = header.u32();
    const std::uint32_t dataLength = header.u32();
    if (!header.ok() || dataLength != 0 || map >= fork.length)
        return false;
    Numbers mapHeader(head, std::size_t{fork.offset} + map + kTypeListOffset);
    const std::uint32_t typeList = mapHeader.u16();
    Numbers types(head, std::size_t{fork.offset} + map + typeList);
    return mapHeader.ok() && types.u16() == kNoTypes && types.ok();
}

/// One entry of the attributes' table; false: the table ends early or lies.
bool takeAttribute(Numbers& table, std::uint64_t fileSize, AppleDouble& found) {
    constexpr std::size_t kAlignment = 4;
    const std::uint32_t offset = table.u32();
    const std::uint32_t length = table.u32();
    table.skip(2); // flags
    const std::uint32_t nameLength = table.take(1);
    const auto name = table.bytes(nameLength);
    if (!table.ok() || name.empty() || name.back() != 0 || !Extent{offset, length}.within(fileSize))
        return false;
    found.attributes.push_back({std::string(name.begin(), name.end() - 1), length});
    table.skip((kAlignment - table.position() % kAlignment) % kAlignment);
    return true;
}

void readFinderInfo(std::span<const std::uint8_t> head, std::uint64_t fileSize, const Extent& part,
                    AppleDouble& found) {
    constexpr std::size_t kFinderBytes = 32;
    constexpr std::size_t kPadding = 2;
    constexpr std::size_t kSizesAndReserved = 28; // debug tag, total size, data's start and length, reserved
    Numbers numbers(head, part.offset);
    const auto info = numbers.bytes(std::min<std::size_t>(kFinderBytes, part.length));
    found.finderInfo = std::any_of(info.begin(), info.end(), [](std::uint8_t byte) { return byte != 0; });
    found.damaged |= !numbers.ok();
    if (part.length < kFinderBytes + kPadding + sizeof kAttributesMark)
        return; // the Finder's bytes alone
    numbers.skip(kPadding);
    if (numbers.u32() != kAttributesMark)
        return;
    numbers.skip(kSizesAndReserved);
    numbers.skip(2); // flags
    const std::uint32_t count = numbers.u16();
    for (std::uint32_t i = 0; i < count && !found.damaged; ++i)
        found.damaged = !takeAttribute(numbers, fileSize, found);
    found.damaged |= !numbers.ok() && count == 0;
}

void readPart(std::span<const std::uint8_t> head, std::uint64_t fileSize, std::uint32_t id,
              const Extent& part, AppleDouble& found) {
    if (!part.within(fileSize)) {
        found.damaged = true;
        return;
    }
    if (part.length == 0)
        return;
    if (id == kResourceFork)
        found.resourceFork = isPlaceholder(head, part) ? 0 : part.length;
    else if (id == kFinderInfo)
        readFinderInfo(head, fileSize, part, found);
    else
        ++found.otherParts;
}

} // namespace

std::optional<AppleDouble> readAppleDouble(std::span<const std::uint8_t> head, std::uint64_t fileSize) {
    head = head.first(std::min(head.size(), kAppleDoubleHead));
    Numbers numbers(head, 0);
    const std::uint32_t magic = numbers.u32();
    const std::uint32_t version = numbers.u32();
    if (magic != kMagic || (version != kVersion1 && version != kVersion2))
        return std::nullopt;
    AppleDouble found;
    numbers.skip(kFiller);
    const std::uint32_t parts = numbers.u16();
    for (std::uint32_t i = 0; i < parts && numbers.ok(); ++i) {
        const std::uint32_t id = numbers.u32();
        const Extent part{numbers.u32(), numbers.u32()}; // braces keep the order of the reads
        if (numbers.ok())
            readPart(head, fileSize, id, part, found);
    }
    found.damaged |= !numbers.ok();
    return found;
}

} // namespace brovin::cleaner
