#include "desktop/widgets/parts.h"
#include "desktop/widgets/text_line.h"
#include "desktop/window/pages/pages.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>

namespace brovin::desktop {

QWidget* makeScanningPage(ui::FrmOptions& form, QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* layout = new QVBoxLayout(page);

    auto* deleting = bound<QGroupBox>(form.frmDeleting, page);
    auto* choices = new QVBoxLayout(deleting);
    choices->addWidget(bound<QCheckBox>(form.chkConfirm, deleting));
    choices->addWidget(bound<QCheckBox>(form.chkForce, deleting));
    choices->addWidget(bound<QCheckBox>(form.chkTrash, deleting));
    choices->addWidget(bound<QCheckBox>(form.chkIgnoreErrors, deleting));
    layout->addWidget(deleting);

    auto* log = bound<QGroupBox>(form.frmLog, page);
    auto* logging = new QVBoxLayout(log);
    logging->addWidget(bound<QCheckBox>(form.chkLog, log));
    // Two beside each other at most: captions may be long, and letters large.
    logging->addLayout(
        row({bound<QPushButton>(form.cmdInspect, log), bound<QPushButton>(form.cmdEmpty, log)}));
    logging->addLayout(row({bound<QPushButton>(form.cmdSearchLog, log)}));
    layout->addWidget(log);

    auto* numbers = bound<QGroupBox>(form.frmNumbers, page);
    auto* counting = new QVBoxLayout(numbers);
    counting->addWidget(statisticsLine(form.sbScore, numbers));
    counting->addLayout(row({bound<QPushButton>(form.cmdScore, numbers)}));
    counting->addLayout(row({bound<QPushButton>(form.cmdResetCounter, numbers),
                             bound<QPushButton>(form.cmdCopyNumbers, numbers)}));
    layout->addWidget(numbers);
    layout->addStretch();
    return page;
}

} // namespace brovin::desktop
