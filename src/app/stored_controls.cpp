#include "app/stored_controls.h"

#include "text/date_text.h"
#include "text/numbers.h"

namespace brovin::app {

namespace setting = settings::setting;
namespace {

using platform::Done;
using platform::Failure;
using platform::Status;
using ui::FrmOptions;
using Stores = StoredControl::Stores;

constexpr bool kGuidesScan = true;

constexpr StoredControl kControls[] = {
    {&setting::kDudeSex, &FrmOptions::cmbDudeSex, Stores::WhenLoaded},
    {&setting::kUpdateOnStart, &FrmOptions::chkUpdate},
    {&setting::kCheckFreq, &FrmOptions::cmbCheck},
    {&setting::kWord, &FrmOptions::chkWord},
    {&setting::kWordTime, &FrmOptions::dtpWord},
    {&setting::kAgent, &FrmOptions::chkAgent, Stores::WhenLoaded},
    {&setting::kBackup, &FrmOptions::chkBackup},
    {&setting::kConfirm, &FrmOptions::chkConfirm, Stores::Always, kGuidesScan},
    {&setting::kInterval, &FrmOptions::txtInterval, Stores::Mended},
    {&setting::kBackupDate, &FrmOptions::dtpBackup},
    {&setting::kIgnoreErrors, &FrmOptions::chkIgnoreErrors, Stores::Always, kGuidesScan},
    {&setting::kForce, &FrmOptions::chkForce, Stores::Always, kGuidesScan},
    {&setting::kTrash, &FrmOptions::chkTrash, Stores::Always, kGuidesScan},
    {&setting::kLog, &FrmOptions::chkLog, Stores::Always, kGuidesScan},
    {&setting::kCharacterSize, &FrmOptions::cmbSize, Stores::WhenLoaded},
    {&setting::kDude, &FrmOptions::chkDude, Stores::WhenLoaded, kGuidesScan},
    {&setting::kCallMe, &FrmOptions::txtUser, Stores::WhenLoaded},
    {&setting::kCheck, &FrmOptions::chkCheck},
    {&setting::kReminderMsgBox, &FrmOptions::chkMsgBox},
    {&setting::kWordMsgBox, &FrmOptions::chkWordMsgBox},
    {&setting::kVoiceVolume, &FrmOptions::sldVoice},
    {&setting::kMuteVoice, &FrmOptions::chkMuteVoice},
    {&setting::kSoundVolume, &FrmOptions::sldSounds},
    {&setting::kMuteSounds, &FrmOptions::chkMuteSounds},
    {&setting::kReadOut, &FrmOptions::chkReadOut},
    {&setting::kQuietHours, &FrmOptions::chkQuietHours},
    {&setting::kQuietFrom, &FrmOptions::dtpQuietFrom},
    {&setting::kQuietTo, &FrmOptions::dtpQuietTo},
    {&setting::kQuietFullScreen, &FrmOptions::chkQuietFullScreen},
    {&setting::kQuietLocked, &FrmOptions::chkQuietLocked},
    {&setting::kQuietDesktop, &FrmOptions::chkQuietDesktop},
};
constexpr StoredControl kRules[] = {
    {&setting::kDotDash, &FrmOptions::chkDotDash, Stores::Always, kGuidesScan},
    {&setting::kIconFiles, &FrmOptions::chkIcon, Stores::Always, kGuidesScan},
    {&setting::kSpareCarriers, &FrmOptions::chkSpare, Stores::Always, kGuidesScan},
};

/// One operation for each kind of control, chosen by the row.
template <class Kind>
struct Keeping;

/// A control that a whole number tells all of, by its own operations.
template <class Control, auto take, auto number, auto fired>
struct KeepingNumber {
    static bool restore(Control& control, const std::string& stored) {
        const auto value = text::leadingInt16(stored);
        return value && (control.*take)(*value);
    }
    static std::string textOf(const Control& control) { return std::to_string((control.*number)()); }
    static ui::Event<>& event(Control& control) { return control.*fired; }
};

template <>
struct Keeping<ui::CheckBox>
    : KeepingNumber<ui::CheckBox, &ui::CheckBox::setValue, &ui::CheckBox::value, &ui::CheckBox::click> {};

template <>
struct Keeping<ui::ComboBox>
    : KeepingNumber<ui::ComboBox, &ui::ComboBox::select, &ui::ComboBox::selected, &ui::ComboBox::click> {};

template <>
struct Keeping<ui::Volume>
    : KeepingNumber<ui::Volume, &ui::Volume::setPercent, &ui::Volume::percent, &ui::Volume::change> {};

template <>
struct Keeping<ui::Picker> {
    static bool restore(ui::Picker& picker, const std::string& stored) {
        const auto when = text::dateOf(stored);
        if (!when)
            return false;
        if (picker.value() == *when)
            picker.change();
        picker.setValue(*when);
        return true;
    }
    static std::string textOf(const ui::Picker& picker) { return text::isoText(picker.value()); }
    static ui::Event<>& event(ui::Picker& picker) { return picker.change; }
};

template <>
struct Keeping<ui::TextBox> {
    /// Whoever checks what is typed must see it also where it is what the box shows already: nothing.
    static bool restore(ui::TextBox& box, const std::string& stored) {
        if (box.text() == stored)
            box.change();
        box.setText(stored);
        return true;
    }
    static std::string textOf(const ui::TextBox& box) { return box.text(); }
    static ui::Event<>& event(ui::TextBox& box) { return box.change; }
};

} // namespace

std::span<const StoredControl> storedControls() {
    return kControls;
}

std::span<const StoredControl> storedRules() {
    return kRules;
}

Status restore(FrmOptions& form, const StoredControl& row, const std::string& stored) {
    const bool taken = std::visit(
        [&]<class Kind>(Kind FrmOptions::*control) { return Keeping<Kind>::restore(form.*control, stored); },
        row.control);
    return taken ? Status(Done{}) : Status(Failure{380, "Invalid property value"});
}

void tieStoring(FrmOptions& form, settings::Settings& settings) {
    const auto tie = [&form, &settings](const StoredControl& row) {
        std::visit(
            [&]<class Kind>(Kind FrmOptions::*control) {
                if (row.stores == Stores::Mended)
                    return;
                Kind& kept = form.*control;
                Keeping<Kind>::event(kept) += [&form, &settings, &kept, &row] {
                    if (row.stores == Stores::Always || !form.loading)
                        settings.write(*row.setting, Keeping<Kind>::textOf(kept));
                };
            },
            row.control);
    };
    for (const StoredControl& row : kControls)
        tie(row);
    for (const StoredControl& row : kRules)
        tie(row);
}

} // namespace brovin::app
