#include "character/byte_writer.h"

#include <cassert>

namespace brovin::character {

void ByteWriter::u8(std::uint8_t value) {
    bytes_.push_back(value);
}

void ByteWriter::u16(std::uint16_t value) {
    u8(static_cast<std::uint8_t>(value & 0xFFU));
    u8(static_cast<std::uint8_t>(value >> 8U));
}

void ByteWriter::u32(std::uint32_t value) {
    u16(static_cast<std::uint16_t>(value & 0xFFFFU));
    u16(static_cast<std::uint16_t>(value >> 16U));
}

void ByteWriter::i16(std::int16_t value) {
    u16(static_cast<std::uint16_t>(value));
}

void ByteWriter::i32(std::int32_t value) {
    u32(static_cast<std::uint32_t>(value));
}

void ByteWriter::bytes(std::span<const std::uint8_t> run) {
    bytes_.insert(bytes_.end(), run.begin(), run.end());
}

void ByteWriter::patchU32(std::size_t at, std::uint32_t value) {
    assert(at + 4 <= size());
    for (std::size_t i = 0; i < 4; ++i, value >>= 8U)
        bytes_[at + i] = static_cast<std::uint8_t>(value & 0xFFU);
}

} // namespace brovin::character
