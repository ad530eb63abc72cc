#pragma once

#include <QAbstractNativeEventFilter>
#include <QTimer>

#include <cstdint>
#include <functional>

namespace brovin::desktop {

/// Whether the desktop blends windows with what is below them. Where it does not, half transparent pixels
/// come out dark. One that begins to blend is believed some seconds later, when it shows something. Told by
/// the X server when it changes, so that nobody need ask for each picture; elsewhere than on X11 all desktops
/// blend.
class Compositor final : public QAbstractNativeEventFilter {
public:
    /// `changed` is called behind each change.
    explicit Compositor(std::function<void()> changed);
    ~Compositor() override;
    Compositor(const Compositor&) = delete;
    Compositor& operator=(const Compositor&) = delete;

    [[nodiscard]] bool blends() const { return blends_; }

    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;

private:
    std::function<void()> changed_;
    std::uint32_t selection_ = 0; ///< whose owner the compositor is
    std::uint8_t event_ = 0;      ///< that tells of another owner; 0: nobody does
    bool blends_ = true;
    QTimer begins_;
};

} // namespace brovin::desktop
