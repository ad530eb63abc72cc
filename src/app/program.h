#pragma once

#include "app/machine.h"
#include "settings/program_info.h"
#include "ui/frm_options.h"
#include "ui/frm_preview.h"
#include "window/main_window.h"

#include <memory>
#include <optional>
#include <string>

namespace brovin::app {

/// The whole program: builds every room, ties the controls' events to their handlers, and starts.
class Program {
public:
    /// `command` is what the desktop starts at log-on.
    Program(const Machine& machine, settings::ProgramInfo info, std::string command);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    [[nodiscard]] ui::FrmOptions& frmOptions();
    [[nodiscard]] ui::FrmPreview& frmPreview();
    [[nodiscard]] window::MainWindow& mainWindow();

    /// What the program says in the active language.
    [[nodiscard]] const language::MessageTable& messages() const;

    /// Starts up, or hands the errand to the copy that runs already. False: the program is to end at once.
    bool Form_Load(std::optional<platform::Errand> errand = std::nullopt);

    /// Does what another start was asked to have done, as the user's click would.
    void serve(platform::Errand errand);

private:
    struct Rooms;
    std::unique_ptr<Rooms> rooms_;
};

} // namespace brovin::app
