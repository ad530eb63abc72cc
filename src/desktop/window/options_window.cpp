#include "desktop/window/options_window.h"

#include "desktop/character/company.h"
#include "desktop/widgets/bindings.h"
#include "desktop/widgets/hover_button.h"
#include "desktop/widgets/page_scroller.h"
#include "desktop/widgets/parts.h"
#include "desktop/widgets/pictures.h"
#include "desktop/widgets/status_line.h"
#include "desktop/widgets/tab_button.h"
#include "desktop/widgets/text.h"
#include "desktop/window/pages/pages.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QFrame>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QStyle>

namespace brovin::desktop {
namespace {

using MakePage = QWidget* (*)(ui::FrmOptions&, QWidget*);
constexpr MakePage kPages[ui::FrmOptions::kTabs] = {
    makeFoldersPage, makeNastyFilesPage, makeScanningPage, makeCharacterPage,
    makeSpeechPage,  makeRemindersPage,  makeProgramPage,  makeAboutPage,
};

void nameAfterTab(QWidget* page, ui::Label& tab) {
    const auto name = [shown = QPointer<QWidget>(page), &tab] {
        if (shown)
            shown->setAccessibleName(qt(tab.caption()));
    };
    name();
    tab.observe(name);
}

/// What a window manager puts around a window, as near as can be told before there is one.
QSize decorationOf(const QWidget& window) {
    const int edge = window.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    return {2 * edge, 2 * edge + window.style()->pixelMetric(QStyle::PM_TitleBarHeight)};
}

} // namespace

OptionsWindow::OptionsWindow(ui::FrmOptions& form) : form_(form) {
    setObjectName(qt(form.window.name()));
    minimiseSoon_.setSingleShot(true);
    connect(&minimiseSoon_, &QTimer::timeout, this, &OptionsWindow::minimise);
    followWindow();
    form.window.observe([shown = QPointer<OptionsWindow>(this)] {
        if (shown)
            shown->followWindow();
    });
}

void OptionsWindow::furnish() {
    if (layout() != nullptr)
        return;
    setWindowIcon(programIcon());
    auto* all = new QVBoxLayout(this);
    auto* upper = new QHBoxLayout;
    upper->addWidget(makeTabs());
    upper->addWidget(makePages(), 1);
    all->addLayout(upper, 1);
    all->addLayout(makeBottom());
}

QWidget* OptionsWindow::makeTabs() {
    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (std::size_t i = 0; i < ui::FrmOptions::kTabs; ++i)
        layout->addWidget(new TabButton(form_, i, column));
    layout->addStretch();
    return column;
}

QWidget* OptionsWindow::makePages() {
    auto* frame = new QFrame(this);
    frame->setFrameShape(QFrame::StyledPanel);
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* pages = new QStackedWidget(frame);
    layout->addWidget(pages);
    for (std::size_t i = 0; i < ui::FrmOptions::kTabs; ++i) {
        QWidget* page = kPages[i](form_, pages);
        page->setObjectName(qt(form_.picTab[i].name()));
        nameAfterTab(page, form_.lblTabs[i]);
        pages->addWidget(new PageScroller(page, pages));
        const auto show = [stack = QPointer<QStackedWidget>(pages), &panel = form_.picTab[i], i] {
            if (stack && panel.visible())
                stack->setCurrentIndex(static_cast<int>(i));
        };
        show();
        form_.picTab[i].observe(show);
    }
    return frame;
}

/// Keeps its place while no scan runs: nothing moves when one begins.
QWidget* OptionsWindow::makeProgress() {
    auto* progress = new QWidget(this);
    auto* layout = new QHBoxLayout(progress);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new StatusLine(form_.sbProgress, progress), 1);
    layout->addWidget(bound<QPushButton>(form_.cmdStopScan, progress));
    return progress;
}

QLayout* OptionsWindow::makeBottom() {
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(makeProgress(), 1);
    buttons->addWidget(new HoverButton(form_.cmdHelp, form_.window, this));
    buttons->addWidget(new HoverButton(form_.cmdExit, form_.window, this));
    auto* line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    auto* layout = new QVBoxLayout;
    layout->addLayout(buttons);
    layout->addWidget(line);
    layout->addWidget(new StatusLine(form_.sbStatus, this)); // the whole width: dates are long
    return layout;
}

void OptionsWindow::followWindow() {
    setWindowTitle(qt(form_.window.caption()));
    if (!form_.window.visible())
        hide();
    else if (form_.window.state() == ui::WindowState::Minimized && isVisible() && !isMinimized())
        minimiseSoon_.start();
    else if (isHidden() || (isMinimized() && form_.window.state() == ui::WindowState::Normal))
        showOnScreen();
}

/// Into the task bar, where there is no icon to hide behind. Where there is one the window is hidden by the
/// time that this runs; minimising it first would let the desktop's late word of it undo a quick restore.
void OptionsWindow::minimise() {
    if (form_.window.visible() && form_.window.state() == ui::WindowState::Minimized)
        showMinimized();
}

void OptionsWindow::showOnScreen() {
    furnish();
    if (!placed_) {
        const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
        const QSize around = decorationOf(*this);
        const QSize wanted = sizeHint().expandedTo({680, 0}) + around;
        const int least = sizeHint().width() * 7 / 8 + around.width(); // the widest page may scroll a little
        const QRect place = placeBeside(company ? company() : QVector<QRect>(), wanted, least, room);
        resize(place.size() - around);
        move(place.topLeft());
        placed_ = true;
    }
    if (form_.window.state() == ui::WindowState::Minimized)
        showMinimized();
    else
        showNormal();
}

void OptionsWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        form_.window.setState(isMinimized() ? ui::WindowState::Minimized : ui::WindowState::Normal);
}

void OptionsWindow::closeEvent(QCloseEvent* event) {
    if (lettingGo_)
        return;
    event->ignore();
    form_.window.close();
}

/// The button on the page in view that Enter presses; null: none, or it cannot be used at present.
QAbstractButton* OptionsWindow::defaultButton() const {
    for (auto* button : findChildren<QPushButton*>())
        if (button->isDefault() && button->isVisible() && button->isEnabled())
            return button;
    return nullptr;
}

void OptionsWindow::keyPressEvent(QKeyEvent* event) {
    auto* button = qobject_cast<QAbstractButton*>(focusWidget());
    if (event->key() == Qt::Key_F1)
        form_.cmdHelp.click();
    else if (event->key() == Qt::Key_Escape)
        form_.window.close();
    else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
             (button != nullptr || (button = defaultButton()) != nullptr))
        button->click();
    else
        QWidget::keyPressEvent(event);
}

} // namespace brovin::desktop
