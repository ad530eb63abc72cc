#pragma once

#include "platform/clock.h"

#include <functional>
#include <utility>

namespace brovin::cleaner {

/// Whether a scan is under way, and when the last one was.
class ScanState {
public:
    enum class Work {
        None,
        Scan,
        Search, ///< for what a scan would delete
    };

    /// A scan or a search is under way for as long as it lives.
    class Running {
    public:
        /// `stop` ends it soon.
        Running(ScanState& state, Work work, std::function<void()> stop) : state_(state) {
            state_.stop_ = std::move(stop);
            state_.work_ = work;
        }
        ~Running() {
            state_.work_ = Work::None;
            state_.stop_ = {};
        }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

    private:
        ScanState& state_;
    };

    /// While it is, the lists stay as they are, and nobody begins another scan.
    [[nodiscard]] bool busy() const { return work_ != Work::None; }

    /// A scan that is due waits for it.
    [[nodiscard]] bool searching() const { return work_ == Work::Search; }

    /// Ends what is under way, a scan or the search for what it would delete, behind the entry in work.
    void stop() const {
        if (stop_)
            stop_();
    }

    /// When the scan took place that the next automatic one is counted from.
    platform::DateTime lastScanTime{};

private:
    Work work_ = Work::None;
    std::function<void()> stop_;
};

} // namespace brovin::cleaner
