#include "cellgrid/zuBabGridCell.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace korvane {

namespace {

using TStretches = std::vector<std::pair<int, int>>;

/// What of the one is not in the other; first and end, ascending and apart.
TStretches StretchesWithout(const TStretches &stretches, const TStretches &others)
{
    TStretches left;
    auto other = others.begin();
    for (auto [first, end] : stretches) {
        while (other != others.end() && other->second <= first) {
            ++other;
        }
        for (auto at = other; at != others.end() && at->first < end; ++at) {
            if (first < at->first) {
                left.emplace_back(first, at->first);
            }
            first = std::max(first, at->second);
        }
        if (first < end) {
            left.emplace_back(first, end);
        }
    }
    return left;
}

} // namespace

TBabGridCell::TBabGridCell()
    : m_matris(*this)
    , m_columns(*this, kDefaultWidth)
    , m_rows(*this, kDefaultHeight)
{
}

TBabGridCell::~TBabGridCell()
{
    SetShowsTree(false);
    m_release(this);
}

void TBabGridCell::TieTo(TMethod<void(TBabGridCell *)> release)
{
    std::swap(m_release, release);
    release(this);
}

TBabGridCellForViewer *TBabGridCell::GetViewerGridCell() const
{
    return nullptr;
}

TBabCell &TBabGridCell::GetCell(TAxisContentItem &column, TAxisContentItem &row)
{
    if (TBabCell *cell = m_matris.FindCell(column, row)) {
        return *cell;
    }
    const auto changes = m_columns.Changes() + m_rows.Changes();
    const auto crossingMayBeGone = [&] {
        return m_columns.Changes() + m_rows.Changes() != changes;
    };
    const auto nowhere = []() -> TBabCell & {
        static TBabSimpleCell cell;
        return cell;
    };
    std::unique_ptr<TBabCell> created;
    if (TBabGridCellForViewer *viewer = GetViewerGridCell()) {
        created = viewer->OnCreateCell(this, &column, &row);
    }
    if (crossingMayBeGone()) {
        return nowhere();
    }
    if (created == nullptr) {
        auto simple = std::make_unique<TBabSimpleCell>();
        simple->Data().SetText(CellText(column, row));
        created = std::move(simple);
    }
    TBabCell &cell = m_matris.PutCell(column, row, std::move(created));
    cell.AfterPlaced();
    return crossingMayBeGone() ? nowhere() : cell;
}

TBabCell *TBabGridCell::GetCell(int column, int row)
{
    TAxisContentItem *columnItem = m_columns.getAxisContentItem(column);
    TAxisContentItem *rowItem = m_rows.getAxisContentItem(row);
    return columnItem != nullptr && rowItem != nullptr ? &GetCell(*columnItem, *rowItem) : nullptr;
}

std::string TBabGridCell::CellText(TAxisContentItem &column, TAxisContentItem &row)
{
    if (const TBabCell *cell = m_matris.FindCell(column, row)) {
        return cell->Text();
    }
    std::string text;
    if (TBabGridCellForViewer *viewer = GetViewerGridCell()) {
        viewer->OnGetCellText(this, &column, &row, text);
    }
    return text;
}

void TBabGridCell::SetSelected(bool selected)
{
    TCellSelection &selection = m_matris.Selection();
    if (!selected && selection.Empty()) {
        return;
    }
    selection.Clear();
    if (selected && m_rows.Count() > m_rows.FixedCount()) {
        selection.Select({0, m_rows.FixedCount(), TCellSelection::kAllColumns, m_rows.Count() - 1});
    }
    if (TBabGridCellForViewer *viewer = GetViewerGridCell()) {
        viewer->SelectionEvent.TriggerEvent(this);
    }
}

void TBabGridCell::SetShowsTree(bool showsTree)
{
    m_showsTree = showsTree;
    if (m_told != nullptr) {
        m_told->GridLives = false;
    }
    m_told = showsTree ? std::make_shared<TTold>() : nullptr;
}

/// What the nodes were told goes with the rows, as what is selected does.
template <typename Change>
void TBabGridCell::ChangeSelections(const Change &change)
{
    change(Selection());
    if (m_told != nullptr) {
        change(m_told->Rows);
    }
}

/// Tells the nodes that are newly selected, or deselected. False when a node changed the rows, so
/// that the rest is to be looked for anew.
bool TBabGridCell::TellRows(const std::shared_ptr<TTold> &told, bool selected)
{
    const TCellSelection &now = selected ? Selection() : told->Rows;
    const TCellSelection &before = selected ? told->Rows : Selection();
    const auto changes = m_rows.Changes();
    for (const auto &[first, end] : StretchesWithout(now.RowRanges(), before.RowRanges())) {
        for (int row = m_rows.NearestLoaded(first, 1); row >= 0 && row < end;
             row = m_rows.NearestLoaded(row + 1, 1)) {
            if (Selection().RowHasSelected(row) != selected) {
                continue; // a node that was told before saw to it
            }
            if (IBabTreeRow *node = TreeRowOf(*m_rows.FindLoaded(row))) {
                node->TreeRowSelected(selected);
            }
            if (!told->GridLives || m_rows.Changes() != changes) {
                return false; // those that were told already are told once more
            }
        }
        const TCellRange rows{0, first, TCellSelection::kAllColumns, end - 1};
        selected ? told->Rows.Select(rows) : told->Rows.Deselect(rows);
    }
    return true;
}

