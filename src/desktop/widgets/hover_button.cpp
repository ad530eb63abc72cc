#include "desktop/widgets/hover_button.h"

#include "desktop/widgets/bindings.h"
#include "desktop/widgets/pictures.h"
#include "desktop/widgets/text.h"

#include <QEnterEvent>
#include <QPointer>

namespace brovin::desktop {
namespace {
constexpr int kSide = 20; ///< of the picture
}

HoverButton::HoverButton(ui::Button& control, const ui::Window& window, QWidget* parent)
    : QPushButton(parent), control_(control), window_(window) {
    bind(this, control);
    setAutoDefault(false);
    setIconSize({kSide, kSide});
    const auto show = [shown = QPointer<HoverButton>(this)] {
        if (shown)
            shown->setIcon(picture(qt(shown->control_.picture()), kSide, shown->devicePixelRatioF()));
    };
    show();
    control.observe(show);
}

void HoverButton::enterEvent(QEnterEvent* event) {
    QPushButton::enterEvent(event);
    control_.mouseMove();
}

void HoverButton::leaveEvent(QEvent* event) {
    QPushButton::leaveEvent(event);
    window_.mouseMove();
}

} // namespace brovin::desktop
