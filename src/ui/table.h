#pragma once

#include "ui/control.h"

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace brovin::ui {

/// Lines with columns, of which only those in sight are ever asked for: a million cost no more than ten.
class Table : public Control {
public:
    using Control::Control;

    struct Column {
        std::string title;
        bool toTheRight = false; ///< numbers
        bool operator==(const Column&) const = default;
    };
    struct Line {
        bool heading = false;  ///< stands above those that belong together; its text is in the first cell
        bool tickable = false; ///< has a box to tick
        bool ticked = false;
        std::vector<std::string> cells; ///< beside the columns
    };
    static constexpr std::size_t kNoLine = static_cast<std::size_t>(-1);

    /// What a line shows, asked for at any time and cheap; set by the program.
    std::function<Line(std::size_t line)> line;

    /// The user clicks on a column's title.
    Event<std::size_t> titleClick;
    /// The user ticks or clears a line's box; of a heading, those of all below it.
    Event<std::size_t, bool> tick;
    /// Enter or a double click on a line.
    Event<std::size_t> activate;
    /// Another line is selected.
    Event<> select;

    [[nodiscard]] const std::vector<Column>& columns() const { return columns_; }
    void setColumns(std::vector<Column> columns) { change(columns_, std::move(columns)); }
    /// The column by which the lines are sorted; kNoLine: by none.
    [[nodiscard]] std::size_t sortedBy() const { return sortedBy_; }
    [[nodiscard]] bool descending() const { return descending_; }
    void setSorted(std::size_t column, bool descending) {
        descending_ = descending;
        sortedBy_ = column;
        notify();
    }

    [[nodiscard]] std::size_t lines() const { return lines_; }
    /// More lines behind those that are there, which stay as they are. Fewer count as other ones.
    void setLines(std::size_t lines) {
        if (lines < lines_)
            ++revision_;
        change(lines_, lines);
    }
    /// All lines are other ones, or stand elsewhere: nothing is selected then.
    void renew(std::size_t lines) {
        lines_ = lines;
        selected_ = kNoLine;
        ++revision_;
        notify();
    }
    /// What lines show has changed; they stand where they stood.
    void refresh() { notify(); }
    /// Grows with each renewal, so that a shell knows whether the lines that it shows are the same.
    [[nodiscard]] unsigned long revision() const { return revision_; }

    [[nodiscard]] std::size_t selected() const { return selected_; }
    /// Fires the selection when it becomes another one.
    void setSelected(std::size_t selected) {
        if (change(selected_, selected))
            select();
    }

private:
    std::vector<Column> columns_;
    std::size_t sortedBy_ = kNoLine;
    bool descending_ = false;
    std::size_t lines_ = 0;
    unsigned long revision_ = 0;
    std::size_t selected_ = kNoLine;
};

} // namespace brovin::ui
