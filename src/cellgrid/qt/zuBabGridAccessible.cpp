#include "cellgrid/qt/zuBabGridAccessible.h"

#include "foundation/qt/zuConvert.h"

#include <QStringList>
#include <QWindow>

#include <algorithm>
#include <limits>

namespace korvane {

namespace {

/// Selections of more cells than this are told by their first cells.
constexpr int kMostSelected = 10'000;

class TGridCellAccessible : public QAccessibleInterface,
                            public QAccessibleTableCellInterface,
                            public QAccessibleActionInterface
{
public:
    TGridCellAccessible(const TBabGridAccessible &table, int column, int row)
        : m_table(table)
        , m_column(column)
        , m_row(row)
    {
    }

    TGridCellAt At() const { return {&m_table.Grid(), m_column, m_row}; }

    bool isValid() const override
    {
        const TBabGridCell &grid = m_table.Grid();
        return m_column < grid.Columns().Count() && m_row < grid.Rows().Count();
    }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_table.window(); }
    QAccessible::Role role() const override
    {
        const TBabGridCell &grid = m_table.Grid();
        return m_row < grid.Rows().FixedCount()         ? QAccessible::ColumnHeader
               : m_column < grid.Columns().FixedCount() ? QAccessible::RowHeader
                                                        : QAccessible::Cell;
    }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(&View());
    }
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    void setText(QAccessible::Text /*text*/, const QString & /*value*/) override {}
    QRect rect() const override
    {
        const QRect cell = View().FromGrid(View().CellRect(At()));
        return {View().mapToGlobal(cell.topLeft()), cell.size()};
    }
    QString text(QAccessible::Text text) const override;
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override { return View().IsSelected(At()); }
    QList<QAccessibleInterface *> columnHeaderCells() const override
    {
        const bool has = m_table.Grid().Rows().FixedCount() > 0;
        return has ? QList{m_table.Crossing(m_column, 0)} : QList<QAccessibleInterface *>();
    }
    QList<QAccessibleInterface *> rowHeaderCells() const override
    {
        const bool has = m_table.Grid().Columns().FixedCount() > 0;
        return has ? QList{m_table.Crossing(0, m_row)} : QList<QAccessibleInterface *>();
    }
    int columnIndex() const override { return m_column - m_table.Grid().Columns().FixedCount(); }
    int rowIndex() const override { return m_row - m_table.Grid().Rows().FixedCount(); }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface *table() const override { return parent(); }

    QStringList actionNames() const override;
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString & /*name*/) const override { return {}; }

private:
    TBabGridView_Custom &View() const { return m_table.View(); }
    bool IsCheckBox() const;
    const IBabTreeRow *Node() const;

    const TBabGridAccessible &m_table;
    int m_column;
    int m_row;
};

bool TGridCellAccessible::IsCheckBox() const
{
    const TAxisContentItem *item = m_table.Grid().Columns().FindLoaded(m_column);
    const TBabColumn *column = item != nullptr ? TBabGridLayoutCore::ColumnOf(*item) : nullptr;
    return role() == QAccessible::Cell && column != nullptr
           && column->Kind() == TColumnKind::tckBool;
}

const IBabTreeRow *TGridCellAccessible::Node() const
{
    const TAxisContentItem *column = m_table.Grid().Columns().FindLoaded(m_column);
    const TAxisContentItem *row = m_table.Grid().Rows().FindLoaded(m_row);
    const TBabColumn *info = column != nullptr ? TBabGridLayoutCore::ColumnOf(*column) : nullptr;
    return row != nullptr && info != nullptr && info->IsTreeColumn()
               ? m_table.Grid().TreeRowOf(*row)
               : nullptr;
}

QString TGridCellAccessible::text(QAccessible::Text text) const
{
    const bool wanted = text == QAccessible::Name || text == QAccessible::Value;
    if (!wanted || !isValid() || IsCheckBox()) {
        return {};
    }
    TBabGridCell &grid = m_table.Grid();
    TAxisContentItem *column = grid.Columns().getAxisContentItem(m_column);
    TAxisContentItem *row = grid.Rows().getAxisContentItem(m_row);
    return column != nullptr && row != nullptr ? ToQt(grid.CellText(*column, *row)) : QString();
}

