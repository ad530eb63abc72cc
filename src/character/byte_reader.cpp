#include "character/byte_reader.h"

namespace brovin::character {
namespace {

constexpr std::string_view kEndsEarly = "ends early";

} // namespace

std::uint8_t ByteReader::u8() {
    return static_cast<std::uint8_t>(number(1));
}

std::uint16_t ByteReader::u16() {
    return static_cast<std::uint16_t>(number(2));
}

std::uint32_t ByteReader::u32() {
    return number(4);
}

std::int16_t ByteReader::i16() {
    return static_cast<std::int16_t>(u16());
}

std::int32_t ByteReader::i32() {
    return static_cast<std::int32_t>(u32());
}

std::span<const std::uint8_t> ByteReader::bytes(std::size_t count) {
    if (count > left()) {
        fail(kEndsEarly);
        return {};
    }
    const auto taken = bytes_.subspan(taken_, count);
    taken_ += count;
    return taken;
}

void ByteReader::skip(std::size_t count) {
    static_cast<void>(bytes(count));
}

bool ByteReader::canHold(std::uint64_t count, std::size_t smallest) {
    if (count > left() / smallest)
        fail("counts more items than its bytes can hold");
    return ok();
}

void ByteReader::fail(std::string_view reason) {
    if (ok())
        reason_ = reason;
}

std::uint32_t ByteReader::number(std::size_t size) {
    std::uint32_t value = 0;
    unsigned shift = 0;
    for (const std::uint8_t byte : bytes(size)) {
        value |= static_cast<std::uint32_t>(byte) << shift;
        shift += 8;
    }
    return value;
}

} // namespace brovin::character
