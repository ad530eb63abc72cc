#pragma once

#include <QAbstractNativeEventFilter>
#include <QIcon>
#include <QWidget>

#include <cstdint>
#include <functional>

struct xcb_connection_t;

namespace brovin::desktop {

/// Where the panel is that embeds icons: the freedesktop.org System Tray Protocol, _NET_SYSTEM_TRAY_S0. On a
/// desktop without X11 there is none.
class EmbeddingPanel final : public QAbstractNativeEventFilter {
public:
    EmbeddingPanel();
    ~EmbeddingPanel() override;
    EmbeddingPanel(const EmbeddingPanel&) = delete;
    EmbeddingPanel& operator=(const EmbeddingPanel&) = delete;

    /// One has come, or the one that was there at the last look has gone. Its icons are dead then.
    std::function<void()> changed;

    /// Looks whether there is one.
    [[nodiscard]] bool present();

    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;

private:
    [[nodiscard]] std::uint32_t named(const char* name) const;

    xcb_connection_t* server_ = nullptr; ///< null: no X11
    std::uint32_t root_ = 0;
    std::uint32_t tray_ = 0;    ///< the selection that such a panel owns
    std::uint32_t manager_ = 0; ///< the message by which it tells that it has come
    std::uint32_t panel_ = 0;   ///< its window at the last look; 0: none
};

/// The toolkit embeds a window by itself that has the name of its own icon's, and so does ours.
inline const QString kNameOfIcons = QStringLiteral("QSystemTrayIconSys");

/// The program's icon in such a panel, for as long as that lives.
class EmbeddedIcon final : public QWidget {
public:
    EmbeddedIcon(const QIcon& icon, const QString& tip);

    std::function<void()> activated;
    std::function<void(QPoint at)> menuWanted;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QIcon icon_;
};

} // namespace brovin::desktop
