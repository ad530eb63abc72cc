#include "character/acs_basics.h"

#include "text/utf16.h"

namespace brovin::character {

std::optional<Block> blockAt(std::span<const std::uint8_t> file, const Locator& locator) {
    if (locator.offset > file.size() || locator.size > file.size() - locator.offset)
        return std::nullopt;
    return Block{file.subspan(locator.offset, locator.size), locator.offset};
}

Locator readLocator(ByteReader& in) {
    Locator locator;
    locator.offset = in.u32();
    locator.size = in.u32();
    return locator;
}

void writeLocator(ByteWriter& out, const Locator& locator) {
    out.u32(locator.offset);
    out.u32(locator.size);
}

Guid readGuid(ByteReader& in) {
    Guid guid;
    guid.first = in.u32();
    guid.second = in.u16();
    guid.third = in.u16();
    for (std::uint8_t& byte : guid.rest)
        byte = in.u8();
    return guid;
}

void writeGuid(ByteWriter& out, const Guid& guid) {
    out.u32(guid.first);
    out.u16(guid.second);
    out.u16(guid.third);
    out.bytes(guid.rest);
}

std::string readText(ByteReader& in, std::uint32_t mostUnits) {
    const std::uint32_t units = in.u32();
    if (units == 0)
        return {};
    if (units > mostUnits) {
        in.fail("has a text that is too long");
        return {};
    }
    const auto bytes = in.bytes(std::size_t{units} * 2);
    in.skip(2); // the terminator, which is not looked at
    return in.ok() ? text::fromUtf16(bytes) : std::string();
}

void writeText(ByteWriter& out, std::string_view text) {
    const std::u16string units = text::toUtf16(text);
    out.u32(static_cast<std::uint32_t>(units.size()));
    for (const char16_t unit : units)
        out.u16(unit);
    if (!units.empty())
        out.u16(0);
}

bool readPresence(ByteReader& in) {
    const std::uint8_t byte = in.u8();
    if (byte > 1)
        in.fail("says neither yes nor no where it must");
    return byte == 1;
}

} // namespace brovin::character
