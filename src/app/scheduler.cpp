#include "app/scheduler.h"

#include "companion/word_generator.h"
#include "platform/random.h"
#include "text/date_text.h"
#include "text/numbers.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <optional>
#include <string>
#include <utility>

namespace brovin::app {
namespace {

namespace box = platform::box;
namespace setting = settings::setting;
using companion::ForceBox;
using language::Message;
using language::PhraseList;
using platform::DateTime;
using std::chrono::days;
using std::chrono::local_days;

local_days dayOf(DateTime when) {
    return std::chrono::floor<days>(when);
}

std::int16_t dayOfMonth(DateTime when) {
    const std::chrono::year_month_day day(dayOf(when));
    return static_cast<std::int16_t>(static_cast<unsigned>(day.day()));
}

unsigned weekday(DateTime when) {
    return std::chrono::weekday(dayOf(when)).c_encoding();
}

/// A month later; a day that the next month does not have becomes its last one.
local_days monthLater(local_days day) {
    const std::chrono::year_month_day begun(day);
    std::chrono::year_month_day later = begun + std::chrono::months(1);
    if (!later.ok())
        later = later.year() / later.month() / std::chrono::last;
    return local_days(later);
}

/// The first day on which a check is due again, by the index of the list of periods.
local_days nextCheck(local_days last, int period) {
    switch (period) {
    case 1:
        return last + days(7);
    case 2:
        return last + days(14);
    case 3:
        return monthLater(last);
    default:
        return last + days(1);
    }
}

ForceBox forcedBy(const ui::CheckBox& box) {
    return box.checked() ? ForceBox::Yes : ForceBox::No;
}

} // namespace

void Scheduler::beginDay() {
    lastReminderDay_ = static_cast<std::int16_t>(dayOfMonth(needs_.clock.now()) - 1);
}

void Scheduler::Timer1_Timer() {
    const companion::WaitingNews::ByTheClock nobodyAsked(needs_.news);
    needs_.quiet.review();
    needs_.news.tell();
    chatter();
    remind();
    announceWord();
    scanWhenDue();
    if (needs_.form.exitConfirmed)
        return; // the scan has ended with an update that takes the program's place
    stayInReach();
    checkWhenDue();
}

/// A desktop whose panel is slow to come has its place for the icon by the first tick. Where it has none, the
/// window is in the task bar; nothing comes up unasked. When there is a place after all, it leaves it again.
void Scheduler::stayInReach() {
    ui::Window& window = needs_.form.window;
    if (needs_.tip.addIconAgain()) {
        if (window.visible() && window.state() == ui::WindowState::Minimized)
            window.setVisible(false);
        return;
    }
    if (!window.visible()) {
        window.setState(ui::WindowState::Minimized);
        window.setVisible(true);
    }
    if (needs_.settings.read(setting::kIconHint) == "1")
        return;
    needs_.settings.write(setting::kIconHint, "1");
    needs_.speech.announcer.agentMsgBox(needs_.speech.messages.getText("noPlaceForIcon"), box::kInformation,
                                        "", ForceBox::No);
}

void Scheduler::chatter() {
    constexpr std::size_t kDraws = 1001;
    const auto n = static_cast<int>(platform::drawBelow(needs_.random, kDraws));
    if (!needs_.form.chkAgent.checked() || needs_.quiet.on())
        return;
    const int frequency = needs_.speechFrequency.speechFreq;
    if (frequency >= n * 8 && !needs_.actor.visible()) {
        popOut();
        return;
    }
    const int limit = frequency * 4;
    if (limit > std::numeric_limits<std::int16_t>::max()) // does not fit its variable
        return;
    if (n < limit && needs_.actor.visible())
        if (const auto phrase = needs_.speech.phrases.pickPhrase(PhraseList::SpkRandomVisible))
            needs_.actor.speak(*phrase);
}

/// A hidden character appears for one remark.
void Scheduler::popOut() {
    needs_.actor.show();
    if (const auto animation = needs_.speech.phrases.pickPhrase(PhraseList::AniRandomPopOut))
        needs_.actor.play(*animation);
    needs_.speech.announcer.holdAttention();
    if (const auto phrase = needs_.speech.phrases.pickPhrase(PhraseList::SpkRandomHidden))
        needs_.actor.speak(*phrase);
    needs_.speech.announcer.leadBack();
    needs_.actor.hide();
}

void Scheduler::remind() {
    ui::FrmOptions& form = needs_.form;
    const DateTime now = needs_.clock.now();
    const DateTime due = form.dtpBackup.value();
    const auto& regional = needs_.regional;
    if (regional.shortTime(due) != regional.shortTime(now))
        return;
    const bool today =
        form.optDaily.value() || regional.shortDayName(weekday(due)) == regional.shortDayName(weekday(now));
    if (!today || !form.chkBackup.checked() || dayOfMonth(now) == lastReminderDay_)
        return;
    std::string text = needs_.settings.read(setting::kReminderWhenDue);
    text = needs_.speech.phrases.pickPhrase(text).value_or(text);
    needs_.news.bring("reminder", {text, box::kInformation, "Reminder", forcedBy(form.chkMsgBox)});
    lastReminderDay_ = dayOfMonth(now);
}

void Scheduler::announceWord() {
    ui::FrmOptions& form = needs_.form;
    const DateTime now = needs_.clock.now();
    const DateTime due = form.dtpWord.value();
    const std::chrono::seconds late = (now - dayOf(now)) - (due - dayOf(due));
    // The window is shorter than a tick, so that on some days there is no word. That is meant.
    constexpr std::chrono::seconds kWindow{30};
    if (late <= std::chrono::seconds(0) || late >= kWindow || !form.chkWord.checked())
        return;
    const std::string word = companion::makeWord(needs_.random);
    const std::string dude = needs_.speech.phrases.getDude();
    const auto& messages = needs_.speech.messages;
    needs_.news.bring("word", {messages.getMessage(Message::WordOfTheDay, {word, dude}), box::kInformation,
                               messages.getMessage(Message::WordOfTheDayTitle, {word, dude}),
                               forcedBy(form.chkWordMsgBox)});
}

void Scheduler::scanWhenDue() {
    ui::FrmOptions& form = needs_.form;
    using std::chrono::hours;
    // A clock that was wrong and was put right would keep the next scan away for as long as it was ahead.
    needs_.cleaner.scan.lastScanTime = std::min(needs_.cleaner.scan.lastScanTime, needs_.clock.now());
    const auto boundaries = std::chrono::floor<hours>(needs_.clock.now()) -
                            std::chrono::floor<hours>(needs_.cleaner.scan.lastScanTime);
    if (!form.chkCheck.checked() || needs_.cleaner.scan.searching() ||
        static_cast<double>(boundaries.count()) < text::leadingNumber(form.txtInterval.text()))
        return;
    if (needs_.cleaner.scanRun.runScan() == cleaner::ScanOutcome::BusyElsewhere)
        return; // the next tick tries again
    needs_.cleaner.scan.lastScanTime = needs_.clock.now();
    needs_.cleaner.statistics.showLastScanned();
    needs_.cleaner.scanRun.tellOfStrangers();
}

void Scheduler::checkWhenDue() {
    // An update that is accepted ends the program, which a scan does not let happen. It ends with a check
    // itself.
    if (!needs_.form.chkUpdate.checked() || needs_.cleaner.scan.busy())
        return;
    const local_days today = dayOf(needs_.clock.now());
    const std::string stored = needs_.settings.read(setting::kLastUpdateCheck);
    // What is no date counts as never: else one bad value would end the checks for good.
    if (const auto last = text::dateOf(stored);
        last && nextCheck(dayOf(*last), needs_.form.cmbCheck.selected()) > today)
        return;
    needs_.settings.write(setting::kLastUpdateCheck, text::isoText(today));
    checkForUpdates();
}

} // namespace brovin::app
