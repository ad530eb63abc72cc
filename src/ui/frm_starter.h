#pragma once

#include "ui/controls.h"
#include "ui/window.h"

#include <deque>
#include <string>

namespace brovin::ui {

/// The window that suggests names for the Nasty File List, each with a tick and a reason.
struct FrmStarter : Form {
    struct Suggestion {
        Suggestion(Form& form, const std::string& name)
            : chkName(form, "chk" + name, name), lblWhy(form, "lbl" + name) {}
        CheckBox chkName; ///< its caption is the name
        Label lblWhy;
    };

    Window window{*this, "frmStarter"};
    Label lblIntro{*this, "lblIntro"};
    Label lblSafe{*this, "lblSafe"}; ///< above the first group
    std::deque<Suggestion> safe;
    Label lblCaution{*this, "lblCaution"}; ///< above the second one
    std::deque<Suggestion> caution;
    Label lblTrash{*this, "lblTrash"}; ///< why trash folders are not among them
    Button cmdAddThese{*this, "cmdAddThese"};
    Button cmdClose{*this, "cmdClose"};
};

} // namespace brovin::ui
