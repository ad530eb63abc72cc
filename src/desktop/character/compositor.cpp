#include "desktop/character/compositor.h"

#include "desktop/x11/x11_desktop.h"

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
    if (server() == nullptr)
        return;
    selection_ = x11Atom("_NET_WM_CM_S0");
    const X11Reply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(server(), xcb_get_selection_owner(server(), selection_), nullptr),
        &std::free);
    blends_ = owner && owner->owner != XCB_WINDOW_NONE;
    const auto* const fixes = xcb_get_extension_data(server(), &xcb_xfixes_id);
    if (fixes == nullptr || fixes->present == 0)
        return;
    // The server serves nobody who has not said which version he knows.
    const X11Reply<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(
            server(), xcb_xfixes_query_version(server(), XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION),
            nullptr),
        &std::free);
    event_ = static_cast<std::uint8_t>(fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY);
    xcb_xfixes_select_selection_input(server(), x11Root(), selection_,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    begins_.setSingleShot(true);
    begins_.setInterval(kUntilItShows);
    QObject::connect(&begins_, &QTimer::timeout, [this] {
        blends_ = true;
        changed_();
    });
}

void Compositor::hear(const xcb_generic_event_t& event, std::uint8_t type) {
    const auto& change = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
    if (event_ == 0 || type != event_ || change.selection != selection_)
        return;
    if (change.owner != XCB_WINDOW_NONE) {
        if (!blends_)
            begins_.start();
        return;
    }
    begins_.stop();
    if (std::exchange(blends_, false))
        changed_();
}

} // namespace brovin::desktop
