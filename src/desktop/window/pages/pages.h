#pragma once

#include "ui/frm_options.h"

class QWidget;

namespace brovin::desktop {

// The eight pages of the options window, each laid out in a file of its own and bound to the form's controls.

[[nodiscard]] QWidget* makeFoldersPage(ui::FrmOptions& form, QWidget* parent);
[[nodiscard]] QWidget* makeNastyFilesPage(ui::FrmOptions& form, QWidget* parent);
[[nodiscard]] QWidget* makeScanningPage(ui::FrmOptions& form, QWidget* parent);
[[nodiscard]] QWidget* makeCharacterPage(ui::FrmOptions& form, QWidget* parent);
[[nodiscard]] QWidget* makeSpeechPage(ui::FrmOptions& form, QWidget* parent);
[[nodiscard]] QWidget* makeRemindersPage(ui::FrmOptions& form, QWidget* parent);
[[nodiscard]] QWidget* makeProgramPage(ui::FrmOptions& form, QWidget* parent);
[[nodiscard]] QWidget* makeAboutPage(ui::FrmOptions& form, QWidget* parent);

} // namespace brovin::desktop
