#pragma once

#include "character/stage/moment.h"

#include <string>
#include <utility>
#include <vector>

namespace brovin::fakes {

/// What a character does, in order and with its time: "250 frame Wave1". The test sets the time.
class StageLog {
public:
    character::Moment now;

    void add(const std::string& what) {
        lines_.push_back(std::to_string(now.time_since_epoch().count()) + " " + what);
    }

    /// Everything since the last call.
    [[nodiscard]] std::vector<std::string> take() { return std::exchange(lines_, {}); }

private:
    std::vector<std::string> lines_;
};

} // namespace brovin::fakes
