#pragma once

#include "ui/controls.h"

#include <QAbstractButton>

namespace brovin::desktop {

/// A picture from the program's drawings, which may be clicked, also from the keyboard.
class PictureLabel final : public QAbstractButton {
    Q_OBJECT
public:
    /// `height` of the picture in device-independent pixels.
    PictureLabel(ui::Image& control, int height, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ui::Image& control_;
    int height_;
};

} // namespace brovin::desktop
