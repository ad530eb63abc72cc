#include "companion/waiting_news.h"

#include <chrono>
#include <cstddef>
#include <utility>

namespace brovin::companion {
namespace {

constexpr std::size_t kMostKept = 10;

} // namespace

WaitingNews::WaitingNews(const Needs& needs) : needs_(needs) {
    needs_.announcer.leave = [this](const Announcement& news) {
        if (byTheClock_)
            keep({}, news);
        return byTheClock_;
    };
}

void WaitingNews::bring(std::string_view kind, const Announcement& news) {
    if (needs_.actor.quiet)
        keep(kind, news);
    else
        needs_.announcer.agentMsgBox(news.text, news.style, news.title, news.force);
}

void WaitingNews::keep(std::string_view kind, const Announcement& news) {
    std::erase_if(kept_, [kind](const Kept& kept) { return !kind.empty() && kept.kind == kind; });
    if (kept_.size() == kMostKept)
        kept_.erase(kept_.begin());
    kept_.push_back({std::string(kind), needs_.clock.now(), news});
}

void WaitingNews::tell() {
    while (!needs_.actor.quiet &&
           !kept_.empty()) { // a box takes its time, in which it may become quiet again
        const Kept oldest = std::move(kept_.front());
        kept_.erase(kept_.begin());
        const Announcement& news = oldest.news;
        needs_.announcer.agentMsgBox(
            needs_.messages.getText("whileQuiet", {momentOf(oldest.came), news.text}), news.style, news.title,
            news.force);
        needs_.announcer.hearOut();
    }
}

/// The time; of another day, its date as well.
std::string WaitingNews::momentOf(platform::DateTime came) const {
    using std::chrono::days;
    const bool today = std::chrono::floor<days>(came) == std::chrono::floor<days>(needs_.clock.now());
    const std::string time = needs_.regional.shortTime(came);
    return today ? time : needs_.regional.shortDate(came) + " " + time;
}

} // namespace brovin::companion
