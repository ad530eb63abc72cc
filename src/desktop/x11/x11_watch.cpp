#include "desktop/x11/x11_watch.h"

#include "desktop/x11/x11_desktop.h"

#include <QGuiApplication>

namespace brovin::desktop {

X11Watch::X11Watch() : server_(x11Connection()) {
    if (server_ != nullptr)
        qGuiApp->installNativeEventFilter(this); // which ends with the filter
}

bool X11Watch::nativeEventFilter(const QByteArray& kind, void* message, qintptr* /*result*/) {
    if (kind != "xcb_generic_event_t")
        return false;
    constexpr std::uint8_t kType = 0x7F; // the highest bit says who has sent it
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    hear(event, event.response_type & kType);
    return false;
}

} // namespace brovin::desktop
