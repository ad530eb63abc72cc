#pragma once

#include "platform/clock.h"
#include "ui/controls.h"
#include "ui/slider.h"
#include "ui/window.h"

#include <array>
#include <cstdint>
#include <string>

namespace brovin::ui {

/// The options window: every control on its eight pages and around them, and the state that the parts of the
/// program share. A control's caption comes from the language file, under "lbl" and its name.
struct FrmOptions : Form {
    static constexpr std::size_t kTabs = 8;
    template <class T>
    using PerTab = std::array<T, kTabs>;

    Window window{*this, "frmOptions"};

    // Around the pages
    PerTab<Image> imgTabs{Image{*this, "imgTabs0"}, Image{*this, "imgTabs1"}, Image{*this, "imgTabs2"},
                          Image{*this, "imgTabs3"}, Image{*this, "imgTabs4"}, Image{*this, "imgTabs5"},
                          Image{*this, "imgTabs6"}, Image{*this, "imgTabs7"}};
    PerTab<Label> lblTabs{Label{*this, "lblTabs0"}, Label{*this, "lblTabs1"}, Label{*this, "lblTabs2"},
                          Label{*this, "lblTabs3"}, Label{*this, "lblTabs4"}, Label{*this, "lblTabs5"},
                          Label{*this, "lblTabs6"}, Label{*this, "lblTabs7"}};
    PerTab<Panel> picTab{Panel{*this, "picTab0"}, Panel{*this, "picTab1"}, Panel{*this, "picTab2"},
                         Panel{*this, "picTab3"}, Panel{*this, "picTab4"}, Panel{*this, "picTab5"},
                         Panel{*this, "picTab6"}, Panel{*this, "picTab7"}};
    Panel Picture1{*this, "Picture1"};       ///< the frame around the pages
    MovingFrame tabFrame{*this, "tabFrame"}; ///< around the chosen tab
    Button cmdHelp{*this, "cmdHelp"};
    Button cmdExit{*this, "cmdExit"};
    StatusBar sbStatus{*this, "sbStatus"};

    // Page 0: watched folders
    Label lblFolders{*this, "lblFolders"};
    ListBox lstFolders{*this, "lstFolders"};
    Button cmdAddFolder{*this, "cmdAddFolder"};
    Button cmdRemoveFolder{*this, "cmdRemoveFolder"};
    Image picAdd{*this, "picAdd"};
    CheckBox chkCheck{*this, "chkCheck"};
    TextBox txtInterval{*this, "txtInterval"};
    Label lblHours{*this, "lblHours"};
    Button cmdNuke{*this, "cmdNuke", "Scan NOW"};
    Label lblNoNames{*this, "lblNoNames"}; ///< why a scan deletes nothing

    // Page 1: nasty files
    Label lblFiles{*this, "lblFiles"};
    ListBox lstFiles{*this, "lstFiles"};
    Button cmdAddFile{*this, "cmdAddFile"};
    Button cmdRemoveFile{*this, "cmdRemoveFile"};
    Image picAddFile{*this, "picAddFile"};
    CheckBox chkDotDash{*this, "chkDotDash"};
    CheckBox chkIcon{*this, "chkIcon"};

    // Page 2: scanning, the log and the numbers
    Panel frmDeleting{*this, "frmDeleting"};
    CheckBox chkConfirm{*this, "chkConfirm"};
    CheckBox chkForce{*this, "chkForce"};
    CheckBox chkIgnoreErrors{*this, "chkIgnoreErrors"};
    Panel frmLog{*this, "frmLog"};
    CheckBox chkLog{*this, "chkLog"};
    Button cmdInspect{*this, "cmdInspect"};
    Button cmdEmpty{*this, "cmdEmpty"};
    Panel frmNumbers{*this, "frmNumbers"};
    Button cmdResetCounter{*this, "cmdResetCounter"};
    Button cmdCopyNumbers{*this, "cmdCopyNumbers"};

    // Page 3: the character
    CheckBox chkAgent{*this, "chkAgent"};
    Label lblChars{*this, "lblChars"};
    ListBox lstChars{*this, "lstChars"};
    Button cmdCheckChars{*this, "cmdCheckChars"};
    CheckBox chkDude{*this, "chkDude"};
    Label lblDudeSex{*this, "lblDudeSex"};
    ComboBox cmbDudeSex{*this, "cmbDudeSex"};
    Panel frmFreq{*this, "frmFreq"};
    Slider picSlide{*this, "picSlide"};
    Label lblFreq{*this, "lblFreq"};

    // Page 4: speech
    Label lblSay{*this, "lblSay"};
    TextBox txtSay{*this, "txtSay"};
    Button cmdSay{*this, "cmdSay"};
    Label lblDo{*this, "lblDo"};
    ListBox lstAnims{*this, "lstAnims"};
    Button cmdDo{*this, "cmdDo"};
    Button cmdRepeat{*this, "cmdRepeat"};
    Button cmdStop{*this, "cmdStop"};

    // Page 5: reminders
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

    // Page 6: the program
    Label lblLang{*this, "lblLang"};
    ListBox lstLang{*this, "lstLang"};
    CheckBox chkStartWindows{*this, "chkStartWindows"};
    CheckBox chkUpdate{*this, "chkUpdate"};
    ComboBox cmbCheck{*this, "cmbCheck"};
    Button cmdUpdate{*this, "cmdUpdate"};
    Animation picAnim{*this, "picAnim"}; ///< moves while a language pack is fetched

    // Page 7: about
    Image imgBrovin{*this, "imgBrovin"};
    Image imgLogo{*this, "imgLogo"};
    Label lblVersion{*this, "lblVersion"};
    Label lblNumbers{*this, "lblNumbers"}; ///< stands above the statistics
    Label lblFeedback{*this, "lblFeedback"};

    // The menu of the icon in the notification area
    Button mHelp{*this, "mHelp", "&Help"};
    Button mPopRestore{*this, "mPopRestore", "&Options"};
    Button mPopExit{*this, "mPopExit", "E&xit..."};

    Timer Timer1{*this, "Timer1"};       ///< drives everything that happens by time
    Timer lineTimer{*this, "lineTimer"}; ///< animates the frame around the chosen tab

    /// Start-up is under way: handlers leave alone what code has set.
    bool loading = false;
    /// A scan is under way.
    bool scanBusy = false;
    /// The program is on its way out, and nothing holds it any more: the user has confirmed it, or an update
    /// takes its place. It ends when the running handler returns.
    bool exitConfirmed = false;
    /// The tip of the icon in the notification area.
    std::string trayTip;
    /// When the scan that the next automatic one is counted from took place.
    platform::DateTime lastScanTime{};
    /// Day of the month on which the reminder last fired.
    std::int16_t lastReminderDay = 0;
    /// How often the character speaks by itself, 0 to 200.
    std::int16_t speechFreq = 0;
    /// Kilobytes deleted up to the start of the program.
    std::int32_t kbTotal = 0;
};

} // namespace brovin::ui