QAccessible::State TGridCellAccessible::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    TBabGridView_Custom &view = View();
    TBabGridCell &grid = m_table.Grid();
    const QRect cell = view.FromGrid(view.CellRect(At()));
    state.disabled = !view.isEnabled();
    state.offscreen = !view.rect().intersects(cell);
    state.invisible = cell.isEmpty();
    if (role() != QAccessible::Cell) {
        return state;
    }
    state.focusable = true;
    state.focused = view.FocusCell() == At() && view.hasFocus();
    state.selectable = true;
    state.selected = isSelected();
    state.multiSelectable = view.MultiSelect();
    const TAxisContentItem *item = grid.Columns().FindLoaded(m_column);
    const TBabColumn *column = item != nullptr ? TBabGridLayoutCore::ColumnOf(*item) : nullptr;
    state.readOnly = view.ReadOnly() || (column != nullptr && column->ReadOnly());
    state.editable = !state.readOnly;
    if (IsCheckBox()) {
        state.checkable = true;
        TAxisContentItem *row = grid.Rows().getAxisContentItem(m_row);
        TAxisContentItem *own = grid.Columns().getAxisContentItem(m_column);
        const std::string value =
            row != nullptr && own != nullptr ? grid.CellText(*own, *row) : std::string();
        state.checked = !value.empty() && value != "0";
    }
    if (const IBabTreeRow *node = Node()) {
        state.expandable = node->HasTreeButton();
        state.expanded = state.expandable && node->IsTreeExpanded();
        state.collapsed = state.expandable && !state.expanded;
    }
    return state;
}

void *TGridCellAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableCellInterface) {
        return static_cast<QAccessibleTableCellInterface *>(this);
    }
    if (type == QAccessible::ActionInterface) {
        return static_cast<QAccessibleActionInterface *>(this);
    }
    return nullptr;
}

QStringList TGridCellAccessible::actionNames() const
{
    if (!isValid() || role() != QAccessible::Cell) {
        return {};
    }
    const IBabTreeRow *node = Node();
    const bool toggles = IsCheckBox() || (node != nullptr && node->HasTreeButton());
    return toggles ? QStringList{setFocusAction(), toggleAction()} : QStringList{setFocusAction()};
}

void TGridCellAccessible::doAction(const QString &name)
{
    if (!actionNames().contains(name)) {
        return;
    }
    if (name == setFocusAction()) {
        View().setFocus();
        View().ChooseCell(At(), TGridChoice::Set);
    } else if (IsCheckBox()) {
        View().ToggleCheckBox(At());
    } else {
        View().ExpandNode(At(), !Node()->IsTreeExpanded());
    }
}

} // namespace

// --- the table
// ------------------------------------------------------------------------------------

TBabGridAccessible::~TBabGridAccessible()
{
    for (const auto &cell : m_cells) {
        QAccessible::deleteAccessibleInterface(cell.second);
    }
}

void *TBabGridAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface *>(this)
                                               : QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface *TBabGridAccessible::Crossing(int column, int row) const
{
    const bool exists =
        column >= 0 && column < Grid().Columns().Count() && row >= 0 && row < Grid().Rows().Count();
    if (!exists) {
        return nullptr;
    }
    const std::uint64_t key =
        static_cast<std::uint64_t>(row) << 32U | static_cast<unsigned>(column);
    const auto [place, isNew] = m_cells.try_emplace(key, 0);
    if (isNew) {
        place->second =
            QAccessible::registerAccessibleInterface(new TGridCellAccessible(*this, column, row));
    }
    return QAccessible::accessibleInterface(place->second);
}

int TBabGridAccessible::IndexOfCrossing(int column, int row) const
{
    const std::int64_t index = std::int64_t{row} * Grid().Columns().Count() + column;
    return index > std::numeric_limits<int>::max() ? -1 : static_cast<int>(index);
}

int TBabGridAccessible::childCount() const
{
    const std::int64_t count = std::int64_t{Grid().Rows().Count()} * Grid().Columns().Count();
    return static_cast<int>(std::min<std::int64_t>(count, std::numeric_limits<int>::max()));
}

