#include "desktop/character/cut_out.h"

#include "desktop/x11/x11_desktop.h"

#include <QGuiApplication>

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

/// A frame may be gone by the time that this arrives. That is nobody's fault, and nobody is told.
void shape(xcb_connection_t* server, xcb_shape_kind_t kind, xcb_window_t window, QPoint at,
           const Rectangles& rectangles) {
    const auto sent =
        xcb_shape_rectangles_checked(server, XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_YX_BANDED, window,
                                     static_cast<std::int16_t>(at.x()), static_cast<std::int16_t>(at.y()),
                                     static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
    xcb_discard_reply(server, sent.sequence);
}

} // namespace

CutOut::CutOut(QWidget& window) : window_(window) {
    qGuiApp->installNativeEventFilter(this);
}

CutOut::~CutOut() {
    if (qGuiApp != nullptr)
        qGuiApp->removeNativeEventFilter(this);
}

void CutOut::apply(const QRegion& region, Cut cut, const std::function<void()>& paint) {
    xcb_connection_t* const server = x11Connection();
    if (server == nullptr) {
        static const QRegion nowhere(-1, -1, 1, 1); // an empty one would stand for the whole window
        window_.setMask(region.isEmpty() ? nowhere : region);
        paint();
        return;
    }
    const auto id = static_cast<xcb_window_t>(window_.winId());
    const Rectangles rectangles = rectanglesOf(region);
    clicks_ = cut == Cut::Clicks ? std::optional(region) : std::nullopt;
    if (cut == Cut::Clicks) {
        shape(server, XCB_SHAPE_SK_INPUT, id, {}, rectangles);
        paint();
    } else { // while one program holds the server, nobody sees what is between: for less than a millisecond
             // here
        xcb_grab_server(server);
        if (!layers_ || layers_->front().window != id)
            layers_ = askForLayers();
        // The window manager would give its frame the same shape as soon as it comes to it. Until then the
        // frame would cut off what the window has grown by, and show itself where the window has shrunk.
        for (const Layer& layer : *layers_)
            shape(server, XCB_SHAPE_SK_BOUNDING, layer.window, layer.inner, rectangles);
        paint();
        xcb_ungrab_server(server);
    }
    xcb_flush(server);
}

std::vector<CutOut::Layer> CutOut::askForLayers() const {
    xcb_connection_t* const server = x11Connection();
    std::vector<Layer> layers{{static_cast<xcb_window_t>(window_.winId()), {}}};
    for (;;) {
        const Layer inner = layers.back();
        const X11Reply<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(server, xcb_query_tree(server, inner.window), nullptr), &std::free);
        if (!tree || tree->parent == tree->root || tree->parent == XCB_WINDOW_NONE)
            return layers;
        const X11Reply<xcb_translate_coordinates_reply_t> moved(
            xcb_translate_coordinates_reply(
                server, xcb_translate_coordinates(server, inner.window, tree->parent, 0, 0), nullptr),
            &std::free);
        if (!moved)
            return layers;
        layers.push_back({tree->parent, inner.inner + QPoint(moved->dst_x, moved->dst_y)});
    }
}

void CutOut::makeWhole() {
    xcb_connection_t* const server = x11Connection();
    if (server == nullptr)
        return;
    clicks_.reset();
    for (const xcb_shape_kind_t kind : {XCB_SHAPE_SK_BOUNDING, XCB_SHAPE_SK_INPUT})
        xcb_shape_mask(server, XCB_SHAPE_SO_SET, kind, static_cast<xcb_window_t>(window_.winId()), 0, 0,
                       XCB_PIXMAP_NONE);
}

/// What a new frame lets through some window managers learn from a change alone: one that was too busy to see
/// the change leaves the frame whole, and it swallows the clicks beside the character.
void CutOut::isFramed(std::uint32_t window) const {
    if (!clicks_ || window != window_.internalWinId())
        return;
    xcb_connection_t* const server = x11Connection();
    shape(server, XCB_SHAPE_SK_INPUT, window, {}, rectanglesOf(*clicks_));
    xcb_flush(server);
}

/// Another frame, or another place in it. A move of the whole looks the same, and costs a question.
bool CutOut::nativeEventFilter(const QByteArray& kind, void* message, qintptr* /*result*/) {
    constexpr std::uint8_t kType = 0x7F; // the highest bit says who has sent it
    if (kind != "xcb_generic_event_t")
        return false;
    const int type = static_cast<const xcb_generic_event_t*>(message)->response_type & kType;
    std::uint32_t changed = XCB_WINDOW_NONE;
    if (type == XCB_REPARENT_NOTIFY) {
        changed = static_cast<const xcb_reparent_notify_event_t*>(message)->window;
        isFramed(changed);
    } else if (type == XCB_CONFIGURE_NOTIFY) {
        changed = static_cast<const xcb_configure_notify_event_t*>(message)->window;
    }
    if (layers_ && changed == layers_->front().window)
        layers_.reset();
    return false;
}

} // namespace brovin::desktop
