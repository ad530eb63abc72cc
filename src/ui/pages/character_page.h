#pragma once

#include "ui/controls.h"
#include "ui/gallery.h"
#include "ui/slider.h"

namespace brovin::ui {

/// Page 3: the character.
struct CharacterPage : virtual Form {
    CheckBox chkAgent{*this, "chkAgent"};
    Label lblNoAgent{*this, "lblNoAgent"}; ///< why there is no character; only there where there can be none
    Label lblChars{*this, "lblChars"};
    Gallery lstChars{*this, "lstChars"};
    Button cmdCheckChars{*this, "cmdCheckChars"};
    Label lblSize{*this, "lblSize"};
    ComboBox cmbSize{*this, "cmbSize"};
    Label lblUser{*this, "lblUser"};
    TextBox txtUser{*this, "txtUser"}; ///< what the phrases call the user; may be empty
    CheckBox chkDude{*this, "chkDude"};
    Label lblDudeSex{*this, "lblDudeSex"};
    ComboBox cmbDudeSex{*this, "cmbDudeSex"};
    Panel frmFreq{*this, "frmFreq"};
    Slider picSlide{*this, "picSlide"};
    Label lblFreq{*this, "lblFreq"};
};

} // namespace brovin::ui
