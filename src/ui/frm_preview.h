#pragma once

#include "ui/controls.h"
#include "ui/table.h"
#include "ui/window.h"

namespace brovin::ui {

/// The window that shows what the next scan would delete. It stands beside the options window, and is there
/// while it is visible.
struct FrmPreview : Form {
    Window window{*this, "frmPreview"};
    Label lblFound{*this, "lblFound"}; ///< how many there are, and what goes on
    Label lblFilter{*this, "lblFilter"};
    TextBox txtFilter{*this, "txtFilter"}; ///< only lines with this in their name or folder are shown
    Label lblGroup{*this, "lblGroup"};
    ComboBox cmbGroup{*this, "cmbGroup"}; ///< what belongs together: nothing, a folder's, a name's
    Table tblFound{*this, "tblFound"};
    Label lblLost{*this, "lblLost"};        ///< what is lost with the selected line
    Button cmdTickAll{*this, "cmdTickAll"}; ///< of the lines that are shown
    Button cmdTickNone{*this, "cmdTickNone"};
    Button cmdKeepThis{*this, "cmdKeepThis"};     ///< the selected entry is never deleted
    Button cmdKeepName{*this, "cmdKeepName"};     ///< nor is anything of its name
    Button cmdKeepFolder{*this, "cmdKeepFolder"}; ///< nor is anything in its folder
    Button cmdOpenFolder{*this, "cmdOpenFolder"};
    Button cmdStop{*this, "cmdStop"}; ///< ends the search; there while it runs
    Button cmdSearchAgain{*this, "cmdSearchAgain"};
    Button cmdDeleteThese{*this, "cmdDeleteThese"};
    Button cmdClose{*this, "cmdClose"};
};

} // namespace brovin::ui
