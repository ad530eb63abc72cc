#include "desktop/machine/box_manners.h"

#include "desktop/machine/attention.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QWindow>

#include <chrono>

namespace brovin::desktop {
namespace {

using namespace std::chrono_literals;

constexpr auto kSight = 500ms; ///< what it takes to see that a box is there
constexpr auto kPause = 2s;    ///< so long without a key: nobody is in the middle of typing

/// Acts once when the user has had the time to see the box, unless `owner` has gone by then.
template <class Act>
void onceSeen(QObject& owner, Act act) {
    auto* const timer = new QTimer(&owner);
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, &owner, act);
    timer->start(kSight);
}

} // namespace

UnaskedBox::UnaskedBox(QDialog& box) : QObject(&box), box_(box) {
    box.setAttribute(Qt::WA_ShowWithoutActivating);
    box.setWindowFlag(Qt::WindowDoesNotAcceptFocus); // not every desktop heeds the former
    quiet_.setSingleShot(true);
    connect(&quiet_, &QTimer::timeout, this, [this] { keysCount_ = true; });
    qApp->installEventFilter(this);
}

bool UnaskedBox::eventFilter(QObject* watched, QEvent* event) {
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || widget->window() != &box_)
        return false;
    switch (event->type()) {
    case QEvent::Show:
        if (widget == &box_ && !shown_.isValid()) {
            shown_.start();
            onceSeen(*this, [this] { admitFocus(); });
        }
        return false;
    case QEvent::WindowActivate:
        if (widget == &box_)
            activated();
        return false;
    case QEvent::MouseButtonPress:
        keysCount_ = true;
        return false;
    case QEvent::ShortcutOverride:
        event->accept(); // else it would press a button by its letter
        return !keysCount_;
    case QEvent::KeyPress:
        if (!keysCount_)
            quiet_.start(kPause);
        return !keysCount_;
    default:
        return false;
    }
}

/// From here on the user can go to it.
void UnaskedBox::admitFocus() {
    QWindow* const window = box_.windowHandle();
    if (window == nullptr)
        return;
    window->setFlag(Qt::WindowDoesNotAcceptFocus, false);
    demandAttention(*window);
}

/// Some desktops give the keyboard to every new window. Where that happens too soon to be the user's wish, it
/// takes a pause in the typing.
void UnaskedBox::activated() {
    if (shown_.isValid() && shown_.hasExpired(kSight.count()))
        keysCount_ = true;
    else if (!keysCount_)
        quiet_.start(kPause);
}

void letButtonsWait(QMessageBox& box) {
    for (QAbstractButton* button : box.buttons())
        button->setEnabled(false);
    onceSeen(box, [&box] {
        for (QAbstractButton* button : box.buttons())
            button->setEnabled(true);
        if (box.defaultButton() != nullptr)
            box.defaultButton()->setFocus();
    });
}

void bringBack(QWidget& box) {
    if (box.isMinimized())
        box.showNormal();
    else if (!box.isVisible())
        box.show();
    box.raise();
    box.activateWindow();
}

} // namespace brovin::desktop
