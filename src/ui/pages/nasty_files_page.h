#pragma once

#include "ui/controls.h"

namespace brovin::ui {

/// Page 1: what is deleted.
struct NastyFilesPage : virtual Form {
    Label lblFiles{*this, "lblFiles"};
    ListBox lstFiles{*this, "lstFiles"};
    Button cmdAddFile{*this, "cmdAddFile"};
    Button cmdRemoveFile{*this, "cmdRemoveFile"};
    Image picAddFile{*this, "picAddFile"};
    CheckBox chkDotDash{*this, "chkDotDash"};
    CheckBox chkIcon{*this, "chkIcon"};
};

} // namespace brovin::ui