QAccessibleInterface *TBabGridAccessible::child(int index) const
{
    const int columns = Grid().Columns().Count();
    return index >= 0 && columns > 0 ? Crossing(index % columns, index / columns) : nullptr;
}

QAccessibleInterface *TBabGridAccessible::childAt(int x, int y) const
{
    const QPoint point = View().mapFromGlobal(QPoint(x, y));
    const TGridHit hit = View().HitTest(View().ToGrid(point));
    TGridCellAt at = hit.At;
    while (at.Grid != nullptr && at.Grid != &Grid()) { // what is in a cell is the cell's
        TBabGridCell *parent = at.Grid->GridCell();
        at = {parent, parent->Columns().IndexOf(*at.Grid->Column()),
              parent->Rows().IndexOf(*at.Grid->Row())};
    }
    return at ? Crossing(at.Column, at.Row) : nullptr;
}

int TBabGridAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    const auto *cell = dynamic_cast<const TGridCellAccessible *>(child);
    return cell != nullptr && cell->isValid() ? IndexOfCrossing(cell->At().Column, cell->At().Row)
                                              : -1;
}

QAccessibleInterface *TBabGridAccessible::focusChild() const
{
    const TGridCellAt focus = View().FocusCell();
    if (QWidget *field = View().EditorField()) {
        return QAccessible::queryAccessibleInterface(field);
    }
    return View().hasFocus() && focus.Grid == &Grid() ? Crossing(focus.Column, focus.Row) : nullptr;
}

QAccessibleInterface *TBabGridAccessible::cellAt(int row, int column) const
{
    return row < 0 || column < 0
               ? nullptr
               : Crossing(Grid().Columns().FixedCount() + column, Grid().Rows().FixedCount() + row);
}

int TBabGridAccessible::rowCount() const
{
    return Grid().Rows().Count() - Grid().Rows().FixedCount();
}

int TBabGridAccessible::columnCount() const
{
    return Grid().Columns().Count() - Grid().Columns().FixedCount();
}

QString TBabGridAccessible::columnDescription(int column) const
{
    QAccessibleInterface *header = Grid().Rows().FixedCount() > 0
                                       ? Crossing(Grid().Columns().FixedCount() + column, 0)
                                       : nullptr;
    return header != nullptr ? header->text(QAccessible::Name) : QString();
}

QString TBabGridAccessible::rowDescription(int row) const
{
    return QString::number(row + 1);
}

// --- the selection
// --------------------------------------------------------------------------------

std::vector<TCellRange> TBabGridAccessible::SelectedRanges() const
{
    auto ranges = Grid().Selection().Ranges();
    for (TCellRange &range : ranges) {
        range.FirstColumn = std::max(range.FirstColumn, Grid().Columns().FixedCount());
        range.LastColumn = std::min(range.LastColumn, Grid().Columns().Count() - 1);
    }
    return ranges;
}

int TBabGridAccessible::selectedCellCount() const
{
    std::int64_t count = 0;
    for (const TCellRange &range : SelectedRanges()) {
        count += std::int64_t{range.LastColumn - range.FirstColumn + 1}
                 * (range.LastRow - range.FirstRow + 1);
    }
    return static_cast<int>(std::min<std::int64_t>(count, std::numeric_limits<int>::max()));
}

QList<QAccessibleInterface *> TBabGridAccessible::selectedCells() const
{
    QList<QAccessibleInterface *> cells;
    for (const TCellRange &range : SelectedRanges()) {
        for (int row = range.FirstRow; row <= range.LastRow; ++row) {
            for (int column = range.FirstColumn; column <= range.LastColumn; ++column) {
                if (cells.size() == kMostSelected) {
                    return cells;
                }
                cells << Crossing(column, row);
            }
        }
    }
    return cells;
}

bool TBabGridAccessible::isColumnSelected(int column) const
{
    const int index = Grid().Columns().FixedCount() + column;
    int rows = 0;
    for (const TCellRange &range : SelectedRanges()) {
        const bool in = range.FirstColumn <= index && index <= range.LastColumn;
        rows += in ? range.LastRow - range.FirstRow + 1 : 0;
    }
    return rows > 0 && rows == rowCount();
}

