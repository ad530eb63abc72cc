#pragma once

#include "ui/controls.h"
#include "ui/frm_starter.h"

namespace brovin::ui {

/// Page 1: what is deleted, and what never is.
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
    FrmStarter frmStarter;                ///< opened by `cmdStarter`
    CheckBox chkSpare{*this, "chkSpare"}; ///< "._" files that carry something stay
    Label lblKeep{*this, "lblKeep"};
    ListBox lstKeep{*this, "lstKeep"}; ///< what is never deleted: names and full paths
    Button cmdAddKeep{*this, "cmdAddKeep"};
    Button cmdRemoveKeep{*this, "cmdRemoveKeep"};
};

} // namespace brovin::ui
