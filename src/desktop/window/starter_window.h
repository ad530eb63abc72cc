#pragma once

#include "desktop/window/form_window.h"
#include "ui/frm_starter.h"

class QGridLayout;

namespace brovin::desktop {

/// The window that suggests names for the Nasty File List.
class StarterWindow final : public FormWindow {
    Q_OBJECT
public:
    StarterWindow(ui::FrmStarter& form, QWidget* owner);

private:
    [[nodiscard]] QWidget* makeSuggestions(ui::FrmStarter& form);
};

} // namespace brovin::desktop
