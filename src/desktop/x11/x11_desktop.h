#pragma once

#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <string_view>

class QWindow;
struct xcb_connection_t;

namespace brovin::desktop {

/// The toolkit's own connection. Null: the program does not run on X11.
[[nodiscard]] xcb_connection_t* x11Connection();

/// The window that all others are on. There is a connection.
[[nodiscard]] std::uint32_t x11Root();

/// 0: not on X11, or the server does not answer.
[[nodiscard]] std::uint32_t x11Atom(std::string_view name);

/// What the server answers, to be freed as the library wants it.
template <class T>
using X11Reply = std::unique_ptr<T, decltype(&std::free)>;

/// Asks the window manager to give a window that is shown these states (Extended Window Manager Hints,
/// _NET_WM_STATE). Does nothing elsewhere than on X11.
void askForWindowStates(const QWindow& window, std::initializer_list<std::string_view> states);

/// Has the window manager never offer the keyboard to a window that exists and is not shown yet (Inter-Client
/// Communication Conventions, WM_TAKE_FOCUS). Does nothing elsewhere than on X11.
void declineFocus(const QWindow& window);

} // namespace brovin::desktop
