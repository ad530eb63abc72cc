#include "desktop/widgets/parts.h"
#include "desktop/window/pages/pages.h"

#include <QCheckBox>
#include <QDateTimeEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>

namespace brovin::desktop {
namespace {

QWidget* makeVolume(ui::FrmOptions& form, QWidget* page) {
    auto* frame = bound<QGroupBox>(form.frmVolume, page);
    auto* layout = new QGridLayout(frame);
    const auto addRow = [&](int at, ui::Label& label, ui::Volume& volume, ui::CheckBox& mute) {
        auto* slider = bound<QSlider>(volume, frame);
        layout->addWidget(labelFor(slider, label, frame), at, 0);
        layout->addWidget(slider, at, 1);
        layout->addWidget(bound<QCheckBox>(mute, frame), at, 2);
    };
    addRow(0, form.lblVoice, form.sldVoice, form.chkMuteVoice);
    addRow(1, form.lblSounds, form.sldSounds, form.chkMuteSounds);
    layout->addWidget(bound<QCheckBox>(form.chkReadOut, frame), 2, 0, 1, 3);
    return frame;
}

QWidget* makeQuiet(ui::FrmOptions& form, QWidget* page) {
    auto* frame = bound<QGroupBox>(form.frmQuiet, page);
    auto* layout = new QVBoxLayout(frame);
    auto* hours = bound<QCheckBox>(form.chkQuietHours, frame);
    auto* from = bound<QDateTimeEdit>(form.dtpQuietFrom, frame);
    auto* to = bound<QDateTimeEdit>(form.dtpQuietTo, frame);
    layout->addLayout(row({hours, from, labelFor(to, form.lblQuietTo, frame), to}));
    for (ui::CheckBox* reason : {&form.chkQuietFullScreen, &form.chkQuietLocked, &form.chkQuietDesktop})
        layout->addWidget(bound<QCheckBox>(*reason, frame));
    auto* now = bound<QLabel>(form.lblQuiet, frame);
    now->setWordWrap(true);
    layout->addWidget(now);
    return frame;
}

} // namespace

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
    layout->addWidget(makeVolume(form, page));
    layout->addWidget(makeQuiet(form, page));
    return page;
}

} // namespace brovin::desktop
