#include "cellgrid/qt/zuBabGridAccessibleCell.h"

#include "foundation/qt/zuConvert.h"

#include <QStringList>
#include <QWindow>

namespace korvane {

namespace {

/// The table of the grid in a cell.
class TInnerTableAccessible : public QAccessibleInterface, public TGridTableAccessible
{
public:
    explicit TInnerTableAccessible(const TGridCellAccessible &cell)
        : m_cell(cell)
    {
    }

    TBabGridView_Custom &View() const override { return m_cell.Table().View(); }
    TBabGridCell *Grid() const override { return m_cell.InnerGrid(); }
    QAccessibleInterface *OwnInterface() const override
    {
        return const_cast<TInnerTableAccessible *>(this);
    }

    bool isValid() const override { return Grid() != nullptr; }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_cell.window(); }
    QAccessible::Role role() const override
    {
        const TBabGridCell *grid = Grid();
        return grid != nullptr && grid->ShowsTree() ? QAccessible::Tree : QAccessible::Table;
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = m_cell.state();
        state.invalid = !isValid();
        state.selected = false;
        state.focused = false;
        return state;
    }
    QAccessibleInterface *parent() const override
    {
        return const_cast<TGridCellAccessible *>(&m_cell);
    }
    QRect rect() const override { return m_cell.rect(); }
    QString text(QAccessible::Text /*text*/) const override { return {}; }
    void setText(QAccessible::Text /*text*/, const QString & /*value*/) override {}
    int childCount() const override { return CrossingCount(); }
    QAccessibleInterface *child(int index) const override { return CrossingOf(index); }
    QAccessibleInterface *childAt(int x, int y) const override { return CrossingAt({x, y}); }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return IndexOfCell(child);
    }
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface *>(this)
                                                   : nullptr;
    }

private:
    const TGridCellAccessible &m_cell;
};

} // namespace

TGridCellAccessible::~TGridCellAccessible()
{
    if (m_inner != 0) {
        QAccessible::deleteAccessibleInterface(m_inner);
    }
}

bool TGridCellAccessible::isValid() const
{
    const TBabGridCell *grid = m_table.Grid();
    return grid != nullptr && m_column < grid->Columns().Count() && m_row < grid->Rows().Count();
}

QAccessible::Role TGridCellAccessible::role() const
{
    return m_row < m_table.FixedRows()         ? QAccessible::ColumnHeader
           : m_column < m_table.FixedColumns() ? QAccessible::RowHeader
                                               : QAccessible::Cell;
}

// --- a grid in the cell --------------------------------------------------------------------------

TBabGridCell *TGridCellAccessible::InnerGrid() const
{
    const TBabGridCell *grid = isValid() ? m_table.Grid() : nullptr;
    const TAxisContentItem *column =
        grid != nullptr ? grid->Columns().FindLoaded(m_column) : nullptr;
    const TAxisContentItem *row = column != nullptr ? grid->Rows().FindLoaded(m_row) : nullptr;
    return row != nullptr ? dynamic_cast<TBabGridCell *>(grid->FindCell(*column, *row)) : nullptr;
}

TGridTableAccessible *TGridCellAccessible::InnerTable() const
{
    if (InnerGrid() == nullptr) {
        return nullptr;
    }
    if (m_inner == 0) {
        m_inner = QAccessible::registerAccessibleInterface(new TInnerTableAccessible(*this));
    }
    return static_cast<TInnerTableAccessible *>(QAccessible::accessibleInterface(m_inner));
}

QAccessibleInterface *TGridCellAccessible::child(int index) const
{
    const TGridTableAccessible *inner = index == 0 ? InnerTable() : nullptr;
    return inner != nullptr ? inner->OwnInterface() : nullptr;
}

QAccessibleInterface *TGridCellAccessible::childAt(int x, int y) const
{
    return rect().contains(x, y) ? child(0) : nullptr;
}

int TGridCellAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    return child != nullptr && m_inner != 0 && QAccessible::accessibleInterface(m_inner) == child
               ? 0
               : -1;
}

// --- what the cell is ----------------------------------------------------------------------------

const TBabColumn *TGridCellAccessible::ColumnInfo() const
{
    const TAxisContentItem *item =
        isValid() ? m_table.Grid()->Columns().FindLoaded(m_column) : nullptr;
    return item != nullptr ? TBabGridLayoutCore::ColumnOf(*item) : nullptr;
}

bool TGridCellAccessible::IsCheckBox() const
{
    const TBabColumn *column = ColumnInfo();
    return role() == QAccessible::Cell && column != nullptr
           && column->Kind() == TColumnKind::tckBool;
}

const IBabTreeRow *TGridCellAccessible::Node() const
{
    const TBabColumn *column = ColumnInfo();
    const TAxisContentItem *row = column != nullptr && column->IsTreeColumn()
                                      ? m_table.Grid()->Rows().FindLoaded(m_row)
                                      : nullptr;
    return row != nullptr ? m_table.Grid()->TreeRowOf(*row) : nullptr;
}

/// Loads the row.
std::string TGridCellAccessible::CellText() const
{
    TBabGridCell *grid = isValid() ? m_table.Grid() : nullptr;
    TAxisContentItem *column =
        grid != nullptr ? grid->Columns().getAxisContentItem(m_column) : nullptr;
    TAxisContentItem *row = column != nullptr ? grid->Rows().getAxisContentItem(m_row) : nullptr;
    return row != nullptr ? grid->CellText(*column, *row) : std::string();
}

QString TGridCellAccessible::text(QAccessible::Text text) const
{
    const bool wanted = text == QAccessible::Name || text == QAccessible::Value;
    return wanted && !IsCheckBox() && InnerGrid() == nullptr ? ToQt(CellText()) : QString();
}

QRect TGridCellAccessible::rect() const
{
    const QRect cell = View().FromGrid(View().CellRect(At()));
    return {View().mapToGlobal(cell.topLeft()), cell.size()};
}

QAccessible::State TGridCellAccessible::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    TBabGridView_Custom &view = View();
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
    const TBabColumn *column = ColumnInfo();
    state.readOnly = view.ReadOnly() || (column != nullptr && column->ReadOnly());
    state.editable = !state.readOnly && InnerGrid() == nullptr;
    if (IsCheckBox()) {
        const std::string value = CellText();
        state.checkable = true;
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
    return type == QAccessible::TableCellInterface
               ? static_cast<QAccessibleTableCellInterface *>(this)
               : TAccessibleLeaf::interface_cast(type);
}

QList<QAccessibleInterface *> TGridCellAccessible::columnHeaderCells() const
{
    return m_table.FixedRows() > 0 ? QList{m_table.Crossing(m_column, 0)}
                                   : QList<QAccessibleInterface *>();
}

QList<QAccessibleInterface *> TGridCellAccessible::rowHeaderCells() const
{
    return m_table.FixedColumns() > 0 ? QList{m_table.Crossing(0, m_row)}
                                      : QList<QAccessibleInterface *>();
}

// --- what can be done with it --------------------------------------------------------------------

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

} // namespace korvane
