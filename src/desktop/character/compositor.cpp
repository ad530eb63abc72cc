#include "desktop/character/compositor.h"

#include "desktop/x11/x11_desktop.h"

#include <QGuiApplication>

#include <xcb/xfixes.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <utility>

namespace brovin::desktop {
namespace {

/// A compositor announces itself first and takes over the windows then; until then they would be black around
/// the figure.
constexpr std::chrono::seconds kUntilItShows{10};

} // namespace

Compositor::Compositor(std::function<void()> changed) : changed_(std::move(changed)) {
    xcb_connection_t* const server = x11Connection();
    if (server == nullptr)
        return;
    selection_ = x11Atom("_NET_WM_CM_S0");
    const X11Reply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(server, xcb_get_selection_owner(server, selection_), nullptr),
        &std::free);
    blends_ = owner && owner->owner != XCB_WINDOW_NONE;
    const auto* const fixes = xcb_get_extension_data(server, &xcb_xfixes_id);
    if (fixes == nullptr || fixes->present == 0)
        return;
    // The server serves nobody who has not said which version he knows.
    const X11Reply<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(
            server, xcb_xfixes_query_version(server, XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION),
            nullptr),
        &std::free);
    event_ = static_cast<std::uint8_t>(fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY);
    xcb_xfixes_select_selection_input(server, xcb_setup_roots_iterator(xcb_get_setup(server)).data->root,
                                      selection_,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    begins_.setSingleShot(true);
    begins_.setInterval(kUntilItShows);
    QObject::connect(&begins_, &QTimer::timeout, [this] {
        blends_ = true;
        changed_();
    });
    qGuiApp->installNativeEventFilter(this);
}

Compositor::~Compositor() {
    if (event_ != 0 && qGuiApp != nullptr)
        qGuiApp->removeNativeEventFilter(this);
}

bool Compositor::nativeEventFilter(const QByteArray& kind, void* message, qintptr* /*result*/) {
    constexpr std::uint8_t kType = 0x7F; // the highest bit says who has sent it
    const auto* const event = static_cast<const xcb_generic_event_t*>(message);
    if (kind != "xcb_generic_event_t" || (event->response_type & kType) != event_)
        return false;
    const auto* const change = static_cast<const xcb_xfixes_selection_notify_event_t*>(message);
    if (change->selection != selection_)
        return false;
    if (change->owner != XCB_WINDOW_NONE) {
        if (!blends_)
            begins_.start();
        return false;
    }
    begins_.stop();
    if (std::exchange(blends_, false))
        changed_();
    return false;
}

} // namespace brovin::desktop
