#include "character/stage/request_queue.h"

#include <algorithm>
#include <utility>

namespace brovin::character {

RequestHandle RequestQueue::add(RequestKind kind, std::unique_ptr<Act> act) {
    auto request = std::make_shared<Request>();
    request->kind = kind;
    request->queue = this;
    items_.push_back({kind, std::move(act), request});
    if (items_.size() == 1)
        startFirst();
    return request;
}

std::optional<RequestKind> RequestQueue::running() const {
    return items_.empty() ? std::nullopt : std::optional(items_.front().kind);
}

void RequestQueue::stop() {
    removeOthers();
    if (!items_.empty() && stopTypeOf(items_.front().kind) != kStopShowAndHide)
        stopFirst(RequestError::Interrupted);
}

RequestError RequestQueue::stop(const Request& request) {
    if (request.queue != this)
        return RequestError::OtherCharactersRequest;
    const auto isIt = [&request](const Item& item) { return item.kept.lock().get() == &request; };
    const auto found = std::find_if(items_.begin(), items_.end(), isIt);
    if (found == items_.end())
        return RequestError::RequestNotFound;
    if (found == items_.begin())
        stopFirst(RequestError::Interrupted);
    else
        remove(static_cast<std::size_t>(found - items_.begin()));
    return RequestError::None;
}

void RequestQueue::stopAll(StopTypes types) {
    const auto concerned = [types](RequestKind kind) {
        return types == kStopEverything || (stopTypeOf(kind) & types) != 0;
    };
    // From the back, so that none of them is started only to be stopped.
    for (auto i = items_.size(); i-- > 1;)
        if (concerned(items_[i].kind))
            remove(i);
    if (!items_.empty() && concerned(items_.front().kind))
        stopFirst(RequestError::Interrupted);
}

void RequestQueue::interruptByHiding() {
    removeOthers();
    if (!items_.empty() && items_.front().kind != RequestKind::Hide)
        stopFirst(RequestError::InterruptedByHiding);
}

RequestQueue::Progress RequestQueue::advance(Moment now) {
    if (items_.empty())
        return {std::nullopt, false};
    const ActProgress progress = items_.front().act->advance(now);
    if (!progress.ended)
        return {progress.wake, false};
    const bool complete = *progress.ended == RequestError::None;
    endFirst(complete ? RequestStatus::Complete : RequestStatus::Failed, *progress.ended);
    return {std::nullopt, true};
}

void RequestQueue::stopFirst(RequestError error) {
    items_.front().act->stop();
    endFirst(RequestStatus::Interrupted, error);
}

void RequestQueue::endFirst(RequestStatus status, RequestError error) {
    const Item ended = std::move(items_.front());
    items_.pop_front();
    report(ended, status, error);
    if (!items_.empty())
        startFirst();
}

void RequestQueue::removeOthers() {
    for (std::size_t i = 1; i < items_.size(); ++i)
        report(items_[i], RequestStatus::Interrupted, RequestError::RemovedFromQueue);
    if (items_.size() > 1)
        items_.erase(items_.begin() + 1, items_.end());
}

void RequestQueue::remove(std::size_t place) {
    report(items_[place], RequestStatus::Interrupted, RequestError::RemovedFromQueue);
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(place));
}

void RequestQueue::report(const Item& item, RequestStatus status, RequestError error) {
    const auto request = item.kept.lock();
    if (!request)
        return;
    request->status = status;
    request->error = error;
    events_.add(event::RequestEnded{request});
}

void RequestQueue::startFirst() {
    const auto request = items_.front().kept.lock();
    if (!request)
        return;
    request->status = RequestStatus::InProgress;
    events_.add(event::RequestStarted{request});
}

} // namespace brovin::character
