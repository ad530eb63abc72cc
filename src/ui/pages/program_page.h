#pragma once

#include "ui/controls.h"

namespace brovin::ui {

/// Page 6: the program itself.
struct ProgramPage : virtual Form {
    Label lblLang{*this, "lblLang"};
    ListBox lstLang{*this, "lstLang"};
    CheckBox chkStartWindows{*this, "chkStartWindows"};
    CheckBox chkUpdate{*this, "chkUpdate"};
    ComboBox cmbCheck{*this, "cmbCheck"};
    Button cmdUpdate{*this, "cmdUpdate"};
    Animation picAnim{*this, "picAnim"}; ///< moves while a language pack is fetched
};

} // namespace brovin::ui
