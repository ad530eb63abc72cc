#pragma once

namespace brovin::desktop {

/// Windows are placed and kept on top by the program itself, which only X11 lets it do: on other desktops it
/// runs through their X server, whatever the environment asks for. Where they have
/// none there are windows, but no characters. To be called before the toolkit starts,
/// which would end the program without a word where there is no display at all: then this is false.
[[nodiscard]] bool choosePlatform();

} // namespace brovin::desktop
