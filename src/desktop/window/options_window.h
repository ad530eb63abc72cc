#pragma once

#include "ui/frm_options.h"

#include <QRect>
#include <QTimer>
#include <QVector>
#include <QWidget>

#include <functional>

class QAbstractButton;
class QStackedWidget;
class QVBoxLayout;

namespace brovin::desktop {

/// The options window: the tabs at the left, the chosen page beside them, status, help and exit below. What
/// stands in it is made when it is shown for the first time: most starts end behind the icon, and need none
/// of it.
class OptionsWindow final : public QWidget {
    Q_OBJECT
public:
    explicit OptionsWindow(ui::FrmOptions& form);

    /// Makes what stands in the window, unless it is there; whoever shows the window need not ask for it.
    void furnish();

    /// Lets the window go without asking the program, which is ending.
    void letGo() { lettingGo_ = true; }

    /// What it keeps clear of when it comes up for the first time, as `placeBeside` takes it; empty: nothing.
    std::function<QVector<QRect>()> company;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    /// F1 opens the help, Escape puts the window away, Enter presses the button that has the focus, else
    /// the default one.
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QWidget* makeTabs();
    [[nodiscard]] QWidget* makePages();
    [[nodiscard]] QWidget* makeProgress();
    [[nodiscard]] QLayout* makeBottom();
    void followWindow();
    void minimise();
    void showOnScreen();
    [[nodiscard]] QAbstractButton* defaultButton() const;

    ui::FrmOptions& form_;
    QTimer minimiseSoon_; ///< when the handler that is running has come back
    bool placed_ = false;
    bool lettingGo_ = false;
};

} // namespace brovin::desktop