QList<int> TBabGridAccessible::selectedColumns() const
{
    QList<int> columns;
    for (int column = 0; column < columnCount(); ++column) {
        if (isColumnSelected(column)) {
            columns << column;
        }
    }
    return columns;
}

bool TBabGridAccessible::isRowSelected(int row) const
{
    const int index = Grid().Rows().FixedCount() + row;
    for (int column = Grid().Columns().FixedCount(); column < Grid().Columns().Count(); ++column) {
        if (!Grid().Selection().IsSelected(column, index)) {
            return false;
        }
    }
    return columnCount() > 0;
}

QList<int> TBabGridAccessible::selectedRows() const
{
    QList<int> rows;
    for (const TCellRange &range : SelectedRanges()) {
        for (int row = range.FirstRow; row <= range.LastRow && rows.size() < kMostSelected; ++row) {
            const int index = row - Grid().Rows().FixedCount();
            if (isRowSelected(index) && (rows.isEmpty() || rows.back() != index)) {
                rows << index;
            }
        }
    }
    return rows;
}

bool TBabGridAccessible::SelectBlock(const TCellRange &range, bool selected) const
{
    const bool exists = range.FirstColumn >= Grid().Columns().FixedCount()
                        && range.FirstRow >= Grid().Rows().FixedCount()
                        && range.FirstColumn < Grid().Columns().Count()
                        && range.FirstRow < Grid().Rows().Count();
    if (!exists || !View().MultiSelect()) {
        return false;
    }
    selected ? Grid().Selection().Select(range) : Grid().Selection().Deselect(range);
    View().RootCell().SelectionEvent.TriggerEvent(&Grid());
    return true;
}

bool TBabGridAccessible::selectColumn(int column)
{
    const int index = Grid().Columns().FixedCount() + column;
    return SelectBlock({index, Grid().Rows().FixedCount(), index, Grid().Rows().Count() - 1}, true);
}

bool TBabGridAccessible::unselectColumn(int column)
{
    const int index = Grid().Columns().FixedCount() + column;
    return SelectBlock({index, Grid().Rows().FixedCount(), index, Grid().Rows().Count() - 1},
                       false);
}

bool TBabGridAccessible::selectRow(int row)
{
    const int index = Grid().Rows().FixedCount() + row;
    return SelectBlock({Grid().Columns().FixedCount(), index, TCellSelection::kAllColumns, index},
                       true);
}

bool TBabGridAccessible::unselectRow(int row)
{
    const int index = Grid().Rows().FixedCount() + row;
    return SelectBlock({Grid().Columns().FixedCount(), index, TCellSelection::kAllColumns, index},
                       false);
}

void TBabGridAccessible::modelChange(QAccessibleTableModelChangeEvent * /*event*/)
{
    for (const auto &cell : m_cells) {
        QAccessible::deleteAccessibleInterface(cell.second);
    }
    m_cells.clear();
}

// --- telling
// --------------------------------------------------------------------------------------

void TellGridFocus(TBabGridView_Custom &view)
{
    const TGridCellAt focus = view.FocusCell();
    if (!QAccessible::isActive() || focus.Grid != &view.RootCell() || !view.hasFocus()) {
        return;
    }
    const auto *table =
        dynamic_cast<TBabGridAccessible *>(QAccessible::queryAccessibleInterface(&view));
    if (table != nullptr) {
        QAccessibleEvent event(table->Crossing(focus.Column, focus.Row), QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

void TellGridSelection(TBabGridView_Custom &view)
{
    if (QAccessible::isActive()) {
        QAccessibleEvent event(&view, QAccessible::SelectionWithin);
        QAccessible::updateAccessibility(&event);
    }
}

void TellGridReset(TBabGridView_Custom &view)
{
    if (QAccessible::isActive()) {
        QAccessibleTableModelChangeEvent event(&view, QAccessibleTableModelChangeEvent::ModelReset);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace korvane
