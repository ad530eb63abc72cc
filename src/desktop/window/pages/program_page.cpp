#include "desktop/widgets/animation_label.h"
#include "desktop/widgets/parts.h"
#include "desktop/window/pages/pages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>

namespace brovin::desktop {

namespace {
constexpr int kPackAnimationHeight = 64;
}

QWidget* makeProgramPage(ui::FrmOptions& form, QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* layout = new QVBoxLayout(page);
    auto* languages = bound<QListWidget>(form.lstLang, page);
    layout->addWidget(labelFor(languages, form.lblLang, page));
    layout->addWidget(languages, 1);
    layout->addWidget(bound<QCheckBox>(form.chkStartWindows, page));
    layout->addLayout(row({bound<QCheckBox>(form.chkUpdate, page), bound<QComboBox>(form.cmbCheck, page)}));
    layout->addLayout(row({bound<QPushButton>(form.cmdUpdate, page),
                           new AnimationLabel(form.picAnim, kPackAnimationHeight, page)}));
    return page;
}

} // namespace brovin::desktop
