#include "desktop/x11/x11_desktop.h"

#include <QGuiApplication>
#include <QWindow>

#include <xcb/xcb.h>

namespace brovin::desktop {
namespace {

constexpr std::uint32_t kAdd = 1;
constexpr std::uint32_t kFromApplication = 1;

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

} // namespace brovin::desktop
