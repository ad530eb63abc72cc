#include "character/stage/event_list.h"

#include <utility>

namespace brovin::character {
namespace {

bool isForNobody(const Event& event) {
    if (const auto* const started = std::get_if<event::RequestStarted>(&event))
        return started->request.expired();
    const auto* const ended = std::get_if<event::RequestEnded>(&event);
    return ended != nullptr && ended->request.expired();
}

} // namespace

void EventList::add(Event event) {
    waiting_.push_back(std::move(event));
    attention_.ask();
}

std::optional<Event> EventList::take() {
    while (!waiting_.empty()) {
        Event oldest = std::move(waiting_.front());
        waiting_.pop_front();
        if (!isForNobody(oldest))
            return oldest;
    }
    return std::nullopt;
}

} // namespace brovin::character
