#pragma once

#include <QAbstractNativeEventFilter>
#include <QPoint>
#include <QRegion>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace brovin::desktop {

/// What a shape does to a window.
enum class Cut : std::uint8_t {
    Sight, ///< nothing of the window is beyond it, neither to be seen nor to be clicked
    Clicks ///< what is beyond it is seen as it is painted, and clicks there reach what lies below
};

/// The shape of a window.
class CutOut final : public QAbstractNativeEventFilter {
public:
    explicit CutOut(QWidget& window);
    ~CutOut() override;
    CutOut(const CutOut&) = delete;
    CutOut& operator=(const CutOut&) = delete;

    /// Gives the window its shape, in pixels of the screen, and has it painted by `paint`: on the screen both
    /// change at once, whoever looks, the window manager's own frame around the window included. An empty
    /// shape stands for none of the window.
    void apply(const QRegion& shape, Cut cut, const std::function<void()>& paint);

    /// Takes from the window the shapes that it was given.
    void makeWhole();

    bool nativeEventFilter(const QByteArray& kind, void* message, qintptr* result) override;

private:
    /// A window with the place in it of the one that is to be cut out.
    struct Layer {
        std::uint32_t window;
        QPoint inner;
    };
    [[nodiscard]] std::vector<Layer> askForLayers() const;
    void isFramed(std::uint32_t window) const;

    QWidget& window_;
    /// The shape that clicks have been given; nullopt: none but that of sight.
    std::optional<QRegion> clicks_;
    /// The window itself, and what the window manager has put around it, from within. Asked for once, since
    /// each answer wakes up two threads; nullopt: it has changed something since.
    std::optional<std::vector<Layer>> layers_;
};

} // namespace brovin::desktop
