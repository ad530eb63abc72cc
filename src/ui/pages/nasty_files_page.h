#pragma once

#include "ui/controls.h"
#include "ui/frm_starter.h"

namespace brovin::ui {

/// Page 1: what is deleted.
struct NastyFilesPage : virtual Form {
    Label lblFiles{*this, "lblFiles"};
    ListBox lstFiles{*this, "lstFiles"};
    Button cmdAddFile{*this, "cmdAddFile"};
    Button cmdRemoveFile{*this, "cmdRemoveFile"};
    Button cmdStarter{*this, "cmdStarter"};
    StatusBar sbKnown{*this, "sbKnown"}; ///< what is lost with the selected name, if that is known
    Image picAddFile{*this, "picAddFile"};
    CheckBox chkDotDash{*this, "chkDotDash"};
    CheckBox chkIcon{*this, "chkIcon"};
    FrmStarter frmStarter; ///< opened by `cmdStarter`
};

} // namespace brovin::ui
