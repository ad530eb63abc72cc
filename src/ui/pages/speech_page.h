#pragma once

#include "ui/controls.h"

namespace brovin::ui {

/// Page 4: what the user makes it say and do, how loud, and when not.
struct SpeechPage : virtual Form {
    Label lblSay{*this, "lblSay"};
    TextBox txtSay{*this, "txtSay"};
    Button cmdSay{*this, "cmdSay"};
    Label lblDo{*this, "lblDo"};
    ListBox lstAnims{*this, "lstAnims"};
    Button cmdDo{*this, "cmdDo"};
    Button cmdRepeat{*this, "cmdRepeat"};
    Button cmdStop{*this, "cmdStop"};
    Panel frmVolume{*this, "frmVolume"};
    Label lblVoice{*this, "lblVoice"};
    Volume sldVoice{*this, "sldVoice"};
    CheckBox chkMuteVoice{*this, "chkMuteVoice"};
    Label lblSounds{*this, "lblSounds"};
    Volume sldSounds{*this, "sldSounds"};
    CheckBox chkMuteSounds{*this, "chkMuteSounds"};
    CheckBox chkReadOut{*this, "chkReadOut"}; ///< to screen readers
    Panel frmQuiet{*this, "frmQuiet"};
    CheckBox chkQuietHours{*this, "chkQuietHours"};
    Picker dtpQuietFrom{*this, "dtpQuietFrom"};
    Label lblQuietTo{*this, "lblQuietTo"};
    Picker dtpQuietTo{*this, "dtpQuietTo"};
    CheckBox chkQuietFullScreen{*this, "chkQuietFullScreen"};
    CheckBox chkQuietLocked{*this, "chkQuietLocked"};
    CheckBox chkQuietDesktop{*this, "chkQuietDesktop"};
    Label lblQuiet{*this, "lblQuiet"}; ///< that it is quiet at this moment
};

} // namespace brovin::ui
