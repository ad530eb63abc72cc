#pragma once

#include "language/message_table.h"
#include "platform/deletion_history.h"
#include "platform/regional.h"

#include <span>
#include <string>
#include <vector>

namespace brovin::cleaner {

/// What was deleted, as the window of the score shows it and as it is exported.
class ScoreBook {
public:
    struct Needs {
        platform::DeletionHistory& history;
        const language::MessageTable& messages;
        const platform::Regional& regional;
    };
    explicit ScoreBook(const Needs& needs) : needs_(needs) {}

    /// Weeks and months from the first to the last, those without a deletion in between too; names and
    /// folders from the most items to the fewest. Failure: the history cannot be read.
    [[nodiscard]] platform::Result<std::vector<platform::Score>> bars(platform::ScoreBy by);

    /// What a bar stands for, in the user's words.
    [[nodiscard]] std::string shownLabel(platform::ScoreBy by, const std::string& label) const;
    /// "Week", and so on.
    [[nodiscard]] std::string heading(platform::ScoreBy by) const;
    [[nodiscard]] std::string number(std::int64_t count) const { return needs_.regional.grouped(count); }
    [[nodiscard]] const language::MessageTable& messages() const { return needs_.messages; }

    /// The bars with a line of headings, by RFC 4180; dates are those of ISO 8601.
    [[nodiscard]] std::string csv(platform::ScoreBy by, std::span<const platform::Score> bars) const;

    /// That a damaged history was put aside; told once, "" when there was none.
    [[nodiscard]] std::string trouble();

private:
    Needs needs_;
};

} // namespace brovin::cleaner
