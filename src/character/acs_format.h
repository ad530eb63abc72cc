#pragma once

#include <cstddef>
#include <cstdint>

namespace brovin::character {

/// Numbers of the character file, format 2, that more than one reader or writer of its records needs.

inline constexpr std::uint32_t kSignature = 0xABCDABC3;
inline constexpr std::uint16_t kFormatMajor = 2;

/// The smallest that an item of a list can be, in bytes.
inline constexpr std::size_t kSmallestLocalized = 14;
inline constexpr std::size_t kColourBytes = 4;
inline constexpr std::size_t kSmallestState = 6;
inline constexpr std::size_t kSmallestText = 4;
inline constexpr std::size_t kSmallestIndexEntry = 12; ///< of animations, images and sounds
inline constexpr std::size_t kSmallestFrame = 10;
inline constexpr std::size_t kFrameImageBytes = 8;
inline constexpr std::size_t kBranchBytes = 4;
inline constexpr std::size_t kSmallestMouth = 14;
inline constexpr std::size_t kSmallestImageBlock = 10; ///< anything shorter is an empty image

/// Bits of the character's flags. Of each pair of opposites exactly one is set.
inline constexpr std::uint32_t kVoiceOff = 0x00000010;
inline constexpr std::uint32_t kVoiceOn = 0x00000020;
inline constexpr std::uint32_t kBalloonOff = 0x00000100;
inline constexpr std::uint32_t kBalloonOn = 0x00000200;
inline constexpr std::uint32_t kSizeToText = 0x00010000;
inline constexpr std::uint32_t kNoAutoHide = 0x00020000;
inline constexpr std::uint32_t kNoAutoPace = 0x00040000;
inline constexpr std::uint32_t kStandardAnimations = 0x00100000;

inline constexpr std::uint16_t kDefaultPitch = 0xFFFF;
inline constexpr std::uint16_t kLowestWordsPerMinute = 50;
inline constexpr std::uint16_t kHighestWordsPerMinute = 400;
inline constexpr std::uint16_t kLowestPitch = 40;
inline constexpr std::uint16_t kHighestPitch = 500;

inline constexpr std::uint8_t kMostBalloonLines = 128;
inline constexpr std::uint8_t kFewestLineCharacters = 8;
inline constexpr std::uint8_t kHighestFont = 200;
inline constexpr std::uint8_t kDefaultFontHeight = 13;
inline constexpr std::uint16_t kHeaviestFont = 1000;
inline constexpr std::uint16_t kDefaultFontWeight = 400;

inline constexpr std::uint16_t kNoSound = 0xFFFF;
inline constexpr std::int16_t kNoExitFrame = -2;

} // namespace brovin::character
