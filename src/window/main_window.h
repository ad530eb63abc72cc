#pragma once

#include "platform/notification_area.h"
#include "platform/program_folder.h"
#include "platform/shell.h"
#include "settings/settings.h"
#include "ui/frm_options.h"

#include <cstddef>
#include <string>

namespace brovin::window {

/// A mouse event on the icon in the notification area, with the number under which the window hears of it.
enum class TrayMouse { LeftUp = 514, LeftDoubleClick = 515, RightUp = 517 };

/// How the options window behaves as a window: its tabs, the pictures under the mouse, the icon in the
/// notification area, and the links to the help and the web.
class MainWindow {
public:
    struct Needs {
        ui::FrmOptions& form;
        settings::Settings& settings;
        platform::ProgramFolder& folder;
        platform::Shell& shell;
        const platform::NotificationArea& tray;
    };
    /// Ties the controls around the pages and those that lead out of the program.
    explicit MainWindow(const Needs& needs);

    /// The tray's menu shall pop up at the mouse.
    ui::Event<> popUpMenu;

    /// A document could not be opened; its full path.
    ui::Event<const std::string&> notOpened;

    /// Shows page `tab` and marks its tab. False: there is no such tab, and nothing happens.
    bool imgTabs_Click(int tab);
    void imgTabs_MouseMove(std::size_t tab);
    void cmdHelp_MouseMove() { needs_.form.cmdHelp.setPicture("helpd"); }
    void cmdExit_MouseMove() { needs_.form.cmdExit.setPicture("closed"); }
    /// The mouse is over nothing that changes: all pictures take their normal form.
    void resetPictures();

    /// Moves the frame around the chosen tab on by a step, while somebody can see it.
    void lineTimer_Timer();

    void trayMouse(TrayMouse event);
    void mPopRestore_Click();
    void Form_Resize();
    /// Hides the window like minimising it; the program goes on.
    void Form_Close();

    void cmdHelp_Click();
    void imgLogo_Click();
    void lblFeedback_Click();

private:
    void open(const char* document);

    Needs needs_;
};

} // namespace brovin::window
