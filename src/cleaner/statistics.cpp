#include "cleaner/statistics.h"

#include "text/numbers.h"
#include "text/strings.h"

#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>

namespace brovin::cleaner {
namespace {

namespace box = platform::box;
namespace setting = settings::setting;
using companion::ForceBox;
using language::Message;
using platform::DateTime;

/// The most that an honest count can have reached.
constexpr std::int32_t kMostBelievable = 65535;

std::string twoDigits(unsigned number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

/// A moment taken apart for the two fixed formats.
struct Parts {
    explicit Parts(DateTime when)
        : day(std::chrono::floor<std::chrono::days>(when)),
          time(when - std::chrono::floor<std::chrono::days>(when)) {}

    /// "h:mm ampm", with the hour of the twelve-hour clock.
    [[nodiscard]] std::string clock(const platform::Regional& regional) const {
        const auto hour = static_cast<unsigned>(time.hours().count());
        const unsigned twelve = hour % 12 == 0 ? 12 : hour % 12;
        const std::string half = regional.amPm(hour);
        return std::to_string(twelve) + ":" + twoDigits(static_cast<unsigned>(time.minutes().count())) +
               (half.empty() ? "" : " ") + half;
    }
    [[nodiscard]] unsigned dayOfMonth() const { return static_cast<unsigned>(day.day()); }
    [[nodiscard]] unsigned month() const { return static_cast<unsigned>(day.month()); }
    [[nodiscard]] int year() const { return static_cast<int>(day.year()); }

    std::chrono::year_month_day day;
    std::chrono::hh_mm_ss<std::chrono::seconds> time;
};

} // namespace

void Statistics::updateStatistics() {
    const std::int32_t total = text::leadingInt32(needs_.settings.read(setting::kTotalNuked))
                                   .value_or(std::numeric_limits<std::int32_t>::max());
    if (total > kMostBelievable) {
        reset(today());
        tellOff();
    }
    const auto kb = text::leadingInt32(needs_.settings.read(setting::kKb)).value_or(0);
    const settings::ProgramInfo& program = needs_.program;
    numbers_ = program.title + " v" + std::to_string(program.major) + "." + std::to_string(program.minor) +
               "." + std::to_string(program.revision) + " - " + std::to_string(total) + " (" +
               needs_.regional.grouped(kb) + " KB) nasties since " +
               needs_.settings.stored(setting::kTotalDate).value_or(today()) + ".";
    needs_.frame.sbScore.setPanel(numbers_);
    needs_.frame.window.setCaption(numbers_);
}

void Statistics::showRunning(const std::string& what) {
    needs_.frame.window.setCaption(needs_.program.title + " - " + what);
}

void Statistics::reset(std::string since) {
    needs_.settings.write(setting::kTotalNuked, "0");
    needs_.settings.write(setting::kKb, "0");
    needs_.settings.write(setting::kTotalDate, std::move(since));
}

void Statistics::tellOff() {
    const std::string first = needs_.speech.phrases.getDude();
    const std::string second = needs_.speech.phrases.getDude();
    const std::string third = needs_.speech.phrases.getDude();
    needs_.speech.announcer.agentMsgBox(
        "You've been very naughty. You seem to have increased your count by deceit\r\nand therefore, " +
            first + ", I have been forced to reset it" + second + ".",
        box::kCritical, "Bad " + third, ForceBox::No);
}

std::optional<DateTime> Statistics::nextScan() const {
    const double hours = text::leadingNumber(needs_.foldersPage.txtInterval.text());
    constexpr double kMostHours = 24.0 * 366 * 7000; // a date further off has no name
    if (std::abs(hours) > kMostHours)
        return std::nullopt;
    return needs_.scan.lastScanTime + std::chrono::seconds(std::llround(hours * 3600));
}

void Statistics::showLastScanned() {
    const auto& messages = needs_.speech.messages;
    const std::string last = needs_.settings.read(setting::kLastScanned);
    ui::StatusBar& status = needs_.frame.sbStatus;
    status.setPanel(last.empty() ? messages.getMessage(Message::NeverScanned)
                                 : messages.getMessage(Message::LastScanned, {last}));
    const auto next = nextScan();
    if (!next)
        return;
    const Parts at(*next);
    const std::string clock = at.clock(needs_.regional);
    const std::string date =
        twoDigits(at.dayOfMonth()) + "/" + twoDigits(at.month()) + "/" + std::to_string(at.year());
    needs_.foldersPage.txtInterval.setToolTip(messages.getMessage(Message::NextScan, {clock + " " + date}));
    if (last.empty())
        return;
    const std::string day = twoDigits(at.dayOfMonth()) + " " + needs_.regional.monthName(at.month());
    status.setPanel(status.panel() + ". " + messages.getMessage(Message::NextScan, {clock + ", " + day}) +
                    ".");
}

void Statistics::cmdResetCounter_Click() {
    const std::string total = needs_.settings.read(setting::kTotalNuked);
    if (total == "0")
        return;
    const auto& messages = needs_.speech.messages;
    const auto answer = needs_.speech.announcer.agentMsgBox(
        messages.getMessage(Message::ConfirmResetCounter,
                            {text::trim(total), needs_.speech.phrases.getDude()}),
        box::kYesNo | box::kExclamation, messages.getMessage(Message::ConfirmResetCounterTitle),
        ForceBox::Yes);
    if (answer != platform::Button::Yes)
        return;
    reset(needs_.regional.shortDate(needs_.clock.now()));
    updateStatistics();
}

void Statistics::cmdCopyNumbers_Click() {
    if (needs_.characterPage.chkAgent.checked()) {
        needs_.actor.play("Write");
        needs_.actor.play("WriteReturn");
    }
    // A clipboard that refuses keeps what it had; there is nothing better to do for the user.
    static_cast<void>(needs_.clipboard.setText(numbers_));
}

} // namespace brovin::cleaner
