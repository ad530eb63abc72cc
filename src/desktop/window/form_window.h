#pragma once

#include "ui/window.h"

#include <QDialog>
#include <QPointer>

namespace brovin::desktop {

/// A window beside the options window that is there for as long as its form's window is visible. Its close
/// box and Escape ask the form.
class FormWindow : public QDialog {
    Q_OBJECT
public:
    FormWindow(ui::Window& window, QWidget* owner);

    void reject() override;

private:
    ui::Window& window_;
};

/// Makes and shows a `Dialog` of the form and its owner whenever the form's window becomes visible: what
/// nobody opens costs nothing.
template <class Dialog, class Form>
void showWhileVisible(Form& form, QWidget& owner) {
    form.window.observe([&form, before = QPointer<QWidget>(&owner), dialog = QPointer<Dialog>()]() mutable {
        if (!before || form.window.visible() == !dialog.isNull())
            return;
        if (dialog) {
            dialog->hide();
            dialog->deleteLater(); // its own button may be asking
            dialog.clear();
            return;
        }
        dialog = new Dialog(form, before);
        dialog->show();
    });
}

} // namespace brovin::desktop
