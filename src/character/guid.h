#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace brovin::character {

/// The identifier of a character, a speech engine or a voice. All zero: none.
struct Guid {
    std::uint32_t first = 0;
    std::uint16_t second = 0;
    std::uint16_t third = 0;
    std::array<std::uint8_t, 8> rest{};

    bool operator==(const Guid&) const = default;
};

/// "{CA141FD0-AC7F-11D1-97A3-006008273008}", in capitals.
[[nodiscard]] std::string guidText(const Guid& guid);

} // namespace brovin::character
