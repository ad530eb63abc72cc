#include "desktop/widgets/parts.h"
#include "desktop/window/pages/pages.h"

#include <QCheckBox>
#include <QDateTimeEdit>
#include <QFrame>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

namespace brovin::desktop {
namespace {

QWidget* divider(QWidget* page) {
    auto* line = new QFrame(page);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

} // namespace

QWidget* makeRemindersPage(ui::FrmOptions& form, QWidget* parent) {
    auto* page = new QWidget(parent);
    auto* layout = new QVBoxLayout(page);

    layout->addWidget(bound<QCheckBox>(form.chkBackup, page));
    auto* daily = bound<QRadioButton>(form.optDaily, page);
    auto* weekly = bound<QRadioButton>(form.optWeekly, page);
    auto* due = bound<QDateTimeEdit>(form.dtpBackup, page);
    layout->addLayout(row({daily, weekly, labelFor(due, form.lblBackup, page), due}));
    auto* reminder = bound<QPlainTextEdit>(form.txtReminder, page);
    reminder->setFixedHeight(reminder->fontMetrics().lineSpacing() * 4 + 10);
    layout->addWidget(reminder);
    layout->addLayout(row({bound<QPushButton>(form.cmdSpeak, page)}));
    layout->addWidget(bound<QCheckBox>(form.chkMsgBox, page));
    layout->addSpacing(8);
    layout->addWidget(divider(page));
    layout->addSpacing(8);

    layout->addWidget(bound<QCheckBox>(form.chkWord, page));
    auto* wordTime = bound<QDateTimeEdit>(form.dtpWord, page);
    layout->addLayout(row({labelFor(wordTime, form.lblWord, page), wordTime}));
    layout->addWidget(bound<QCheckBox>(form.chkWordMsgBox, page));
    layout->addStretch();
    return page;
}

} // namespace brovin::desktop
