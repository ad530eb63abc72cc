#include "desktop/machine/full_screen_watch.h"

#include "desktop/x11/x11_desktop.h"

#include <QGuiApplication>
#include <QWindow>

#include <xcb/xcb.h>

#include <algorithm>
#include <span>

namespace brovin::desktop {
namespace {

X11Reply<xcb_get_property_reply_t> property(xcb_connection_t* server, xcb_window_t window, xcb_atom_t name,
                                            xcb_atom_t type) {
    constexpr std::uint32_t kMost = 64; // items; there are 13 states, and room for those of others
    const auto asked = xcb_get_property(server, 0, window, name, type, 0, kMost);
    return {xcb_get_property_reply(server, asked, nullptr), &std::free};
}

std::span<const std::uint32_t> itemsOf(const xcb_get_property_reply_t* reply) {
    constexpr std::uint8_t kBits = 32;
    if (reply == nullptr || reply->format != kBits)
        return {};
    return {static_cast<const std::uint32_t*>(xcb_get_property_value(reply)), reply->value_len};
}

/// The toolkit has chosen already what it is told of these.
bool isOurs(xcb_window_t window) {
    const QWindowList windows = QGuiApplication::allWindows();
    return std::any_of(windows.begin(), windows.end(), [window](const QWindow* own) {
        return own->handle() != nullptr && own->winId() == window;
    });
}

} // namespace

FullScreenWatch::FullScreenWatch() {
    if (server() == nullptr)
        return;
    root_ = x11Root();
    activeWindowAtom_ = x11Atom("_NET_ACTIVE_WINDOW");
    stateAtom_ = x11Atom("_NET_WM_STATE");
    fullScreenAtom_ = x11Atom("_NET_WM_STATE_FULLSCREEN");
    look(); // the toolkit has asked to be told of the root window's properties itself
}

void FullScreenWatch::hear(const xcb_generic_event_t& event, std::uint8_t type) {
    if (type != XCB_PROPERTY_NOTIFY)
        return;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if ((change.window == root_ && change.atom == activeWindowAtom_) ||
        (change.window == active_ && change.atom == stateAtom_))
        look();
}

void FullScreenWatch::look() {
    follow(activeWindow());
    const auto before = place_;
    place_ = active_ != 0 && isFullScreen(active_) ? placeOf(active_) : std::nullopt;
    if (place_ != before && changed)
        changed();
}

/// A window may have gone before the server hears of these wishes, which does no harm.
void FullScreenWatch::follow(Window window) {
    if (window == active_)
        return;
    tellOfItsStates(active_, false);
    active_ = window;
    tellOfItsStates(active_, true);
}

void FullScreenWatch::tellOfItsStates(Window window, bool wanted) {
    if (window == 0 || isOurs(window))
        return;
    const std::uint32_t mask = wanted ? XCB_EVENT_MASK_PROPERTY_CHANGE : XCB_EVENT_MASK_NO_EVENT;
    xcb_discard_reply(
        server(), xcb_change_window_attributes_checked(server(), window, XCB_CW_EVENT_MASK, &mask).sequence);
}

FullScreenWatch::Window FullScreenWatch::activeWindow() const {
    const auto reply = property(server(), root_, activeWindowAtom_, XCB_ATOM_WINDOW);
    const auto items = itemsOf(reply.get());
    return items.empty() ? 0 : items.front();
}

bool FullScreenWatch::isFullScreen(Window window) const {
    const auto reply = property(server(), window, stateAtom_, XCB_ATOM_ATOM);
    const auto states = itemsOf(reply.get());
    return std::find(states.begin(), states.end(), fullScreenAtom_) != states.end();
}

std::optional<platform::Area> FullScreenWatch::placeOf(Window window) const {
    const auto askedSize = xcb_get_geometry(server(), window);
    const auto askedPlace = xcb_translate_coordinates(server(), window, root_, 0, 0);
    const X11Reply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(server(), askedSize, nullptr),
                                                  &std::free);
    const X11Reply<xcb_translate_coordinates_reply_t> place(
        xcb_translate_coordinates_reply(server(), askedPlace, nullptr), &std::free);
    if (!size || !place)
        return std::nullopt;
    return platform::Area{place->dst_x, place->dst_y, size->width, size->height};
}

} // namespace brovin::desktop
