#pragma once

#include <cstddef>
#include <cstdint>

namespace brovin::character {

/// What a character file may hold. The first group follows from the width of the file's own fields, the
/// second is our choice: far above what characters need, low enough that a hostile file cannot take the
/// machine.

inline constexpr std::size_t kMostFrames = 65535;
inline constexpr std::size_t kMostBranches = 255;
inline constexpr std::size_t kMostMouths = 255;
inline constexpr std::uint16_t kLastExitFrame = 32767;

inline constexpr std::size_t kMostFileBytes = std::size_t{64} << 20U;
inline constexpr std::uint16_t kMostFrameSide = 1024;
inline constexpr std::uint16_t kMostImageSide = 4096;
inline constexpr std::size_t kMostImageBytes = std::size_t{4} << 20U; ///< of the plain form of one image
inline constexpr std::size_t kMostColours = 256;
inline constexpr std::uint32_t kMostTextUnits = 65535;
inline constexpr std::uint32_t kMostNameUnits = 255;
inline constexpr std::size_t kMostLocalized = 256;
inline constexpr std::size_t kMostStates = 256;
inline constexpr std::size_t kMostStateAnimations = 4096;
inline constexpr std::size_t kMostAnimations = 4096;
inline constexpr std::size_t kMostFrameImages = 256;
/// Of all images of one frame together: three times the largest frame, which is drawn in less than 50 ms.
inline constexpr std::size_t kMostFramePixelBytes = std::size_t{3} << 20U;
inline constexpr std::size_t kMostImages = 65536;
inline constexpr std::size_t kMostSounds = 4096;
inline constexpr std::size_t kMostSoundBytes = std::size_t{16} << 20U;
inline constexpr std::size_t kMostTrayIconBytes = std::size_t{256} << 10U;
/// Kept by one image store: five frames of a hostile character, or hundreds of images of a usual one,
/// which has 20 to 30 MiB of them in all and a few in an animation.
inline constexpr std::size_t kDecodedImageBytes = std::size_t{16} << 20U;

/// Many animations may share their bytes in a file, so that a small one could unfold without end. All
/// animations together may take as many bytes as the file has, and a little more for the sharing that is
/// honest.
inline constexpr std::size_t kMostAnimationBytes = std::size_t{4} << 20U;
inline constexpr std::size_t kSharedAnimationBytes = std::size_t{64} << 10U;

} // namespace brovin::character
