#pragma once

#include "platform/result.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace brovin::platform {

/// Whether an address may be fetched over a connection that anybody on the way can read and change.
enum class PlainHttp {
    OnlyFromThisMachine, ///< loopback addresses; everything else by https
    Anywhere,            ///< what comes is proven by other means
};

/// A document to fetch by GET.
struct TransferRequest {
    std::string url;
    PlainHttp plainHttp = PlainHttp::OnlyFromThisMachine;
    std::chrono::milliseconds longest{20'000}; ///< that `openUrl` waits for the whole of it
};

/// The `Failure::number` of a request that ran out of time.
inline constexpr int kTimedOut = 28;

/// How an asynchronous request has got on.
enum class TransferState {
    Error = 11,    ///< no answer, or one that is none: `failure` tells why
    Response = 12, ///< the answer has come; its headers are known and its body can be read
};

/// Fetches documents from web servers. At most five redirects are followed, none that leaves https. There are
/// time limits on connecting, on silence, and on servers that keep a line open by a drip. Only one request at
/// a time.
class InternetTransfer {
public:
    virtual ~InternetTransfer() = default;

    /// Fetches a whole text and waits for it; meanwhile all events come through. Failure: no answer, another
    /// answer than success, more than `limit` bytes, or the program ends.
    virtual Result<std::string> openUrl(const TransferRequest& request, std::size_t limit) = 0;
    /// How long the last `openUrl` took.
    [[nodiscard]] virtual std::chrono::milliseconds took() const = 0;

    /// Called with the state of a request that `execute` has started, on the program's thread and never from
    /// within `execute`.
    std::function<void(TransferState)> stateChanged;

    /// Starts a request. Failure: it cannot be started at all.
    virtual Status execute(const TransferRequest& request) = 0;
    /// Why the request ended with `TransferState::Error`.
    [[nodiscard]] virtual Failure failure() const = 0;
    /// A header of the answer, whatever the case of its name; nullopt: the answer does not have it.
    [[nodiscard]] virtual std::optional<std::string> header(std::string_view name) const = 0;
    /// The next piece of the body, at most `most` bytes, which stays valid until the next call; waits for it,
    /// and lets all events through meanwhile. Empty: the body is at its end, or the request was cancelled.
    /// Failure: the connection broke.
    virtual Result<std::string_view> readPiece(std::size_t most) = 0;
    /// Ends the request; nothing more comes of it.
    virtual void cancel() = 0;
};

} // namespace brovin::platform
