#include "companion/quiet.h"

#include "companion/standing.h"
#include "text/date_text.h"
#include "text/numbers.h"

#include <chrono>
#include <string>
#include <utility>

namespace brovin::companion {
namespace {

namespace setting = settings::setting;
using platform::DateTime;
using std::chrono::days;
using std::chrono::hours;
using std::chrono::seconds;

/// When tomorrow begins for somebody who sleeps at night.
constexpr hours kMorning{6};

seconds timeOfDay(DateTime when) {
    return when - std::chrono::floor<days>(when);
}

} // namespace

Quiet::Quiet(const Needs& needs) : needs_(needs) {
    const std::pair<ui::CheckBox&, Switch> switches[] = {
        {needs_.menu.mQuiet, Switch::UntilSwitchedOff},
        {needs_.menu.mQuietHour, Switch::ForAnHour},
        {needs_.menu.mQuietTomorrow, Switch::UntilTomorrow},
    };
    for (const auto& [box, how] : switches)
        box.click = [this, &box = box, how = how] {
            if (box.checked() != (chosen_ == how)) // else it is shown, and nobody has clicked
                choose(how);
        };
    ui::SpeechPage& page = needs_.page;
    for (ui::CheckBox* box : {&page.chkQuietHours, &page.chkQuietFullScreen, &page.chkQuietLocked,
                              &page.chkQuietDesktop, &page.chkMuteVoice, &page.chkMuteSounds})
        box->click = [this] { review(); };
    for (ui::Picker* picker : {&page.dtpQuietFrom, &page.dtpQuietTo})
        picker->change = [this] { review(); };
    for (ui::Volume* volume : {&page.sldVoice, &page.sldSounds})
        volume->change = [this] { review(); };
    page.lblQuiet.setVisible(false);
}

void Quiet::choose(Switch how) {
    chosen_ = chosen_ == how ? Switch::Off : how;
    const DateTime now = needs_.clock.now();
    if (chosen_ == Switch::ForAnHour)
        until_ = now + hours(1);
    else if (chosen_ == Switch::UntilTomorrow)
        until_ = std::chrono::floor<days>(now) + days(1) + kMorning;
    needs_.settings.write(setting::kQuiet, std::to_string(static_cast<int>(chosen_)));
    const bool timed = chosen_ == Switch::ForAnHour || chosen_ == Switch::UntilTomorrow;
    needs_.settings.write(setting::kQuietUntil, timed ? text::isoText(until_) : std::string());
    review();
}

void Quiet::restore() {
    const auto stored = text::leadingInt16(needs_.settings.read(setting::kQuiet)).value_or(0);
    const bool known = stored > 0 && stored <= static_cast<int>(Switch::UntilTomorrow);
    chosen_ = known ? static_cast<Switch>(stored) : Switch::Off;
    until_ = text::dateOf(needs_.settings.read(setting::kQuietUntil)).value_or(DateTime{});
    review();
}

void Quiet::review() {
    Actor& actor = needs_.actor;
    if (asked() != actor.quiet) {
        actor.quiet = !actor.quiet;
        if (actor.quiet)
            actor.breakOff();
    }
    const ui::SpeechPage& page = needs_.page;
    const bool mutedVoice = actor.quiet || page.chkMuteVoice.checked();
    const bool mutedSounds = actor.quiet || page.chkMuteSounds.checked();
    needs_.service.setManners({.loudness = {.voice = mutedVoice ? 0 : page.sldVoice.percent(),
                                            .sounds = mutedSounds ? 0 : page.sldSounds.percent()},
                               .still = needs_.surroundings != nullptr && needs_.surroundings->lessMotion(),
                               .readOut = page.chkReadOut.checked(),
                               .paused = behindLock(),
                               .curious = !actor.quiet});
    needs_.page.lblQuiet.setVisible(actor.quiet);
    showSwitch();
    changed();
}

/// Whether anything asks for quiet. A time that has come ends the switch.
bool Quiet::asked() {
    const ui::SpeechPage& page = needs_.page;
    if (chosen_ != Switch::Off && chosen_ != Switch::UntilSwitchedOff && needs_.clock.now() >= until_) {
        chosen_ = Switch::Off;
        needs_.settings.write(setting::kQuiet, "0");
    }
    if (chosen_ != Switch::Off || (page.chkQuietHours.checked() && inHours()))
        return true;
    const platform::Surroundings* const around = needs_.surroundings;
    return around != nullptr && (behindLock() || (page.chkQuietDesktop.checked() && around->doNotDisturb()) ||
                                 (page.chkQuietFullScreen.checked() && behindFullScreen()));
}

bool Quiet::behindLock() const {
    return needs_.surroundings != nullptr && needs_.page.chkQuietLocked.checked() &&
           needs_.surroundings->locked();
}

/// From the first minute to the last, which may lie on the next day. The same for both means never.
bool Quiet::inHours() const {
    const seconds from = timeOfDay(needs_.page.dtpQuietFrom.value());
    const seconds to = timeOfDay(needs_.page.dtpQuietTo.value());
    const seconds now = timeOfDay(needs_.clock.now());
    return from <= to ? from <= now && now < to : from <= now || now < to;
}

/// On the screen where the character lives; where nobody lives anywhere, on any.
bool Quiet::behindFullScreen() const {
    const auto window = needs_.surroundings->fullScreen();
    const platform::Character* const character = needs_.actor.character;
    const Screens screens = needs_.service.screens();
    if (!window || character == nullptr || screens.empty())
        return window.has_value();
    return overlap(*window, screenUnder(character->place.area(), screens)) > 0;
}

void Quiet::showSwitch() {
    const auto show = [this](ui::CheckBox& box, Switch how) {
        if (box.checked() != (chosen_ == how))
            box.setValue(chosen_ == how ? ui::CheckBox::kOn : ui::CheckBox::kOff);
    };
    show(needs_.menu.mQuiet, Switch::UntilSwitchedOff);
    show(needs_.menu.mQuietHour, Switch::ForAnHour);
    show(needs_.menu.mQuietTomorrow, Switch::UntilTomorrow);
}

} // namespace brovin::companion
