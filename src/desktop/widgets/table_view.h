#pragma once

#include "ui/table.h"

#include <QAbstractTableModel>
#include <QTableView>

#include <optional>

namespace brovin::desktop {

/// The lines of a table control as the toolkit asks for them. Nothing is kept but the line asked for last,
/// since each of its cells is asked for several times in a row.
class TableModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit TableModel(ui::Table& table, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    [[nodiscard]] const ui::Table::Line& line(int row) const;

private:
    void follow();

    ui::Table& table_;
    unsigned long revision_ = 0;
    std::vector<ui::Table::Column> columns_;
    int lines_ = 0;
    mutable int askedFor_ = -1;
    mutable ui::Table::Line line_; ///< of `askedFor_`
};

/// A table control on the screen. A title sorts, the space bar ticks, Enter and a double click activate; the
/// heading of a group runs across all columns.
class TableView final : public QTableView {
    Q_OBJECT
public:
    explicit TableView(ui::Table& table, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void follow();

    ui::Table& table_;
    TableModel* model_;
};

} // namespace brovin::desktop
