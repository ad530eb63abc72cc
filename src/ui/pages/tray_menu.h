#pragma once

#include "ui/controls.h"

namespace brovin::ui {

/// The menu of the icon in the notification area.
struct TrayMenu : virtual Form {
    Button mHelp{*this, "mHelp", "&Help"};
    Button mPopRestore{*this, "mPopRestore", "&Options"};
    Button mPopExit{*this, "mPopExit", "E&xit..."};
    CheckBox mQuiet{*this, "mQuiet", "&Quiet"};
    CheckBox mQuietHour{*this, "mQuietHour", "Quiet &for an Hour"};
    CheckBox mQuietTomorrow{*this, "mQuietTomorrow", "Quiet until &Tomorrow"};
};

} // namespace brovin::ui
