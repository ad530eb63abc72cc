#include "desktop/widgets/parts.h"
#include "desktop/window/pages/pages.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace brovin::desktop {

QWidget* makeSpeechPage(ui::FrmOptions& form, QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* layout = new QVBoxLayout(page);

    auto* text = bound<QLineEdit>(form.txtSay, page);
    layout->addWidget(labelFor(text, form.lblSay, page));
    auto* saying = new QHBoxLayout;
    saying->addWidget(text, 1);
    saying->addWidget(bound<QPushButton>(form.cmdSay, page));
    layout->addLayout(saying);

    auto* animations = bound<QListWidget>(form.lstAnims, page);
    layout->addWidget(labelFor(animations, form.lblDo, page));
    auto* doing = new QHBoxLayout;
    doing->addWidget(animations, 1);
    doing->addWidget(bound<QPushButton>(form.cmdDo, page), 0, Qt::AlignTop);
    layout->addLayout(doing, 1);
    layout->addLayout(
        row({bound<QPushButton>(form.cmdRepeat, page), bound<QPushButton>(form.cmdStop, page)}));
    return page;
}

} // namespace brovin::desktop
