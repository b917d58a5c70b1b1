#include "grid/zuGridColumns.h"

#include "grid/zuGridTree.h"

#include <algorithm>
#include <utility>

namespace korvane {

void TzuGrid_Column::Set(bool &field, bool value)
{
    if (value != field) {
        field = value;
        m_columns.m_host.ModelChanged();
    }
}

void TzuGrid_Column::SetWidth(int width)
{
    width = std::max(0, width);
    if (width == m_width) {
        return;
    }
    m_width = width;
    for (TBabGridCell *grid : std::vector(m_columns.GridCells())) {
        if (TAxisContentItem *item = m_columns.ItemOf(*this, *grid)) {
            item->SetUserSize(width);
        }
    }
    m_columns.m_host.ModelChanged();
}

/// Calls `handle` for each existing cell of the column, with its grid.
template <typename Handle>
void TzuGrid_Column::ForEachCell(const Handle &handle)
{
    for (TBabGridCell *grid : std::vector(m_columns.GridCells())) {
        // A cell that goes may have held others of these grids.
        if (!m_columns.HasGridCell(*grid)) {
            continue;
        }
        TAxisContentItem *item = m_columns.ItemOf(*this, *grid);
        const TAxisContentList &rows = grid->Rows();
        for (int p = 0; item != nullptr && p < rows.LoadedCount(); ++p) {
            if (TBabCell *cell = grid->FindCell(*item, *rows.getLoadedAxisContentItem(p))) {
                handle(*grid, *cell);
            }
        }
    }
}

void TzuGrid_Column::DropCells(const TMethod<bool(TBabCell &cell)> &which)
{
    ForEachCell([&which](TBabGridCell &grid, TBabCell &cell) {
        if (which(cell)) {
            grid.Matris().RemoveCell(*cell.Column(), *cell.Row());
        }
    });
}

void TzuGrid_Column::SetKind(TColumnKind kind)
{
    if (kind == m_kind) {
        return;
    }
    m_kind = kind;
    ForEachCell([&](TBabGridCell &grid, TBabCell &cell) {
        auto *simple = dynamic_cast<TBabSimpleCell *>(&cell);
        auto data = CreateData();
        if (simple == nullptr || HoldsGrids(m_kind, grid.ShowsTree())) {
            grid.Matris().RemoveCell(*cell.Column(), *cell.Row());
            return;
        }
        data->SetText(simple->Text());
        simple->SetData(std::move(data));
    });
    m_columns.m_host.ModelChanged();
}

void TzuGrid_Column::SetHeaderText(std::string text)
{
    if (text != m_headerText) {
        m_headerText = std::move(text);
        m_columns.m_host.ModelChanged();
    }
}

void TzuGrid_Column::SetSubGridName(std::string name)
{
    if (name == m_subGridName) {
        return;
    }
    m_subGridName = std::move(name);
    if (m_kind == TColumnKind::tckSubGrid) {
        // Cells of the other sub-grid go; the new ones come when they are shown.
        DropCells([](TBabCell &) { return true; });
    }
    m_columns.m_host.SubGridsChanged();
}

void TzuGrid_Column::SetHidden(bool hidden)
{
    if (hidden == m_hidden) {
        return;
    }
    m_hidden = hidden;
    for (TBabGridCell *grid : std::vector(m_columns.GridCells())) {
        if (TAxisContentItem *item = m_columns.ItemOf(*this, *grid)) {
            item->SetHide(hidden);
        }
    }
    m_columns.m_host.ModelChanged();
}

void TzuGrid_Column::SetLayoutName(std::string name)
{
    if (name != m_layoutName) {
        m_layoutName = std::move(name);
        m_layoutLookUp = -1;
        m_columns.m_host.ModelChanged();
    }
}

const TLayoutProp *TzuGrid_Column::LayoutProp() const
{
    const TzuCellLayouts &layouts = m_columns.CellLayouts();
    if (m_layoutLookUp != layouts.NameChanges()) {
        m_layoutLookUp = layouts.NameChanges();
        const TzuCellLayout *layout =
            m_layoutName.empty() ? nullptr : layouts.LayoutByName(m_layoutName);
        m_layoutProp = layout != nullptr ? layout->LayoutProp() : nullptr;
    }
    return m_layoutProp.get();
}

int TzuGrid_Column::IconIndex(TBabGridCell &grid, TAxisContentItem &row)
{
    TAxisContentItem *item = m_columns.ItemOf(*this, grid);
    TBabCell *cell = item != nullptr ? grid.FindCell(*item, row) : nullptr;
    const auto *simple = dynamic_cast<const TBabSimpleCell *>(cell);
    int index = simple != nullptr ? simple->ImageIndex() : -1;
    if (const auto *node = TzuGridTree::NodeOf(&row);
        index < 0 && node != nullptr && IsTreeColumn()) {
        const bool selected = node->GetSelectedIndex() >= 0
                              && grid.Selection().RowHasSelected(grid.Rows().IndexOf(row));
        index = selected ? node->GetSelectedIndex() : node->GetImageIndex();
    }
    OnGetIconIndex(this, &row, cell, index);
    return index;
}

bool TzuGrid_Column::InOneGroup(TBabGridCell &grid, TAxisContentItem &upper,
                                TAxisContentItem &lower)
{
    TAxisContentItem *item = m_columns.ItemOf(*this, grid);
    bool equal = item != nullptr && grid.CellText(*item, upper) == grid.CellText(*item, lower);
    OnGroupcellCompare(this, &upper, &lower, equal);
    return equal;
}

std::unique_ptr<TBabCellData> TzuGrid_Column::CreateData() const
{
    switch (m_kind) {
    case TColumnKind::tckBool:
        return std::make_unique<TBabCellData_Bool>();
    case TColumnKind::tckCombo:
        return std::make_unique<TBabCellData_Combo>();
    case TColumnKind::tckDate:
        return std::make_unique<TBabCellData_DateTime>(TDateTimePart::Date);
    case TColumnKind::tckTime:
        return std::make_unique<TBabCellData_DateTime>(TDateTimePart::Time);
    case TColumnKind::tckSubGrid:
        return nullptr;
    default:
        return std::make_unique<TBabCellData_Text>();
    }
}

TzuGrid_Columns::~TzuGrid_Columns()
{
    for (TBabGridCell *grid : std::vector(m_gridCells)) {
        grid->TieTo(nullptr);
    }
}

void TzuGrid_Columns::AddGridCell(TBabGridCell &gridCell)
{
    if (m_known.insert(&gridCell).second) {
        gridCell.TieTo(TMethod<void(TBabGridCell *)>::Bind<&TzuGrid_Columns::Forget>(this));
        m_gridCells.push_back(&gridCell);
    }
}

void TzuGrid_Columns::Forget(TBabGridCell *gridCell)
{
    if (m_known.erase(gridCell) == 0) {
        return;
    }
    // Grids mostly go in the reverse order of their coming.
    const auto found = std::find(m_gridCells.rbegin(), m_gridCells.rend(), gridCell);
    m_gridCells.erase(std::next(found).base());
    TAxisContentList &items = gridCell->Columns();
    for (int p = items.FixedCount(); p < items.LoadedCount(); ++p) {
        items.getLoadedAxisContentItem(p)->SetValue(nullptr);
    }
}

TAxisContentItem *TzuGrid_Columns::ItemOf(const TzuGrid_Column &column,
                                          TBabGridCell &gridCell) const
{
    TAxisContentList &items = gridCell.Columns();
    TAxisContentItem *item = items.FindLoaded(items.FixedCount() + IndexOf(&column));
    return item != nullptr && item->Value() == &column ? item : nullptr;
}

std::unique_ptr<TzuGrid_Column> TzuGrid_Columns::CreateItem()
{
    return std::make_unique<TzuGrid_Column>(*this, m_defaultWidth, m_defaultKind);
}

void TzuGrid_Columns::Inserted(int index)
{
    for (TBabGridCell *grid : m_gridCells) {
        TAxisContentList &items = grid->Columns();
        if (items.FixedCount() + index < items.Count()) {
            items.InsertNew(items.FixedCount() + index, nullptr);
        }
    }
    Changed();
}

void TzuGrid_Columns::Deleting(int index)
{
    for (TBabGridCell *grid : m_gridCells) {
        if (ItemOf(At(index), *grid) != nullptr) {
            grid->Columns().Drop(grid->Columns().FixedCount() + index);
        }
    }
}

void TzuGrid_Columns::Moved(int from, int to)
{
    for (TBabGridCell *grid : m_gridCells) {
        TAxisContentList &items = grid->Columns();
        const int fixed = items.FixedCount();
        if (fixed + std::max(from, to) < items.Count()) {
            items.Move(fixed + from, fixed + to);
        }
    }
    Changed();
}

} // namespace korvane