void TBabGridCell::TellTreeSelection()
{
    constexpr int kMostRounds = 1000; // for nodes that change the rows each time
    const auto told = m_told;
    for (int round = 0; told != nullptr && round < kMostRounds; ++round) {
        const bool done = TellRows(told, false) && TellRows(told, true);
        if (done || !told->GridLives) {
            return;
        }
    }
}

void TBabGridCell::TellAxisChanged(TAxisContentList &list)
{
    if (TBabGridCellForViewer *viewer = GetViewerGridCell()) {
        viewer->AxisEvent.TriggerEvent(&list);
    }
}

void TBabGridCell::InsertingAxisItem(TAxisContentList &list, int /*index*/)
{
    TellAxisChanged(list);
}

void TBabGridCell::DroppingAxisItem(TAxisContentList &list, int index)
{
    TAxisContentItem &item = *list.FindLoaded(index);
    if (&list == &m_rows) {
        if (IBabTreeRow *node = TreeRowOf(item)) {
            node->RowGoes();
        }
        m_matris.RowGoes(item);
    } else {
        m_matris.ColumnGoes(item, m_rows);
    }
    TellAxisChanged(list);
}

void TBabGridCell::MowingAxisItem(TAxisContentList &list, int from, int to)
{
    if (&list == &m_rows) {
        MovedRows(list, from, to, 1);
        return;
    }
    Selection().ColumnMoved(from, to);
    if (TBabGridCellForViewer *viewer = GetViewerGridCell()) {
        viewer->OnMoved(&list, from, to, 1);
    }
    TellAxisChanged(list);
}

void TBabGridCell::MovedRows(TAxisContentList &list, int from, int to, int count)
{
    ChangeSelections([=](TCellSelection &selection) { selection.RowMoved(from, to, count); });
    if (TBabGridCellForViewer *viewer = GetViewerGridCell()) {
        viewer->OnMoved(&list, from, to, count);
    }
    TellAxisChanged(list);
}

void TBabGridCell::ChangeInUnloaded(TAxisContentList &list)
{
    TellAxisChanged(list);
}

void TBabGridCell::ReorderingAxisItems(TAxisContentList &list, int first,
                                       const std::vector<TAxisContentItem *> &items)
{
    TBabGridCellForViewer *viewer = GetViewerGridCell();
    const bool followed = viewer != nullptr && viewer->OnRowsReordered;
    const bool told = m_told != nullptr && !m_told->Rows.Empty();
    if (&list == &m_rows && (followed || told || !Selection().Empty())) {
        std::vector<int> order(items.size());
        std::transform(items.begin(), items.end(), order.begin(),
                       [&](TAxisContentItem *item) { return list.IndexOf(*item) - first; });
        ChangeSelections([&](TCellSelection &selection) { selection.RowsReordered(first, order); });
        if (followed) {
            viewer->OnRowsReordered(&list, first, order);
        }
    }
    TellAxisChanged(list);
}

void TBabGridCell::AxisCountChanged(TAxisContentList &list, int index, int by)
{
    if (&list == &m_rows) {
        ChangeSelections([=](TCellSelection &selection) { selection.RowsChanged(index, by); });
    } else {
        Selection().ColumnsChanged(index, by);
    }
    if (TBabGridCellForViewer *viewer = GetViewerGridCell()) {
        viewer->OnCountChanged(&list, index, by);
    }
}

bool TBabGridCell::HasSelectedCell(const TAxisContentList &list, int index) const
{
    return &list == &m_rows ? Selection().RowHasSelected(index)
                            : Selection().ColumnHasSelected(index);
}

TBabSubGridCell::~TBabSubGridCell()
{
    if (TBabGridCellForViewer *viewer = TBabSubGridCell::GetViewerGridCell()) {
        viewer->OnSubGridGoes(this);
    }
}

TBabGridCellForViewer *TBabSubGridCell::GetViewerGridCell() const
{
    return GridCell() != nullptr ? GridCell()->GetViewerGridCell() : nullptr;
}

int TBabSubGridCell::Level() const
{
    int level = 0;
    for (const TBabGridCell *grid = GridCell(); grid != nullptr; grid = grid->GridCell()) {
        ++level;
    }
    return level;
}

TBabGridCellForViewer::TBabGridCellForViewer()
    : UserSizeEvent(this)
    , HideEvent(this)
    , AxisEvent(this)
    , CellEvent(this)
    , SelectionEvent(this)
{
}

TBabGridCellForViewer::~TBabGridCellForViewer() = default;

TBabGridCellForViewer *TBabGridCellForViewer::GetViewerGridCell() const
{
    return const_cast<TBabGridCellForViewer *>(this);
}

} // namespace korvane
