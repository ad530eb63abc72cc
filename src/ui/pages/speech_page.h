#pragma once

#include "ui/controls.h"

namespace brovin::ui {

/// Page 4: what the user makes it say and do.
struct SpeechPage : virtual Form {
    Label lblSay{*this, "lblSay"};
    TextBox txtSay{*this, "txtSay"};
    Button cmdSay{*this, "cmdSay"};
    Label lblDo{*this, "lblDo"};
    ListBox lstAnims{*this, "lstAnims"};
    Button cmdDo{*this, "cmdDo"};
    Button cmdRepeat{*this, "cmdRepeat"};
    Button cmdStop{*this, "cmdStop"};
};

} // namespace brovin::ui
