#pragma once

#include "platform/result.h"
#include "settings/settings.h"
#include "ui/frm_options.h"

#include <cstdint>
#include <span>
#include <variant>

namespace brovin::app {

/// A control that shows one setting: it is restored from it at the start and stores itself at each click.
struct StoredControl {
    using Where = std::variant<ui::CheckBox ui::FrmOptions::*, ui::ComboBox ui::FrmOptions::*,
                               ui::Picker ui::FrmOptions::*, ui::TextBox ui::FrmOptions::*,
                               ui::Volume ui::FrmOptions::*>;
    enum class Stores : std::uint8_t {
        Always,
        WhenLoaded, ///< not what the start sets
        Mended,     ///< by its own handler, which mends what is typed
    };

    const settings::Setting* setting;
    Where control;
    Stores stores = Stores::Always;
    bool guidesScan = false; ///< a scan without a window obeys it too
};

/// All of them in the order in which the start restores them. Those of the second list come when the timer
/// runs.
[[nodiscard]] std::span<const StoredControl> storedControls();
[[nodiscard]] std::span<const StoredControl> storedRules();

/// Puts a stored text into its control, which fires its event as if the user had done it. Failure: the
/// control refuses it and stays as it is.
[[nodiscard]] platform::Status restore(ui::FrmOptions& form, const StoredControl& row,
                                       const std::string& stored);

/// Lets every control store itself, behind what else is tied to it.
void tieStoring(ui::FrmOptions& form, settings::Settings& settings);

} // namespace brovin::app
