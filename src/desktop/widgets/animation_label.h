#pragma once

#include "desktop/widgets/movie.h"
#include "ui/controls.h"

#include <QTimer>
#include <QWidget>

namespace brovin::desktop {

/// Shows a moving picture that runs in a loop while its control says so. A file that cannot be played shows
/// nothing and takes no room.
class AnimationLabel final : public QWidget {
    Q_OBJECT
public:
    /// `height` of the picture in device-independent pixels.
    AnimationLabel(ui::Animation& control, int height, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    [[nodiscard]] int frame() const { return frame_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void follow();

    ui::Animation& control_;
    int height_;
    std::string file_;
    Movie movie_;
    int frame_ = 0;
    QTimer timer_;
};

} // namespace brovin::desktop
