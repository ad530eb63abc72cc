#include "desktop/widgets/list_with_hint.h"
#include "desktop/widgets/parts.h"
#include "desktop/widgets/text_line.h"
#include "desktop/window/pages/pages.h"

#include <QCheckBox>
#include <QPushButton>

namespace brovin::desktop {

QWidget* makeNastyFilesPage(ui::FrmOptions& form, QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* layout = new QVBoxLayout(page);
    auto* list = bound<QListWidget>(form.lstFiles, page);
    layout->addWidget(labelAbove(list, form.lblFiles, page));
    layout->addLayout(listWithHint(list, form.picAddFile), 1);
    QLabel* known = statusText(form.sbKnown, page);
    known->setMinimumHeight(3 * known->fontMetrics().lineSpacing()); // nothing moves from name to name
    known->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* knowing = new QHBoxLayout;
    knowing->addWidget(known, 1);
    knowing->addWidget(bound<QPushButton>(form.cmdStarter, page), 0, Qt::AlignTop);
    layout->addLayout(knowing);
    layout->addLayout(
        row({bound<QPushButton>(form.cmdAddFile, page), bound<QPushButton>(form.cmdRemoveFile, page)}));
    layout->addWidget(bound<QCheckBox>(form.chkDotDash, page));
    layout->addWidget(bound<QCheckBox>(form.chkIcon, page));
    layout->addWidget(bound<QCheckBox>(form.chkSpare, page));
    auto* keep = bound<QListWidget>(form.lstKeep, page);
    keep->setTextElideMode(Qt::ElideMiddle);
    constexpr int kLinesKept = 3;
    keep->setFixedHeight(kLinesKept * keep->fontMetrics().lineSpacing() + 2 * keep->frameWidth());
    layout->addWidget(labelAbove(keep, form.lblKeep, page));
    layout->addWidget(keep);
    layout->addLayout(
        row({bound<QPushButton>(form.cmdAddKeep, page), bound<QPushButton>(form.cmdRemoveKeep, page)}));
    return page;
}

} // namespace brovin::desktop
