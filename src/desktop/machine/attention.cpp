#include "desktop/machine/attention.h"

#include <QGuiApplication>
#include <QWindow>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

#include <xcb/xcb.h>

namespace brovin::desktop {

// `QWindow::alert` does nothing for a box that came up by itself: the toolkit takes the only window of a
// program for the one with the keyboard, whoever really has it.
void demandAttention(const QWindow& window) {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr)
        return;
    xcb_connection_t* const server = x11->connection();
    const auto numberOf = [server](std::string_view name) {
        const auto asked = xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.data());
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
            xcb_intern_atom_reply(server, asked, nullptr), &std::free);
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    };
    constexpr std::uint32_t kAdd = 1;
    constexpr std::uint32_t kFromAnApplication = 1;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = static_cast<xcb_window_t>(window.winId());
    message.type = numberOf("_NET_WM_STATE");
    message.data.data32[0] = kAdd;
    message.data.data32[1] = numberOf("_NET_WM_STATE_DEMANDS_ATTENTION");
    message.data.data32[3] = kFromAnApplication;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
    xcb_send_event(server, 0, root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(server);
}

} // namespace brovin::desktop
