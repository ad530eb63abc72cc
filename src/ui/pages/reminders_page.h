#pragma once

#include "ui/controls.h"

namespace brovin::ui {

/// Page 5: the reminder and the word of the day.
struct RemindersPage : virtual Form {
    CheckBox chkBackup{*this, "chkBackup"};
    OptionButton optDaily{*this, "optDaily"};
    OptionButton optWeekly{*this, "optWeekly"};
    Label lblBackup{*this, "lblBackup"};
    Picker dtpBackup{*this, "dtpBackup"};
    TextBox txtReminder{*this, "txtReminder"};
    Button cmdSpeak{*this, "cmdSpeak"};
    CheckBox chkMsgBox{*this, "chkMsgBox"};
    CheckBox chkWord{*this, "chkWord"};
    Label lblWord{*this, "lblWord"};
    Picker dtpWord{*this, "dtpWord"};
    CheckBox chkWordMsgBox{*this, "chkWordMsgBox"};
};

} // namespace brovin::ui
