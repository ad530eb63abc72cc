#include "desktop/window/starter_window.h"

#include "desktop/widgets/parts.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>

namespace brovin::desktop {
namespace {

constexpr QSize kStarterSize{660, 600};

QLabel* wrappedLabel(ui::Label& control, QWidget* page) {
    auto* label = bound<QLabel>(control, page);
    label->setWordWrap(true);
    return label;
}

void addHeading(QGridLayout* grid, ui::Label& control, QWidget* page) {
    QLabel* heading = wrappedLabel(control, page);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    grid->addWidget(heading, grid->rowCount(), 0, 1, 2);
}

void addRows(QGridLayout* grid, std::deque<ui::FrmStarter::Suggestion>& suggestions, QWidget* page) {
    for (ui::FrmStarter::Suggestion& suggestion : suggestions) {
        const int row = grid->rowCount();
        auto* box = bound<QCheckBox>(suggestion.chkName, page);
        QLabel* why = wrappedLabel(suggestion.lblWhy, page);
        box->setAccessibleDescription(why->text());
        grid->addWidget(box, row, 0, Qt::AlignTop);
        grid->addWidget(why, row, 1, Qt::AlignTop);
    }
}

} // namespace

StarterWindow::StarterWindow(ui::FrmStarter& form, QWidget* owner) : FormWindow(form.window, owner) {
    setModal(true);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(10);
    layout->addWidget(wrappedLabel(form.lblIntro, this));
    layout->addWidget(makeSuggestions(form), 1);
    layout->addWidget(wrappedLabel(form.lblTrash, this));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(bound<QPushButton>(form.cmdAddThese, this));
    buttons->addWidget(bound<QPushButton>(form.cmdClose, this));
    layout->addLayout(buttons);
    resize(kStarterSize.boundedTo(screen()->availableGeometry().size() * 9 / 10));
}

QWidget* StarterWindow::makeSuggestions(ui::FrmStarter& form) {
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    grid->setColumnStretch(1, 1);
    grid->setHorizontalSpacing(14);
    addHeading(grid, form.lblSafe, page);
    addRows(grid, form.safe, page);
    addHeading(grid, form.lblCaution, page);
    addRows(grid, form.caution, page);
    grid->setRowStretch(grid->rowCount(), 1);
    auto* scroller = new QScrollArea(this);
    scroller->setWidget(page);
    scroller->setWidgetResizable(true);
    scroller->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return scroller;
}

} // namespace brovin::desktop
