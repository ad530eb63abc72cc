#include "desktop/widgets/frequency_slider.h"
#include "desktop/widgets/gallery_view.h"
#include "desktop/widgets/parts.h"
#include "desktop/window/pages/pages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>

namespace brovin::desktop {

QWidget* makeCharacterPage(ui::FrmOptions& form, QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(bound<QCheckBox>(form.chkAgent, page));
    auto* none = bound<QLabel>(form.lblNoAgent, page);
    none->setWordWrap(true);
    layout->addWidget(none);
    auto* characters = bound<GalleryView>(form.lstChars, page);
    layout->addWidget(labelFor(characters, form.lblChars, page));
    layout->addWidget(characters, 1);
    auto* below = row({bound<QPushButton>(form.cmdCheckChars, page)});
    auto* size = bound<QComboBox>(form.cmbSize, page);
    below->addWidget(labelFor(size, form.lblSize, page));
    below->addWidget(size);
    layout->addLayout(below);
    auto* user = bound<QLineEdit>(form.txtUser, page);
    auto* naming = new QHBoxLayout;
    naming->addWidget(labelFor(user, form.lblUser, page));
    naming->addWidget(user, 1);
    layout->addLayout(naming);
    layout->addWidget(bound<QCheckBox>(form.chkDude, page));
    auto* sex = bound<QComboBox>(form.cmbDudeSex, page);
    layout->addLayout(row({labelFor(sex, form.lblDudeSex, page), sex}));

    auto* frequency = bound<QGroupBox>(form.frmFreq, page);
    auto* sliding = new QVBoxLayout(frequency);
    sliding->addWidget(new FrequencySlider(form.picSlide, form.frmFreq, frequency));
    auto* note = bound<QLabel>(form.lblFreq, frequency);
    note->setWordWrap(true);
    sliding->addWidget(note);
    layout->addWidget(frequency);
    return page;
}

} // namespace brovin::desktop
