#pragma once

#include "platform/clock.h"

#include <functional>
#include <utility>

namespace brovin::cleaner {

/// Whether a scan is under way, and when the last one was.
class ScanState {
public:
    /// A scan is under way for as long as it lives.
    class Running {
    public:
        /// `stop` ends it soon.
        Running(ScanState& state, std::function<void()> stop) : state_(state) {
            state_.stop_ = std::move(stop);
            state_.busy_ = true;
        }
        ~Running() {
            state_.busy_ = false;
            state_.stop_ = {};
        }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

    private:
        ScanState& state_;
    };

    /// While it is, the lists stay as they are, and nobody begins another scan.
    [[nodiscard]] bool busy() const { return busy_; }

    /// Ends what is under way, a scan or the search for what it would delete, behind the entry in work.
    void stop() const {
        if (stop_)
            stop_();
    }

    /// When the scan took place that the next automatic one is counted from.
    platform::DateTime lastScanTime{};

private:
    bool busy_ = false;
    std::function<void()> stop_;
};

} // namespace brovin::cleaner
