#include "desktop/updates/curl_transfer.h"

#include "platform/reasons.h"
#include "text/strings.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace brovin::desktop {

using net::Arrival;
namespace reason = platform::reason;
using platform::Failure;
using platform::TransferState;

namespace {
constexpr int kLoopRefused = -1; ///< what an event loop says that is begun after the program was told to end
}

bool WakeUp::event(QEvent* event) {
    if (event->type() != QEvent::User)
        return QObject::event(event);
    awake_();
    return true;
}

std::function<void()> CurlTransfer::waker() {
    return [this] {
        if (!called_.exchange(true))
            QCoreApplication::postEvent(&wakeUp_, new QEvent(QEvent::User));
    };
}

void CurlTransfer::awake() {
    called_ = false;
    if (loop_ != nullptr)
        loop_->quit();
    if (!fetching_)
        announce();
}

/// Tells once how an asynchronous request has got on.
void CurlTransfer::announce() {
    if (!request_ || announced_)
        return;
    Arrival arrival = request_->take();
    if (!arrival.response && !arrival.ended)
        return;
    announced_ = true;
    chunk_ = std::move(arrival.bytes);
    read_ = 0;
    if (!arrival.response)
        failure_ = arrival.failure.value_or(Failure{0, reason::kNothingSaid});
    const auto tell = stateChanged;
    if (tell)
        tell(arrival.response ? TransferState::Response : TransferState::Error);
}

/// Waits inside the handler that reads, by an event loop of its own: the window goes on to repaint and to
/// answer, and one of those answers may wait here again, inside this wait. Only the innermost loop gets the
/// wake-up for what arrives, and only it can return; so each wakes the one around it when it leaves. That one
/// looks for itself whether anything has come, which is why callers ask in a loop. False: the program ends.
bool CurlTransfer::wait() {
    QEventLoop loop;
    QEventLoop* const outer = std::exchange(loop_, &loop);
    const bool goesOn = loop.exec() != kLoopRefused;
    loop_ = outer;
    if (outer != nullptr)
        outer->quit();
    return goesOn;
}

platform::Result<std::string> CurlTransfer::openUrl(const platform::TransferRequest& request,
                                                    std::size_t limit) {
    if (fetching_ || request_)
        return Failure{0, reason::kOtherRequest};
    called_ = false;
    auto opened = module_.open(request, patience_, waker());
    if (!opened)
        return opened.failure();
    fetching_ = true;
    const std::unique_ptr<net::WebRequest> fetch = *std::move(opened);
    QElapsedTimer since;
    since.start();
    QTimer deadline;
    QObject::connect(&deadline, &QTimer::timeout, &wakeUp_, [this] { awake(); });
    deadline.start(request.longest);
    std::string text;
    std::optional<Failure> failure;
    for (bool ended = false; !ended && !failure;) {
        Arrival arrival = fetch->take();
        text += arrival.bytes;
        ended = arrival.ended;
        failure = arrival.failure;
        if (text.size() > limit)
            failure = Failure{0, reason::kTooLong};
        else if (!ended && since.hasExpired(request.longest.count()))
            failure = Failure{platform::kTimedOut, reason::kTooSlow};
        else if (!ended && !wait())
            failure = Failure{0, reason::kEnding};
    }
    took_ = std::chrono::milliseconds(since.elapsed());
    fetching_ = false;
    if (failure)
        return *failure;
    return text;
}

platform::Status CurlTransfer::execute(const platform::TransferRequest& request) {
    if (fetching_)
        return Failure{0, reason::kOtherRequest};
    cancel();
    announced_ = false;
    called_ = false;
    auto opened = module_.open(request, patience_, waker());
    if (!opened)
        return opened.failure();
    request_ = *std::move(opened);
    return platform::Done{};
}

std::optional<std::string> CurlTransfer::header(std::string_view name) const {
    return request_ ? request_->header(text::asciiLower(name)) : std::nullopt;
}

platform::Result<std::string_view> CurlTransfer::readPiece(std::size_t most) {
    while (read_ == chunk_.size()) {
        if (!request_)
            return std::string_view();
        Arrival arrival = request_->take();
        chunk_ = std::move(arrival.bytes);
        read_ = 0;
        if (!chunk_.empty())
            break;
        if (arrival.failure)
            return *arrival.failure;
        if (arrival.ended)
            return std::string_view();
        if (!wait())
            return Failure{0, reason::kEnding};
    }
    const std::string_view piece = std::string_view(chunk_).substr(read_, most);
    read_ += piece.size();
    return piece;
}

void CurlTransfer::cancel() {
    request_.reset();
    chunk_.clear();
    read_ = 0;
    if (loop_ != nullptr)
        loop_->quit();
}

} // namespace brovin::desktop
