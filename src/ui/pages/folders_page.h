#pragma once

#include "ui/controls.h"

namespace brovin::ui {

/// Page 0: the watched folders, and the scan of them.
struct FoldersPage : virtual Form {
    Label lblFolders{*this, "lblFolders"};
    ListBox lstFolders{*this, "lstFolders"};
    Button cmdAddFolder{*this, "cmdAddFolder"};
    Button cmdRemoveFolder{*this, "cmdRemoveFolder"};
    Image picAdd{*this, "picAdd"};
    CheckBox chkCheck{*this, "chkCheck"};
    TextBox txtInterval{*this, "txtInterval"};
    Label lblHours{*this, "lblHours"};
    Button cmdNuke{*this, "cmdNuke", "Scan NOW"};
    Button cmdPreview{*this, "cmdPreview", "Preview..."};
    Label lblNoNames{*this, "lblNoNames"}; ///< why a scan deletes nothing
};

} // namespace brovin::ui
