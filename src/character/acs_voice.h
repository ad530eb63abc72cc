#pragma once

#include "character/byte_reader.h"
#include "character/byte_writer.h"
#include "character/character_data.h"

namespace brovin::character {

/// The record of the voice. Values out of their range mean that the voice's own are to be used.
[[nodiscard]] VoiceSettings readVoice(ByteReader& in);
void writeVoice(ByteWriter& out, const VoiceSettings& voice);

} // namespace brovin::character
