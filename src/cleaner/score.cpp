#include "cleaner/score.h"

#include "text/date_text.h"

#include <chrono>
#include <optional>

namespace brovin::cleaner {
namespace {

using platform::Score;
using platform::ScoreBy;
using std::chrono::local_days;

/// More bars than the longest history has weeks; of names and folders, the first of them say it all.
constexpr std::size_t kMostBars = 1000;

std::optional<local_days> dayOf(const std::string& label) {
    const auto moment = text::dateOf(label);
    if (!moment)
        return std::nullopt;
    return std::chrono::floor<std::chrono::days>(*moment);
}

local_days following(ScoreBy by, local_days day) {
    if (by == ScoreBy::Week)
        return day + std::chrono::days(7);
    return local_days(std::chrono::year_month_day(day) + std::chrono::months(1));
}

/// Adds the empty times between the last bar and this day.
void fillUpTo(local_days day, ScoreBy by, std::vector<Score>& bars) {
    const auto last = bars.empty() ? std::nullopt : dayOf(bars.back().label);
    if (!last)
        return;
    for (local_days each = following(by, *last); each < day && bars.size() < kMostBars;
         each = following(by, each))
        bars.push_back({text::isoText(each), 0, 0});
}

std::string csvField(const std::string& value) {
    std::string field = "\"";
    for (const char c : value)
        field.append(c == '"' ? 2 : 1, c);
    return field + "\"";
}

} // namespace

platform::Result<std::vector<Score>> ScoreBook::bars(ScoreBy by) {
    auto found = needs_.history.score(by, kMostBars);
    if (!found || by == ScoreBy::Name || by == ScoreBy::Folder)
        return found;
    std::vector<Score> all;
    for (Score& bar : *found) {
        if (const auto day = dayOf(bar.label))
            fillUpTo(*day, by, all);
        all.push_back(std::move(bar));
    }
    return all;
}

std::string ScoreBook::shownLabel(ScoreBy by, const std::string& label) const {
    const auto day = by == ScoreBy::Week || by == ScoreBy::Month ? dayOf(label) : std::nullopt;
    if (!day)
        return label;
    if (by == ScoreBy::Week)
        return needs_.regional.shortDate(*day);
    const std::chrono::year_month_day date(*day);
    return needs_.regional.monthName(static_cast<unsigned>(date.month())) + " " +
           std::to_string(static_cast<int>(date.year()));
}

std::string ScoreBook::heading(ScoreBy by) const {
    switch (by) {
    case ScoreBy::Week:
        return needs_.messages.getText("scoreWeek");
    case ScoreBy::Month:
        return needs_.messages.getText("scoreMonth");
    case ScoreBy::Name:
        return needs_.messages.getText("scoreName");
    case ScoreBy::Folder:
        return needs_.messages.getText("scoreFolder");
    }
    return {};
}

std::string ScoreBook::csv(ScoreBy by, std::span<const Score> bars) const {
    std::string table = csvField(heading(by)) + "," + csvField(needs_.messages.getText("scoreItems")) + "," +
                        csvField(needs_.messages.getText("scoreKilobytes")) + "\r\n";
    for (const Score& bar : bars)
        table += csvField(bar.label) + "," + std::to_string(bar.items) + "," + std::to_string(bar.kilobytes) +
                 "\r\n";
    return table;
}

std::string ScoreBook::trouble() {
    const std::string damaged = needs_.history.takeDamaged();
    return damaged.empty() ? damaged : needs_.messages.getText("scoreDamaged", {damaged});
}

} // namespace brovin::cleaner
