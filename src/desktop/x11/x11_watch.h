#pragma once

#include <QAbstractNativeEventFilter>

#include <xcb/xcb.h>

#include <cstdint>

namespace brovin::desktop {

/// Hears what the X server tells the program, as long as it lives. Elsewhere than on X11 it hears nothing.
class X11Watch : public QAbstractNativeEventFilter {
public:
    X11Watch(const X11Watch&) = delete;
    X11Watch& operator=(const X11Watch&) = delete;

    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) final;

protected:
    X11Watch();

    /// `type` is that of the event, whoever has sent it. The toolkit hears of it too.
    virtual void hear(const xcb_generic_event_t& event, std::uint8_t type) = 0;

    /// Null: the program does not run on X11.
    [[nodiscard]] xcb_connection_t* server() const { return server_; }

private:
    xcb_connection_t* server_;
};

} // namespace brovin::desktop
