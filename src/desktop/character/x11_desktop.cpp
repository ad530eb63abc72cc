#include "desktop/character/x11_desktop.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace brovin::desktop {
namespace {

constexpr std::uint32_t kAdd = 1; ///< Extended Window Manager Hints, _NET_WM_STATE
constexpr std::uint32_t kFromApplication = 1;

template <class T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

/// Null: the program does not run on X11.
xcb_connection_t* connection() {
    auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

xcb_atom_t atom(xcb_connection_t* server, std::string_view name) {
    const auto asked = xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server, asked, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace

bool desktopBlends() {
    xcb_connection_t* const server = connection();
    if (server == nullptr)
        return true;
    const auto asked = xcb_get_selection_owner(server, atom(server, "_NET_WM_CM_S0"));
    const Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(server, asked, nullptr),
                                                       &std::free);
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void keepOnTopAndOffTaskBar(const QWidget& window) {
    xcb_connection_t* const server = connection();
    if (server == nullptr)
        return;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
    for (const char* const state :
         {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"}) {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = static_cast<xcb_window_t>(window.winId());
        message.type = atom(server, "_NET_WM_STATE");
        message.data.data32[0] = kAdd;
        message.data.data32[1] = atom(server, state);
        message.data.data32[3] = kFromApplication;
        xcb_send_event(server, 0, root,
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&message));
    }
    xcb_flush(server);
}

} // namespace brovin::desktop
