#include "desktop/window/download_window.h"

#include "desktop/widgets/animation_label.h"
#include "desktop/widgets/bindings.h"
#include "desktop/widgets/pictures.h"
#include "desktop/widgets/text.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>

namespace brovin::desktop {
namespace {

constexpr int kAnimationHeight = 120;
constexpr int kWidth = 520;
constexpr int kProgressSteps = 1000;
constexpr std::chrono::milliseconds kLook{33};

} // namespace

DownloadWindow::DownloadWindow(ui::FrmDownload& form, QWidget* owner) : QDialog(owner), form_(form) {
    setObjectName(qt(form.window.name()));
    setWindowIcon(programIcon());
    setWindowTitle(qt(form.window.caption()));
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addLayout(makeHead());
    auto* changes = new QPlainTextEdit(this);
    bind(changes, form.txtUpdates);
    changes->setReadOnly(true);
    changes->setVisible(!form.txtUpdates.text().empty());
    layout->addWidget(changes, 1);
    progress_ = new QProgressBar(this);
    progress_->setObjectName(qt(form.ProgressBar1.name()));
    progress_->setAccessibleName(qt(form.ProgressBar1.caption()));
    progress_->setRange(0, kProgressSteps);
    progress_->setVisible(form.ProgressBar1.visible());
    layout->addWidget(progress_);
    layout->addLayout(makeButtons());
    resize(sizeHint().expandedTo({kWidth, 0}));

    nextLook_.setSingleShot(true);
    connect(&nextLook_, &QTimer::timeout, this, &DownloadWindow::showAmounts);
    const auto look = [shown = QPointer<DownloadWindow>(this)] {
        if (shown && !shown->nextLook_.isActive())
            shown->nextLook_.start(kLook);
    };
    form.lblText.observe(look);
    form.ProgressBar1.observe(look);
    form.window.observe([shown = QPointer<DownloadWindow>(this)] {
        if (shown)
            shown->followWindow();
    });
    showAmounts();
}

QLayout* DownloadWindow::makeHead() {
    auto* head = new QHBoxLayout;
    head->setSpacing(16);
    head->addWidget(new AnimationLabel(form_.Animation1, kAnimationHeight, this), 0, Qt::AlignTop);
    text_ = new QLabel(this);
    text_->setObjectName(qt(form_.lblText.name()));
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    text_->setMinimumWidth(260);
    head->addWidget(text_, 1);
    return head;
}

QLayout* DownloadWindow::makeButtons() {
    auto* start = new QPushButton(this);
    auto* cancel = new QPushButton(this);
    bind(start, form_.cmdStart);
    bind(cancel, form_.cmdCancel);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    start->setFocus();
    buttons->addWidget(start);
    buttons->addWidget(cancel);
    return buttons;
}

void DownloadWindow::showAmounts() {
    text_->setText(qtLines(form_.lblText.caption()));
    const double maximum = form_.ProgressBar1.maximum();
    const double share = maximum > 0 ? form_.ProgressBar1.value() / maximum : 0;
    progress_->setValue(static_cast<int>(share * kProgressSteps));
}

void DownloadWindow::followWindow() {
    if (!form_.window.visible())
        done(QDialog::Accepted);
}

void DownloadWindow::reject() {
    form_.window.close();
}

void DownloadWindows::showModal(ui::FrmDownload& form) {
    if (!form.window.visible())
        return;
    open_ = true;
    DownloadWindow window(form, owner_ != nullptr && owner_->isVisible() ? owner_ : nullptr);
    window.exec();
    form.window.setVisible(false); // the desktop may have closed it without asking
    open_ = false;
    if (owner_ != nullptr && owner_->isVisible())
        owner_->activateWindow(); // not every desktop gives it the keyboard back by itself
}

} // namespace brovin::desktop
