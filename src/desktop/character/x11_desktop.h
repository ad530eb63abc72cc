#pragma once

#include <QWidget>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

struct xcb_connection_t;

namespace brovin::desktop {

/// The toolkit's own connection. Null: the program does not run on X11.
[[nodiscard]] xcb_connection_t* x11Connection();

/// 0: not on X11, or the server does not answer.
[[nodiscard]] std::uint32_t x11Atom(std::string_view name);

/// What the server answers, to be freed as the library wants it.
template <class T>
using X11Reply = std::unique_ptr<T, decltype(&std::free)>;

/// Asks the window manager to keep a window above all others and out of task bars and pagers. Holds for one
/// showing: to be called behind each. What is said beforehand, a window manager that is still busy with the
/// window's last disappearance would take for old and forget.
void keepOnTopAndOffTaskBar(const QWidget& window);

} // namespace brovin::desktop
