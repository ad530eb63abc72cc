#include "desktop/machine/embedded_icon.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace brovin::desktop {
namespace {

template <class T>
using TrayReply = std::unique_ptr<T, decltype(&std::free)>;

} // namespace

EmbeddingPanel::EmbeddingPanel() {
    auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr)
        return;
    server_ = x11->connection();
    root_ = xcb_setup_roots_iterator(xcb_get_setup(server_)).data->root;
    tray_ = named("_NET_SYSTEM_TRAY_S0");
    manager_ = named("MANAGER");
    qGuiApp->installNativeEventFilter(this); // the toolkit hears of such panels itself
}

EmbeddingPanel::~EmbeddingPanel() {
    if (server_ != nullptr && qGuiApp != nullptr)
        qGuiApp->removeNativeEventFilter(this);
}

std::uint32_t EmbeddingPanel::named(const char* name) const {
    const auto asked = xcb_intern_atom(server_, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const TrayReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server_, asked, nullptr),
                                                   &std::free);
    return reply ? reply->atom : 0;
}

bool EmbeddingPanel::present() {
    if (server_ == nullptr)
        return false;
    const auto asked = xcb_get_selection_owner(server_, tray_);
    const TrayReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(server_, asked, nullptr), &std::free);
    panel_ = reply ? reply->owner : 0;
    return panel_ != 0;
}

bool EmbeddingPanel::nativeEventFilter(const QByteArray& kind, void* message, qintptr* /*result*/) {
    constexpr std::uint8_t kType = 0x7F; // the highest bit says who has sent it
    if (kind != "xcb_generic_event_t")
        return false;
    const std::uint8_t type = static_cast<const xcb_generic_event_t*>(message)->response_type & kType;
    bool news = false;
    if (type == XCB_CLIENT_MESSAGE) {
        const auto* const told = static_cast<const xcb_client_message_event_t*>(message);
        news = told->window == root_ && told->type == manager_ && told->data.data32[1] == tray_;
    } else if (type == XCB_DESTROY_NOTIFY) {
        const auto* const gone = static_cast<const xcb_destroy_notify_event_t*>(message);
        news = panel_ != 0 && gone->window == panel_;
    }
    if (news && changed)
        changed();
    return false;
}

EmbeddedIcon::EmbeddedIcon(const QIcon& icon, const QString& tip)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint), icon_(icon) {
    constexpr int kUsualIcon = 22; // pixels; a panel makes it fit
    setObjectName(kNameOfIcons);
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_AlwaysShowToolTips);
    setAttribute(Qt::WA_QuitOnClose, false);
    setToolTip(tip);
    setGeometry(0, 0, kUsualIcon, kUsualIcon);
    setMinimumSize(kUsualIcon, kUsualIcon);
    createWinId();
    show();
}

void EmbeddedIcon::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    icon_.paint(&painter, rect());
}

void EmbeddedIcon::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && activated)
        activated();
    else if (event->button() == Qt::RightButton && menuWanted)
        menuWanted(event->globalPosition().toPoint());
}

} // namespace brovin::desktop
