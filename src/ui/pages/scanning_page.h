#pragma once

#include "ui/controls.h"

namespace brovin::ui {

/// Page 2: how it is deleted, the log and the numbers.
struct ScanningPage : virtual Form {
    Panel frmDeleting{*this, "frmDeleting"};
    CheckBox chkConfirm{*this, "chkConfirm"};
    CheckBox chkForce{*this, "chkForce"};
    CheckBox chkTrash{*this, "chkTrash"};
    CheckBox chkIgnoreErrors{*this, "chkIgnoreErrors"};
    Panel frmLog{*this, "frmLog"};
    CheckBox chkLog{*this, "chkLog"};
    Button cmdInspect{*this, "cmdInspect"};
    Button cmdSearchLog{*this, "cmdSearchLog"};
    Button cmdEmpty{*this, "cmdEmpty"};
    Panel frmNumbers{*this, "frmNumbers"};
    Button cmdScore{*this, "cmdScore"};
    Button cmdResetCounter{*this, "cmdResetCounter"};
    Button cmdCopyNumbers{*this, "cmdCopyNumbers"};
};

} // namespace brovin::ui
