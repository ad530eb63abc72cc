#pragma once

#include "platform/clock.h"

namespace brovin::cleaner {

/// Whether a scan is under way, and when the last one was.
class ScanState {
public:
    /// A scan is under way for as long as it lives.
    class Running {
    public:
        explicit Running(ScanState& state) : state_(state) { state_.busy_ = true; }
        ~Running() { state_.busy_ = false; }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

    private:
        ScanState& state_;
    };

    /// While it is, the lists stay as they are, and nobody begins another scan.
    [[nodiscard]] bool busy() const { return busy_; }

    /// When the scan took place that the next automatic one is counted from.
    platform::DateTime lastScanTime{};

private:
    bool busy_ = false;
};

} // namespace brovin::cleaner
