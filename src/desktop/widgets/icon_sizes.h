#pragma once

namespace brovin::desktop {

/// The sizes of the program's icon that are drawn when the program is built, in pixels: those that desktops
/// ask for.
inline constexpr int kIconSizes[] = {16, 22, 24, 32, 48, 64, 128};
inline constexpr int kBytesAPixel =
    4; ///< 32 bits, alpha premultiplied, as this machine's processor stores them

} // namespace brovin::desktop
