#pragma once

#include "character/acs_basics.h"
#include "character/byte_writer.h"
#include "character/character_data.h"
#include "character/load_error.h"
#include "character/name_index.h"
#include "character/shared_bytes.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace brovin::character {

/// The part of the character information whose layout is fixed.
struct InformationHead {
    Version format;
    Locator localized;
    Guid guid;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::uint8_t transparentIndex = 0;
    std::uint32_t flags = 0;
    Version animationSet;
};

/// The part behind it.
struct InformationTail {
    std::optional<VoiceSettings> voice;
    std::optional<BalloonSettings> balloon;
    std::vector<Colour> palette;
    std::optional<TrayIcon> trayIcon;
    std::vector<State> states;
};

/// The head at the front of `in`; a failure when the version is not ours or the frame has no possible size.
[[nodiscard]] LoadResult<InformationHead> readInformationHead(ByteReader& in);

/// What follows the head at the front of `in`, in a block of `file`. What says whether voice and balloon are
/// there is not reliable, so up to four layouts are tried, and the one that ends where the block does is
/// taken. Names that `animations` does not have are left out of the states.
[[nodiscard]] LoadResult<InformationTail> readInformationTail(const SharedBytes& file, const ByteReader& in,
                                                              std::uint32_t flags,
                                                              const NameIndex& animations);

/// The whole block, with the localized information at `localized`.
void writeInformation(ByteWriter& out, const CharacterData& character, const Locator& localized);

} // namespace brovin::character
