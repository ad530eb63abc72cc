#pragma once

#include "desktop/window/form_window.h"
#include "ui/frm_preview.h"

class QLayout;
class QTableView;

namespace brovin::desktop {

/// The window that shows what the next scan would delete. It stands beside the options window, which may be
/// used meanwhile.
class PreviewWindow final : public FormWindow {
    Q_OBJECT
public:
    PreviewWindow(ui::FrmPreview& form, QWidget* owner);

private:
    [[nodiscard]] QLayout* makeHead();
    [[nodiscard]] QTableView* makeTable();
    [[nodiscard]] QLayout* makeFoot();
    void showMenu(QPoint place);

    ui::FrmPreview& form_;
};

} // namespace brovin::desktop
