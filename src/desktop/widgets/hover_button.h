#pragma once

#include "ui/controls.h"
#include "ui/window.h"

#include <QPushButton>

namespace brovin::desktop {

/// A push button whose picture changes under the mouse.
class HoverButton final : public QPushButton {
    Q_OBJECT
public:
    HoverButton(ui::Button& control, const ui::Window& window, QWidget* parent = nullptr);

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    ui::Button& control_;
    const ui::Window& window_;
};

} // namespace brovin::desktop
