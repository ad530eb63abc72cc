#pragma once

#include "platform/internet_transfer.h"
#include "text/strings.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace brovin::fakes {

/// A web in memory. What is not there answers 404.
class FakeTransfer final : public platform::InternetTransfer {
public:
    struct Page {
        std::string body;
        long announced = -1; ///< the Content-Length; -1: the true one
        bool breaks = false; ///< the connection breaks at the end of the body
        bool silent = false; ///< no answer at all, for as long as one waits
        std::chrono::milliseconds took{0};
    };
    std::map<std::string, Page> pages;               ///< by address
    std::vector<platform::TransferRequest> requests; ///< all that were made, in order
    bool offline = false;
    bool cancelled = false;
    std::function<void()> onPiece; ///< what happens while a piece is awaited

    platform::Result<std::string> openUrl(const platform::TransferRequest& request,
                                          std::size_t limit) override {
        const Page* page = ask(request);
        took_ = page == nullptr ? std::chrono::milliseconds(0) : page->silent ? request.longest : page->took;
        if (page == nullptr)
            return failure();
        if (page->silent)
            return platform::Failure{platform::kTimedOut, "The server is silent"};
        if (page->body.size() > limit)
            return platform::Failure{0, "The answer is too long"};
        return page->body;
    }

    [[nodiscard]] std::chrono::milliseconds took() const override { return took_; }

    platform::Status execute(const platform::TransferRequest& request) override {
        cancelled = false;
        current_ = ask(request);
        read_ = 0;
        pending_ = true;
        return platform::Done{};
    }
    /// Lets the answers come that are under way.
    void deliver() {
        while (pending_ && !cancelled && stateChanged) {
            pending_ = false;
            stateChanged(current_ == nullptr ? platform::TransferState::Error
                                             : platform::TransferState::Response);
        }
    }
    [[nodiscard]] platform::Failure failure() const override {
        return offline ? platform::Failure{7, "No route"} : platform::Failure{404, "Not found"};
    }
    [[nodiscard]] std::optional<std::string> header(std::string_view name) const override {
        if (text::asciiLower(name) != "content-length")
            return std::nullopt;
        const long size = static_cast<long>(current_->body.size());
        return std::to_string(current_->announced < 0 ? size : current_->announced);
    }
    platform::Result<std::string_view> readPiece(std::size_t most) override {
        if (onPiece)
            onPiece();
        if (cancelled)
            return std::string_view();
        const std::string_view rest = std::string_view(current_->body).substr(read_);
        if (rest.empty() && current_->breaks)
            return platform::Failure{2, "Remote host closed"};
        read_ += std::min(most, rest.size());
        return rest.substr(0, most);
    }
    void cancel() override { cancelled = true; }

private:
    const Page* ask(const platform::TransferRequest& request) {
        requests.push_back(request);
        const auto page = pages.find(request.url);
        return offline || page == pages.end() ? nullptr : &page->second;
    }

    std::chrono::milliseconds took_{0};
    const Page* current_ = nullptr;
    std::size_t read_ = 0;
    bool pending_ = false;
};

} // namespace brovin::fakes
