#include "desktop/character/window_below.h"

#include "desktop/character/overlay_window.h"
#include "desktop/x11/x11_desktop.h"

#include <QScreen>

#include <xcb/xcb.h>

#include <algorithm>
#include <span>
#include <vector>

namespace brovin::desktop {
namespace {

constexpr std::uint32_t kMostWindows = 256;

/// What the window manager manages, the topmost last: Extended Window Manager Hints.
std::vector<xcb_window_t> stacking(xcb_connection_t* server, xcb_window_t root) {
    static const xcb_atom_t list = x11Atom("_NET_CLIENT_LIST_STACKING");
    const auto asked = xcb_get_property(server, 0, root, list, XCB_ATOM_WINDOW, 0, kMostWindows);
    const X11Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(server, asked, nullptr),
                                                   &std::free);
    if (!reply || reply->format != 32)
        return {};
    const auto* const first = static_cast<const xcb_window_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

struct Question {
    xcb_window_t window;
    xcb_get_window_attributes_cookie_t attributes;
    xcb_get_geometry_cookie_t size;
    xcb_translate_coordinates_cookie_t corner;
};

/// nullopt: it is minimised, or gone meanwhile.
std::optional<QRect> answer(xcb_connection_t* server, const Question& asked) {
    const X11Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(server, asked.attributes, nullptr), &std::free);
    const X11Reply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(server, asked.size, nullptr),
                                                  &std::free);
    const X11Reply<xcb_translate_coordinates_reply_t> corner(
        xcb_translate_coordinates_reply(server, asked.corner, nullptr), &std::free);
    if (!attributes || !size || !corner || attributes->map_state != XCB_MAP_STATE_VIEWABLE)
        return std::nullopt;
    return QRect(corner->dst_x, corner->dst_y, size->width, size->height);
}

/// From the server's pixels to those in which the toolkit counts.
QRect scaled(const QRect& native, const QWidget& asking) {
    const qreal factor = asking.devicePixelRatioF();
    const QPoint origin = asking.screen()->geometry().topLeft();
    return QRectF(QPointF(native.topLeft() - origin) / factor + origin, QSizeF(native.size()) / factor)
        .toRect();
}

} // namespace

std::optional<QRect> windowBelow(QPoint place, const QWidget& asking) {
    xcb_connection_t* const server = x11Connection();
    if (server == nullptr)
        return std::nullopt;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
    std::vector<Question> questions;
    for (const xcb_window_t window : stacking(server, root))
        questions.push_back({window, xcb_get_window_attributes(server, window),
                             xcb_get_geometry(server, window),
                             xcb_translate_coordinates(server, window, root, 0, 0)});
    std::optional<QRect> topmost;
    for (const Question& question : questions) { // all of them, since each answer is to be fetched
        const auto found = answer(server, question);
        if (!found || dynamic_cast<const OverlayWindow*>(QWidget::find(question.window)) != nullptr)
            continue;
        const QRect window = scaled(*found, asking);
        if (window.contains(place))
            topmost = window.contains(asking.screen()->geometry()) ? std::nullopt : std::optional(window);
    }
    return topmost;
}

} // namespace brovin::desktop
