#pragma once

#include "ui/controls.h"

#include <QLabel>
#include <QTimer>

namespace brovin::desktop {

/// The status bar's text in one line, shortened in the middle where it is too long. A text that changes a
/// thousand times a second is shown as often as an eye can follow.
class StatusLine final : public QLabel {
    Q_OBJECT
public:
    explicit StatusLine(ui::StatusBar& control, QWidget* parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }
    [[nodiscard]] QSize sizeHint() const override { return {200, QLabel::sizeHint().height()}; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showText();

    ui::StatusBar& control_;
    QTimer pending_;
};

} // namespace brovin::desktop
