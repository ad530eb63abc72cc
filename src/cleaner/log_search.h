#pragma once

#include "platform/letters.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace brovin::cleaner {

/// Finds the lines of a log that hold a text, whatever the case of its letters, in one pass over pieces of
/// any size. It keeps where the last of them are, so that a log of years costs no more memory than a short
/// one.
class LogSearch {
public:
    static constexpr std::size_t kMostKept = 100'000;

    /// An empty text is in every line.
    LogSearch(std::string_view wanted, const platform::Letters& letters);

    /// The next bytes of the log.
    void take(std::string_view piece);
    /// There are no more: a last line without an end counts.
    void finish();

    [[nodiscard]] std::uint64_t found() const { return found_; }
    /// Where the last lines found begin, counted from the beginning of the log.
    [[nodiscard]] const std::deque<std::uint64_t>& lines() const { return lines_; }

private:
    void look(std::string_view text);
    void look(std::string_view line, std::size_t at);
    void keep(std::uint64_t place);

    const platform::Letters& letters_;
    std::string wanted_; ///< in lower case
    bool plain_;         ///< and of ASCII letters alone
    std::string lowered_;
    std::string rest_;        ///< of a line whose end has not come
    std::uint64_t begin_ = 0; ///< where what is looked at next begins
    std::uint64_t found_ = 0;
    std::deque<std::uint64_t> lines_;
};

} // namespace brovin::cleaner
