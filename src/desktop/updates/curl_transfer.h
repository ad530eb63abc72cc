#pragma once

#include "net/patience.h"
#include "net/request_module.h"
#include "platform/internet_transfer.h"

#include <QEventLoop>
#include <QObject>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace brovin::desktop {

/// Hears of what another thread has to tell.
class WakeUp final : public QObject {
public:
    explicit WakeUp(std::function<void()> awake) : awake_(std::move(awake)) {}
    bool event(QEvent* event) override;

private:
    std::function<void()> awake_;
};

/// Web requests on the program's thread. Each runs in a thread of its own, which only moves bytes; the
/// program hears of them through its event loop.
class CurlTransfer final : public platform::InternetTransfer {
public:
    explicit CurlTransfer(const net::Patience& patience = {}, net::RequestModule module = {})
        : patience_(patience), module_(std::move(module)) {}

    platform::Result<std::string> openUrl(const platform::TransferRequest& request,
                                          std::size_t limit) override;
    [[nodiscard]] std::chrono::milliseconds took() const override { return took_; }
    platform::Status execute(const platform::TransferRequest& request) override;
    [[nodiscard]] platform::Failure failure() const override { return failure_; }
    [[nodiscard]] std::optional<std::string> header(std::string_view name) const override;
    platform::Result<std::string_view> readPiece(std::size_t most) override;
    void cancel() override;

private:
    [[nodiscard]] std::function<void()> waker();
    void awake();
    void announce();
    /// Lets events through until something may have come.
    [[nodiscard]] bool wait();

    net::Patience patience_;
    net::RequestModule module_;
    std::chrono::milliseconds took_{0};
    bool fetching_ = false;
    bool announced_ = false;
    platform::Failure failure_;
    std::string chunk_;
    std::size_t read_ = 0; ///< of the chunk
    std::atomic<bool> called_ = false;
    QEventLoop* loop_ = nullptr;
    WakeUp wakeUp_{[this] { awake(); }};
    std::unique_ptr<net::WebRequest> request_; ///< goes first: its thread calls the others
};

} // namespace brovin::desktop
