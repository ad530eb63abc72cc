#include "desktop/widgets/link_label.h"

#include "desktop/widgets/bindings.h"
#include "desktop/widgets/text.h"

#include <QEvent>
#include <QPointer>

namespace brovin::desktop {

LinkLabel::LinkLabel(ui::Label& control, QWidget* parent) : QLabel(parent), control_(control) {
    bindCommon(this, control);
    setTextFormat(Qt::RichText);
    setTextInteractionFlags(Qt::LinksAccessibleByKeyboard | Qt::LinksAccessibleByMouse);
    showText();
    control.observe([shown = QPointer<LinkLabel>(this)] {
        if (shown)
            shown->showText();
    });
    connect(this, &QLabel::linkActivated, [&control] { control.click(); });
}

void LinkLabel::showText() {
    setText(QStringLiteral("<a href='#' style='color:%1'>%2</a>")
                .arg(palette().color(QPalette::Link).name(),
                     withoutMnemonic(qt(control_.caption())).toHtmlEscaped()));
}

void LinkLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) // the text keeps the colour that it was made with
        showText();
}

} // namespace brovin::desktop
