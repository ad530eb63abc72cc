#pragma once

#include "platform/clock.h"
#include "platform/result.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace brovin::platform {

/// What one run deleted of one name below one watched folder. Valid UTF-8.
struct DeletedShare {
    std::string name;   ///< as it stands on the list that it was deleted for, or the kind of rule
    std::string folder; ///< the watched folder, as the user sees it
    std::int64_t items = 0;
    std::int64_t kilobytes = 0;
};

/// One bar of the score.
struct Score {
    std::string label; ///< the day on which a week begins or a month ("2026-11-01"), a name, or a folder
    std::int64_t items = 0;
    std::int64_t kilobytes = 0;

    bool operator==(const Score&) const = default;
};

enum class ScoreBy : std::uint8_t { Week, Month, Name, Folder };

/// What was deleted day by day, for the picture of the score. It is no log: what stands in it is bounded, and
/// the oldest days go first.
class DeletionHistory {
public:
    virtual ~DeletionHistory() = default;

    /// Adds to the day of `when`, all or nothing. Failure: the disk, or somebody else writes at this moment.
    virtual Status append(DateTime when, std::span<const DeletedShare> shares) = 0;

    /// Weeks (which begin on Monday) and months from the first to the last, those without a deletion left
    /// out; names and folders from the most items to the fewest. At most `most` bars, the latest weeks and
    /// months.
    virtual Result<std::vector<Score>> score(ScoreBy by, std::size_t most) = 0;

    /// Where a history that could not be read was put aside, told once; "" when there was none.
    virtual std::string takeDamaged() = 0;
};

} // namespace brovin::platform
