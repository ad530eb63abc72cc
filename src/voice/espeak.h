#pragma once

#include "voice/prosody.h"
#include "voice/speech_stream.h"
#include "voice/utterance.h"
#include "voice/voice_catalogue.h"

#include <string>

namespace brovin::voice {

// The synthesizer, a library with one state for the whole process. Only one thread at a time may call these.

/// Makes it ready; later calls only say whether it is. It stays ready until the process ends, because it does
/// not survive being ended and begun again.
[[nodiscard]] bool openEspeak();

[[nodiscard]] VoiceCatalogue listEspeakVoices();

/// Says an utterance into a stream, by a voice with its variant as in "gmw/en-US+f3". False: it could not, or
/// the stream was cancelled.
bool sayByEspeak(const std::string& voice, const Utterance& utterance, SpeechStream& stream);

} // namespace brovin::voice
