#pragma once

#include "character/stage/act.h"
#include "character/stage/event_list.h"
#include "character/stage/request.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>

namespace brovin::character {

/// The requests of one character, which are carried out strictly one after another. The first is in progress
/// as soon as it is the first, although its act may begin later.
class RequestQueue {
public:
    explicit RequestQueue(EventList& events) : events_(events) {}

    RequestHandle add(RequestKind kind, std::unique_ptr<Act> act);

    [[nodiscard]] bool empty() const { return items_.empty(); }
    [[nodiscard]] std::size_t size() const { return items_.size(); }
    /// The kind in progress; nullopt: none.
    [[nodiscard]] std::optional<RequestKind> running() const;

    /// Ends the one in progress, unless it is a Show or a Hide, and removes all others.
    void stop();

    /// Ends or removes one.
    RequestError stop(const Request& request);

    /// Ends and removes those of these types; a Show or Hide in progress takes full effect.
    void stopAll(StopTypes types);

    /// Ends the one in progress, unless it is a Hide, because the user hides the character, and removes all
    /// others.
    void interruptByHiding();

    struct Progress {
        Wake wake;
        bool ended; ///< the next one, if any, is in progress and has not been called yet
    };
    /// Carries on with the one in progress.
    Progress advance(Moment now);

private:
    struct Item {
        RequestKind kind;
        std::unique_ptr<Act> act;
        std::weak_ptr<Request> kept; ///< expired: nobody wants to know
    };

    void endFirst(RequestStatus status, RequestError error);
    void stopFirst(RequestError error);
    void removeOthers();
    void remove(std::size_t place);
    void report(const Item& item, RequestStatus status, RequestError error);
    void startFirst();

    EventList& events_;
    std::deque<Item> items_;
};

} // namespace brovin::character
