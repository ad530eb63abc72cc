#pragma once

#include "platform/clock.h"

namespace brovin::posix {

/// The machine's clock in the user's time zone, also when that is changed while the program runs.
class SystemClock final : public platform::Clock {
public:
    [[nodiscard]] platform::DateTime now() const override;
    [[nodiscard]] std::int64_t secondsUtc() const override;
    [[nodiscard]] std::chrono::milliseconds elapsed() const override;
};

} // namespace brovin::posix
