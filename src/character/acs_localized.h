#pragma once

#include "character/byte_reader.h"
#include "character/byte_writer.h"
#include "character/character_data.h"

#include <vector>

namespace brovin::character {

/// The list of what a character is called in which language.
[[nodiscard]] std::vector<LocalizedInfo> readLocalized(ByteReader& in);
void writeLocalized(ByteWriter& out, const std::vector<LocalizedInfo>& info);

} // namespace brovin::character
