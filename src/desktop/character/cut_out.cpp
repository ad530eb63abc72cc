#include "desktop/character/cut_out.h"

#include "desktop/x11/x11_desktop.h"

#include <xcb/shape.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

namespace brovin::desktop {
namespace {

using Rectangles = std::vector<xcb_rectangle_t>;

Rectangles rectanglesOf(const QRegion& region) {
    Rectangles rectangles;
    for (const QRect& rect : region)
        rectangles.push_back({static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
                              static_cast<std::uint16_t>(rect.width()),
                              static_cast<std::uint16_t>(rect.height())});
    return rectangles;
}

void shape(xcb_connection_t* server, xcb_shape_kind_t kind, xcb_window_t window, QPoint at,
           const Rectangles& rectangles) {
    xcb_shape_rectangles(server, XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_YX_BANDED, window,
                         static_cast<std::int16_t>(at.x()), static_cast<std::int16_t>(at.y()),
                         static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
}

/// The window manager would give its frame the same shape as soon as it comes to it. Until then the frame
/// would cut off what the window has grown by, and show itself where the window has shrunk.
void shapeWithFrames(xcb_connection_t* server, xcb_window_t window, const Rectangles& rectangles) {
    QPoint at;
    for (;;) {
        shape(server, XCB_SHAPE_SK_BOUNDING, window, at, rectangles);
        const X11Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(server, xcb_query_tree(server, window), nullptr), &std::free);
        if (!tree || tree->parent == tree->root || tree->parent == XCB_WINDOW_NONE)
            return;
        const X11Reply<xcb_translate_coordinates_reply_t> moved(
            xcb_translate_coordinates_reply(
                server, xcb_translate_coordinates(server, window, tree->parent, 0, 0), nullptr),
            &std::free);
        if (!moved)
            return;
        at += QPoint(moved->dst_x, moved->dst_y);
        window = tree->parent;
    }
}

} // namespace

void cutOut(QWidget& window, const QRegion& region, Cut cut, const std::function<void()>& paint) {
    xcb_connection_t* const server = x11Connection();
    if (server == nullptr) {
        static const QRegion nowhere(-1, -1, 1, 1); // an empty one would stand for the whole window
        window.setMask(region.isEmpty() ? nowhere : region);
        paint();
        return;
    }
    const auto id = static_cast<xcb_window_t>(window.winId());
    const Rectangles rectangles = rectanglesOf(region);
    if (cut == Cut::Clicks) {
        shape(server, XCB_SHAPE_SK_INPUT, id, {}, rectangles);
        paint();
    } else { // while one program holds the server, nobody sees what is between: for less than a millisecond
             // here
        xcb_grab_server(server);
        shapeWithFrames(server, id, rectangles);
        paint();
        xcb_ungrab_server(server);
    }
    xcb_flush(server);
}

void makeWhole(const QWidget& window) {
    xcb_connection_t* const server = x11Connection();
    if (server == nullptr)
        return;
    for (const xcb_shape_kind_t kind : {XCB_SHAPE_SK_BOUNDING, XCB_SHAPE_SK_INPUT})
        xcb_shape_mask(server, XCB_SHAPE_SO_SET, kind, static_cast<xcb_window_t>(window.winId()), 0, 0,
                       XCB_PIXMAP_NONE);
}

} // namespace brovin::desktop
