#pragma once

#include "companion/announcer.h"
#include "language/message_table.h"
#include "platform/clock.h"
#include "platform/regional.h"

#include <string>
#include <string_view>
#include <vector>

namespace brovin::companion {

/// What happens by the clock and can wait: told at once, and while it is quiet kept until that is over. Then
/// it is told once, with the time at which it came.
class WaitingNews {
public:
    struct Needs {
        Announcer& announcer;
        const Actor& actor;
        const language::MessageTable& messages;
        const platform::Clock& clock;
        const platform::Regional& regional;
    };
    /// Takes over what the announcer may leave until later, too.
    explicit WaitingNews(const Needs& needs);

    /// Of each kind only the latest waits; those without a kind wait all, down to the last ten.
    void bring(std::string_view kind, const Announcement& news);

    /// The clock acts, not the user, as long as this lives.
    class ByTheClock {
    public:
        explicit ByTheClock(WaitingNews& news) : news_(news) { news_.byTheClock_ = true; }
        ByTheClock(const ByTheClock&) = delete;
        ByTheClock& operator=(const ByTheClock&) = delete;
        ~ByTheClock() { news_.byTheClock_ = false; }

    private:
        WaitingNews& news_;
    };

    /// Tells what has waited, unless it is quiet still.
    void tell();

private:
    struct Kept {
        std::string kind;
        platform::DateTime came;
        Announcement news;
    };

    void keep(std::string_view kind, const Announcement& news);
    [[nodiscard]] std::string momentOf(platform::DateTime came) const;

    Needs needs_;
    bool byTheClock_ = false;
    std::vector<Kept> kept_; ///< the oldest first
};

} // namespace brovin::companion
