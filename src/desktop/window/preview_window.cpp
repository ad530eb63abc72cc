#include "desktop/window/preview_window.h"

#include "desktop/widgets/parts.h"
#include "desktop/widgets/table_view.h"
#include "desktop/widgets/text.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScreen>

namespace brovin::desktop {
namespace {

constexpr QSize kPreviewSize{980, 640};
/// Of the columns, as shares of the table's width; the last one takes what is left.
constexpr double kColumnShares[] = {0.18, 0.27, 0.20, 0.08, 0.09};

QPushButton* plainButton(ui::Button& control, QWidget* page) {
    auto* button = bound<QPushButton>(control, page);
    button->setAutoDefault(false); // Enter belongs to the table and the filter
    return button;
}

} // namespace

PreviewWindow::PreviewWindow(ui::FrmPreview& form, QWidget* owner)
    : FormWindow(form.window, owner), form_(form) {
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    // On a small screen it leaves the corners to a character, which would stand on its buttons.
    resize(kPreviewSize.boundedTo(screen()->availableGeometry().size() * 3 / 4));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(makeHead());
    layout->addWidget(makeTable(), 1);
    auto* lost = bound<QLabel>(form.lblLost, this);
    lost->setWordWrap(true);
    lost->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lost->setMinimumHeight(2 * lost->fontMetrics().lineSpacing()); // nothing moves from line to line
    layout->addWidget(lost);
    layout->addLayout(row({plainButton(form.cmdKeepThis, this), plainButton(form.cmdKeepName, this),
                           plainButton(form.cmdKeepFolder, this), plainButton(form.cmdOpenFolder, this)}));
    layout->addLayout(makeFoot());
}

QLayout* PreviewWindow::makeHead() {
    auto* filter = bound<QLineEdit>(form_.txtFilter, this);
    auto* group = bound<QComboBox>(form_.cmbGroup, this);
    auto* head = new QHBoxLayout;
    head->addWidget(labelFor(filter, form_.lblFilter, this));
    head->addWidget(filter, 1);
    head->addWidget(labelFor(group, form_.lblGroup, this));
    head->addWidget(group);
    head->addWidget(plainButton(form_.cmdTickAll, this));
    head->addWidget(plainButton(form_.cmdTickNone, this));
    return head;
}

QTableView* PreviewWindow::makeTable() {
    auto* table = new TableView(form_.tblFound, this);
    for (int column = 0; column < static_cast<int>(std::size(kColumnShares)); ++column)
        table->setColumnWidth(column, static_cast<int>(width() * kColumnShares[column]));
    table->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(table, &QTableView::customContextMenuRequested, this,
            [this, table](QPoint place) { showMenu(table->viewport()->mapToGlobal(place)); });
    return table;
}

QLayout* PreviewWindow::makeFoot() {
    auto* found = bound<QLabel>(form_.lblFound, this);
    found->setWordWrap(true);
    auto* foot = new QHBoxLayout;
    foot->addWidget(found, 1);
    for (ui::Button* button : {&form_.cmdStop, &form_.cmdSearchAgain, &form_.cmdDeleteThese, &form_.cmdClose})
        foot->addWidget(plainButton(*button, this));
    return foot;
}

void PreviewWindow::showMenu(QPoint place) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (ui::Button* button :
         {&form_.cmdKeepThis, &form_.cmdKeepName, &form_.cmdKeepFolder, &form_.cmdOpenFolder}) {
        QAction* action = menu->addAction(qt(button->caption()));
        action->setEnabled(button->enabled());
        // When the menu is through with its click: it must not go while the program lets events through.
        connect(
            action, &QAction::triggered, this, [button] { button->click(); }, Qt::QueuedConnection);
    }
    menu->popup(place);
}

} // namespace brovin::desktop
