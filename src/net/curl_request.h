#pragma once

#include "net/patience.h"
#include "net/web_request.h"
#include "platform/internet_transfer.h"

#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace brovin::net {

/// A GET in a thread of its own. What comes waits in a buffer of bounded size until it is taken; a server
/// that sends faster waits too.
class CurlRequest final : public WebRequest {
public:
    /// `wake` is called from the thread whenever there may be something to take.
    CurlRequest(platform::TransferRequest request, const Patience& patience, std::function<void()> wake);
    ~CurlRequest() override;

    [[nodiscard]] Arrival take() override;
    [[nodiscard]] std::optional<std::string> header(const std::string& name) override;

private:
    struct Hop;
    using Clock = std::chrono::steady_clock;

    void run();
    [[nodiscard]] std::optional<platform::Failure> follow();
    [[nodiscard]] std::optional<platform::Failure> fetch(Hop& hop);
    [[nodiscard]] std::optional<platform::Failure> whyGiveUp(const Hop& hop);
    [[nodiscard]] std::optional<platform::Failure> outcomeOf(Hop& hop, int code) const;
    void takeHeader(Hop& hop, std::string_view line);
    [[nodiscard]] bool takeBytes(Hop& hop, std::string_view bytes);
    static std::size_t headerCallback(char* data, std::size_t size, std::size_t count, void* hop);
    static std::size_t bytesCallback(char* data, std::size_t size, std::size_t count, void* hop);

    const platform::TransferRequest request_;
    const Patience patience_;
    const std::function<void()> wake_;
    void* multi_; ///< of libcurl; only its wake-up is called from outside the thread

    std::mutex mutex_; ///< guards what follows
    std::condition_variable taken_;
    bool cancelled_ = false;
    Arrival arrival_;
    std::map<std::string, std::string> headers_;

    std::thread thread_;
};

} // namespace brovin::net
