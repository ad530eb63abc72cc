#include "desktop/character/event_delivery.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <variant>

namespace brovin::desktop {
namespace {

using platform::CharacterClick;
using platform::CharacterEvents;

constexpr std::chrono::milliseconds kAskForEvents{250}; ///< whether events that are held can be let go

template <class... Fs>
struct Overloaded : Fs... {
    using Fs::operator()...;
};
template <class... Fs>
Overloaded(Fs...) -> Overloaded<Fs...>;

void tellClick(const std::function<void(const CharacterClick&)>& handler, const std::string& id,
               const character::Pointer& pointer) {
    if (handler)
        handler({id, pointer.button, pointer.shift, pointer.at.x, pointer.at.y});
}

void tell(const CharacterEvents& events, const std::string& id, const character::Event& event) {
    std::visit(
        Overloaded{
            [&](const character::event::Clicked& e) { tellClick(events.click, id, e.pointer); },
            [&](const character::event::DragStarted& e) { tellClick(events.dragStart, id, e.pointer); },
            [&](const character::event::DragCompleted& e) { tellClick(events.dragComplete, id, e.pointer); },
            [&](const character::event::Disappeared& e) {
                if (events.hide)
                    events.hide(id, static_cast<int>(e.cause));
            },
            [](const auto&) {}},
        event);
}

} // namespace

EventDelivery::EventDelivery(std::function<bool()> busy) : busy_(std::move(busy)) {
    timer_.setSingleShot(true);
    QObject::connect(&timer_, &QTimer::timeout, [this] { deliver(); });
}

void EventDelivery::add(const std::string& id, character::Event event) {
    add(id, [id, happened = std::move(event)](const CharacterEvents& events) { tell(events, id, happened); });
}

void EventDelivery::add(const std::string& id, Telling tell) {
    waiting_.push_back({id, std::move(tell)});
    if (!delivering_ && !timer_.isActive())
        timer_.start(0);
}

void EventDelivery::forget(const std::string& id) {
    std::erase_if(waiting_, [&id](const Waiting& waiting) { return waiting.id == id; });
}

void EventDelivery::deliver() {
    delivering_ = true;
    while (!waiting_.empty() && !busy_()) {
        const Waiting oldest = std::move(waiting_.front());
        waiting_.pop_front();
        const platform::CharacterEvents events = events_; // a handler may set others
        oldest.tell(events);
    }
    delivering_ = false;
    if (!waiting_.empty())
        timer_.start(kAskForEvents);
}

} // namespace brovin::desktop
