#pragma once

#include "ui/controls.h"

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QDateTimeEdit;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QSlider;
class QWidget;

namespace brovin::desktop {

/// Ties a widget to a control: what the program writes shows on the screen, what the user does enters by the
/// control's own door. The widget takes the control's name. A control outlives its widgets.
void bind(QLabel* widget, ui::Label& control);
void bind(QPushButton* widget, ui::Button& control);
void bind(QCheckBox* widget, ui::CheckBox& control);
void bind(QRadioButton* widget, ui::OptionButton& control);
void bind(QLineEdit* widget, ui::TextBox& control);
void bind(QPlainTextEdit* widget, ui::TextBox& control);
void bind(QListWidget* widget, ui::ListBox& control);
void bind(QComboBox* widget, ui::ComboBox& control);
void bind(QDateTimeEdit* widget, ui::Picker& control);
void bind(QSlider* widget, ui::Volume& control);
void bind(QGroupBox* widget, ui::Panel& control);

/// What every control has: name, tool tip, accessible name, enabled, visible and the mouse pointer.
void bindCommon(QWidget* widget, ui::Control& control);

} // namespace brovin::desktop
