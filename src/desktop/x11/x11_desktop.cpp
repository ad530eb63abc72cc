#include "desktop/x11/x11_desktop.h"

#include <QGuiApplication>
#include <QWindow>

#include <xcb/xcb.h>

#include <vector>

namespace brovin::desktop {
namespace {

constexpr std::uint32_t kAdd = 1;
constexpr std::uint32_t kFromApplication = 1;
constexpr std::uint32_t kMostProtocols = 32;

} // namespace

xcb_connection_t* x11Connection() {
    auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

std::uint32_t x11Root() {
    return xcb_setup_roots_iterator(xcb_get_setup(x11Connection())).data->root;
}

std::uint32_t x11Atom(std::string_view name) {
    xcb_connection_t* const server = x11Connection();
    if (server == nullptr)
        return XCB_ATOM_NONE;
    const auto asked = xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const X11Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server, asked, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

void askForWindowStates(const QWindow& window, std::initializer_list<std::string_view> states) {
    xcb_connection_t* const server = x11Connection();
    if (server == nullptr)
        return;
    for (const std::string_view state : states) {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = static_cast<xcb_window_t>(window.winId());
        message.type = x11Atom("_NET_WM_STATE");
        message.data.data32[0] = kAdd;
        message.data.data32[1] = x11Atom(state);
        message.data.data32[3] = kFromApplication;
        xcb_send_event(server, 0, x11Root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&message));
    }
    xcb_flush(server);
}

/// The toolkit lists WM_TAKE_FOCUS for every window, also for those that take no input: by the conventions
/// these are windows that fetch the focus themselves, and some window managers invite them to at a click or
/// when others close.
void declineFocus(const QWindow& window) {
    xcb_connection_t* const server = x11Connection();
    if (server == nullptr)
        return;
    const auto id = static_cast<xcb_window_t>(window.winId());
    const xcb_atom_t protocols = x11Atom("WM_PROTOCOLS");
    const auto asked = xcb_get_property(server, 0, id, protocols, XCB_ATOM_ATOM, 0, kMostProtocols);
    const X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(server, asked, nullptr),
                                                   &std::free);
    if (!reply || reply->format != 32)
        return;
    const auto* const listed = static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get()));
    std::vector<xcb_atom_t> kept(listed, listed + reply->value_len);
    if (std::erase(kept, x11Atom("WM_TAKE_FOCUS")) > 0)
        xcb_change_property(server, XCB_PROP_MODE_REPLACE, id, protocols, XCB_ATOM_ATOM, 32,
                            static_cast<std::uint32_t>(kept.size()), kept.data());
}

} // namespace brovin::desktop
