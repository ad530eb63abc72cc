#pragma once

#include "cleaner/preview_rows.h"
#include "platform/event_pump.h"
#include "platform/letters.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace brovin::cleaner {

/// In which order rows are shown, and which: sorted, filtered, with headings above those that belong
/// together. However many they are, events go through meanwhile, and what the user then wants counts.
class PreviewView {
public:
    enum class By : std::uint8_t { Found, Name, Folder, Why, Size, Age };
    enum class Group : std::uint8_t { None, Folder, Name };
    struct Wish {
        By by = By::Found;
        bool descending = false;
        Group group = Group::None;
        std::string filter; ///< in the name or the folder, without case; empty: all rows
    };
    /// A line: a row, or the heading of the group that it begins.
    struct Line {
        std::uint32_t row = 0;
        bool heading = false;
    };

    PreviewView(const PreviewRows& rows, platform::EventPump& pump, const platform::Letters& letters)
        : rows_(rows), pump_(pump), letters_(letters) {}

    /// Told when all lines are other ones.
    std::function<void()> renewed;

    /// Arranges all rows so. Called again by what goes through meanwhile, it returns at once, and the call
    /// that is at work begins anew.
    void arrange(const Wish& wish);
    /// Arranges all rows as wished before.
    void arrange() { arrange(Wish(wish_)); }
    /// Rows were added: those that are to be shown come at the end, until all is arranged again. Grouped
    /// lines wait for that.
    void append();
    /// The rows are gone.
    void clear();

    [[nodiscard]] const Wish& wish() const { return wish_; }
    [[nodiscard]] const std::vector<Line>& lines() const { return lines_; }
    /// Behind the last row of the group that a heading begins.
    [[nodiscard]] std::size_t endOfGroup(std::size_t heading) const;

private:
    /// A row with what it is sorted by, so that most comparisons need not look at the row.
    struct Item {
        std::uint64_t key;
        std::uint32_t row;
    };
    using Items = std::vector<Item>;

    bool superseded();
    bool arrangeOnce();
    bool rankFolders();
    bool findFolders();
    void findFolder(std::size_t folder);
    [[nodiscard]] bool shows(const PreviewRow& row) const;
    bool select(Items& items);
    [[nodiscard]] std::uint64_t keyOf(std::uint32_t at, By by) const;
    bool sort(Items& items, By by, bool descending);
    [[nodiscard]] bool sameGroup(std::uint32_t one, std::uint32_t other) const;

    const PreviewRows& rows_;
    platform::EventPump& pump_;
    const platform::Letters& letters_;
    Wish wish_;
    std::string needle_; ///< the filter in lower case
    std::vector<Line> lines_;
    std::size_t seen_ = 0;             ///< so many rows are in the lines, or were filtered out
    std::vector<std::uint32_t> ranks_; ///< of the folders in the order of their names
    std::vector<char> folderFits_;     ///< the filter stands in its path
    bool atWork_ = false;
    bool again_ = false;
};

} // namespace brovin::cleaner
