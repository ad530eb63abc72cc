#pragma once

#include "ui/pages/about_page.h"
#include "ui/pages/character_page.h"
#include "ui/pages/folders_page.h"
#include "ui/pages/nasty_files_page.h"
#include "ui/pages/program_page.h"
#include "ui/pages/reminders_page.h"
#include "ui/pages/scanning_page.h"
#include "ui/pages/speech_page.h"
#include "ui/pages/tray_menu.h"
#include "ui/pages/window_frame.h"
#include "ui/program_life.h"

namespace brovin::ui {

/// The options window, made of its pages. Whoever works on a page takes that page and not the window. A
/// control's caption comes from the language file, under "lbl" and its name.
struct FrmOptions : WindowFrame,
                    FoldersPage,
                    NastyFilesPage,
                    ScanningPage,
                    CharacterPage,
                    SpeechPage,
                    RemindersPage,
                    ProgramPage,
                    AboutPage,
                    TrayMenu,
                    ProgramLife {
    Timer Timer1{*this, "Timer1"}; ///< drives everything that happens by time
};

} // namespace brovin::ui
