#include "desktop/widgets/table_view.h"

#include "desktop/widgets/bindings.h"
#include "desktop/widgets/text.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QStyledItemDelegate>

namespace brovin::desktop {
namespace {

/// Writes a heading across all columns, of which each paints its part.
class HeadingDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const auto& model = *static_cast<const TableModel*>(index.model());
        if (!model.line(index.row()).heading) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        const auto& view = *static_cast<const QTableView*>(option.widget);
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        painter->save();
        painter->setClipRect(option.rect);
        painter->fillRect(option.rect,
                          selected ? option.palette.highlight() : option.palette.alternateBase());
        constexpr int kBesideTheBox = 26;
        QRect across = option.rect;
        across.setLeft(view.columnViewportPosition(0) + kBesideTheBox);
        across.setRight(view.viewport()->width() - 4);
        QFont bold = option.font;
        bold.setBold(true);
        painter->setFont(bold);
        painter->setPen(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
        const QString text = index.siblingAtColumn(0).data().toString();
        painter->drawText(across, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                          QFontMetrics(bold).elidedText(text, Qt::ElideMiddle, across.width()));
        painter->restore();
        if (index.column() == 0)
            paintBox(painter, option, index);
    }

private:
    /// As the toolkit does it, so that a click finds it.
    void paintBox(QPainter* painter, QStyleOptionViewItem option, const QModelIndex& index) const {
        initStyleOption(&option, index);
        const QStyle* style = option.widget->style();
        QStyleOptionViewItem box = option;
        box.rect = style->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, option.widget);
        box.state.setFlag(option.checkState == Qt::Checked ? QStyle::State_On : QStyle::State_Off);
        style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter, option.widget);
    }
};

} // namespace

TableModel::TableModel(ui::Table& table, QObject* parent)
    : QAbstractTableModel(parent), table_(table), revision_(table.revision()), columns_(table.columns()),
      lines_(static_cast<int>(table.lines())) {
    table.observe([shown = QPointer<TableModel>(this)] {
        if (shown)
            shown->follow();
    });
}

void TableModel::follow() {
    askedFor_ = -1;
    const int lines = static_cast<int>(table_.lines());
    if (revision_ != table_.revision() || columns_ != table_.columns()) {
        beginResetModel();
        revision_ = table_.revision();
        columns_ = table_.columns();
        lines_ = lines;
        endResetModel();
    } else if (lines > lines_) {
        beginInsertRows({}, lines_, lines - 1);
        lines_ = lines;
        endInsertRows();
    } else if (lines_ > 0) {
        emit dataChanged(index(0, 0), index(lines_ - 1, columnCount({}) - 1));
    }
}

int TableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : lines_;
}

int TableModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

const ui::Table::Line& TableModel::line(int row) const {
    if (askedFor_ != row) {
        line_ = table_.line ? table_.line(static_cast<std::size_t>(row)) : ui::Table::Line();
        askedFor_ = row;
    }
    return line_;
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const ui::Table::Line& shown = line(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    const std::string cell = column < shown.cells.size() ? shown.cells[column] : std::string();
    switch (role) {
    case Qt::DisplayRole:
        return qt(cell);
    case Qt::ToolTipRole:
        return plainToolTip(cell); // which may be cut in its column
    case Qt::TextAlignmentRole:
        return static_cast<int>((columns_[column].toTheRight ? Qt::AlignRight : Qt::AlignLeft) |
                                Qt::AlignVCenter);
    case Qt::CheckStateRole:
        if (column == 0 && shown.tickable)
            return shown.ticked ? Qt::Checked : Qt::Unchecked;
        return {};
    default:
        return {};
    }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return qt(columns_[static_cast<std::size_t>(section)].title);
}

Qt::ItemFlags TableModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (index.column() == 0 && line(index.row()).tickable)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

bool TableModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || index.column() != 0)
        return false;
    table_.tick(static_cast<std::size_t>(index.row()), value.toInt() == Qt::Checked);
    return true;
}

TableView::TableView(ui::Table& table, QWidget* parent)
    : QTableView(parent), table_(table), model_(new TableModel(table, this)) {
    bindCommon(this, table);
    setModel(model_);
    setItemDelegate(new HeadingDelegate(this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setTextElideMode(Qt::ElideMiddle);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed); // no line is measured
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int column) { table_.titleClick(static_cast<std::size_t>(column)); });
    const auto select = [this] {
        const int row = currentIndex().row();
        table_.setSelected(row < 0 ? ui::Table::kNoLine : static_cast<std::size_t>(row));
    };
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this, select);
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { table_.activate(static_cast<std::size_t>(index.row())); });
    follow();
    table.observe([shown = QPointer<TableView>(this)] {
        if (shown)
            shown->follow();
    });
}

void TableView::follow() {
    const bool sorted = table_.sortedBy() != ui::Table::kNoLine;
    horizontalHeader()->setSortIndicatorShown(sorted);
    if (sorted)
        horizontalHeader()->setSortIndicator(static_cast<int>(table_.sortedBy()),
                                             table_.descending() ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void TableView::keyPressEvent(QKeyEvent* event) {
    const QModelIndex current = currentIndex();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!current.isValid() || !(enter || event->key() == Qt::Key_Space)) {
        QTableView::keyPressEvent(event);
        return;
    }
    // Enter must not reach the window's default button.
    if (enter)
        table_.activate(static_cast<std::size_t>(current.row()));
    else if (model_->line(current.row()).tickable)
        table_.tick(static_cast<std::size_t>(current.row()), !model_->line(current.row()).ticked);
}

} // namespace brovin::desktop
