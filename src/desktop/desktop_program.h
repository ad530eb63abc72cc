#pragma once

#include "desktop/character/character_audio.h"
#include "desktop/updates/updates.h"
#include "platform/single_instance.h"
#include "posix/places.h"
#include "settings/program_info.h"

#include <QRect>

#include <memory>
#include <optional>
#include <string>

namespace brovin::ui {
struct FrmOptions;
}

namespace brovin::desktop {

class OptionsWindow;

/// The program on a desktop: the machine beneath, the core on it, and the options window before it. There
/// must be a QApplication.
class DesktopProgram {
public:
    /// `audio` is what characters are heard by; empty: this machine's voices and sound.
    DesktopProgram(const posix::Places& places, const settings::ProgramInfo& info,
                   const UpdateSource& updates = {}, const AudioMaker& audio = {});
    ~DesktopProgram();
    DesktopProgram(const DesktopProgram&) = delete;
    DesktopProgram& operator=(const DesktopProgram&) = delete;

    /// Starts up; from then on the event loop drives it. The errand is done by the copy that runs already, or
    /// by this one. False: the program is to end at once.
    bool start(std::optional<platform::Errand> errand = std::nullopt);

    [[nodiscard]] ui::FrmOptions& form();
    [[nodiscard]] OptionsWindow& window();
    /// Where the icon in the notification area is on the screen; empty: nowhere.
    [[nodiscard]] QRect trayIcon() const;

private:
    void tieRecords();
    /// Brings the window to the front, or the question that is open before it.
    void comeUp();
    void serve(platform::Errand errand);
    void serveSoon(platform::Errand errand);

    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace brovin::desktop
