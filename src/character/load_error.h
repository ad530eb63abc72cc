#pragma once

#include "character/byte_reader.h"
#include "platform/result.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace brovin::character {

enum class LoadProblem : std::uint8_t {
    Missing, ///< or not to be read
    NotACharacterFile,
    UnsupportedVersion, ///< an older generation of character file, or a kind without animations
    NewerVersion,
    TooLarge,
    Damaged,
};

/// Why a file gave no character. The texts are constants of the program.
struct LoadError {
    LoadProblem problem = LoadProblem::Damaged;
    std::string_view where;     ///< the part of the file, such as "The image list"
    std::string_view reason;    ///< what is wrong with it, such as "ends early"
    std::uint64_t position = 0; ///< bytes from the start of the file
};

template <class T>
using LoadResult = platform::Result<T, LoadError>;

/// The failure of a reader that has failed.
[[nodiscard]] LoadError damaged(std::string_view where, const ByteReader& in);

/// "The image list ends early (at byte 512)."
[[nodiscard]] std::string message(const LoadError& error);

} // namespace brovin::character
