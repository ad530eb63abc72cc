#pragma once

#include "ui/controls.h"
#include "ui/slider.h"

#include <QAbstractSlider>

namespace brovin::desktop {

/// The slider that says how often the character speaks: a track, a coloured fill and a knob. It draws what
/// the program says and hands it the mouse; keys, the wheel and screen readers reach it as any slider.
class FrequencySlider final : public QAbstractSlider {
    Q_OBJECT
public:
    FrequencySlider(ui::Slider& control, ui::Panel& frame, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] QRectF trackPlace() const;
    [[nodiscard]] QRectF knobPlace() const;
    [[nodiscard]] QColor fillColour() const;
    void drawTrack(QPainter& painter) const;
    void drawKnob(QPainter& painter) const;

    ui::Slider& control_;
    ui::Panel& frame_;
    bool onKnob_ = false; ///< the button went down on the knob
};

} // namespace brovin::desktop
