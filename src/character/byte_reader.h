#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace brovin::character {

/// Takes little-endian numbers from the front of a run of bytes and never looks beyond its end. The first
/// thing that goes wrong sticks: from then on every number is 0, every run of bytes is empty, and nothing is
/// left, so that a whole record can be read before asking once whether it was there.
class ByteReader {
public:
    /// `base` is where the bytes stand in the file, for messages only.
    explicit ByteReader(std::span<const std::uint8_t> bytes, std::uint64_t base = 0)
        : bytes_(bytes), base_(base) {}

    std::uint8_t u8();
    std::uint16_t u16();
    std::uint32_t u32();
    std::int16_t i16();
    std::int32_t i32();
    /// The next `count` bytes, all or none.
    std::span<const std::uint8_t> bytes(std::size_t count);
    void skip(std::size_t count);

    /// False, and a failure, unless `count` items of at least `smallest` bytes can still follow. To be asked
    /// before memory is reserved for them.
    [[nodiscard]] bool canHold(std::uint64_t count, std::size_t smallest);

    /// Gives up for a reason that the numbers themselves cannot show. `reason` must outlive the reader.
    void fail(std::string_view reason);

    [[nodiscard]] bool ok() const { return reason_.empty(); }
    /// Why it failed, "" when it did not.
    [[nodiscard]] std::string_view reason() const { return reason_; }
    [[nodiscard]] std::size_t left() const { return ok() ? bytes_.size() - taken_ : 0; }
    /// How many bytes were taken, until a failure if there was one.
    [[nodiscard]] std::size_t taken() const { return taken_; }
    /// The same, counted from the start of the file.
    [[nodiscard]] std::uint64_t position() const { return base_ + taken_; }

private:
    [[nodiscard]] std::uint32_t number(std::size_t size);

    std::span<const std::uint8_t> bytes_;
    std::uint64_t base_ = 0;
    std::size_t taken_ = 0;
    std::string_view reason_;
};

} // namespace brovin::character
