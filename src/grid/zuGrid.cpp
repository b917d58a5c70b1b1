#include "grid/zuGrid.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

/// One fixed item of a size that the user may change, or none.
void InitFixed(TAxisContentList &items, bool wanted, int size)
{
    if (wanted && items.FixedCount() != 1) {
        items.SetFixedCount(1);
        TAxisContentItem *item = items.InsertNew(0, nullptr);
        item->SetUserSize(size);
        item->SetUserSizeActive(true);
    } else if (!wanted && items.FixedCount() > 0) {
        items.SetFixedCount(0);
        items.Drop(0);
    }
}

} // namespace

TzuGridCore::TzuGridCore(TBabGridCellForViewer &root, TMethod<void()> changed)
    : m_root(root)
    , m_changed(std::move(changed))
    , m_layouts(*this)
    , m_columns(*this, m_layouts)
    , m_subGrids(*this, m_layouts)
    , m_subTreeColumns(*this, m_layouts)
    , m_userSize(root.UserSizeEvent, TOnEvent::Bind<&TzuGridCore::UserSized>(this), false)
{
    root.OnCreateCell = TOnCreateCell::Bind<&TzuGridCore::CreateCell>(this);
    root.OnGetCellText = korvane::TOnGetCellText::Bind<&TzuGridCore::GetCellText>(this);
    root.OnSetCellText = [this](auto *grid, auto *column, auto *row, const auto &text,
                                bool &stored) { OnSetCellText(grid, column, row, text, stored); };
    root.OnMayDropRows = [this](const TGridRowDrop &drop, bool &mayDrop) {
        mayDrop = m_tree != nullptr
                  && TzuGridTree::CanMove(m_tree->MoveTo(drop, m_tree->TopmostSelected()));
    };
    root.OnDropRows = [this](const TGridRowDrop &drop) {
        if (m_tree != nullptr) {
            m_tree->MoveByUser(m_tree->MoveTo(drop, m_tree->TopmostSelected()));
        }
    };
    InitColumnsAndFixed(root, m_columns, m_hasInfoCol, m_hasHeaders);
    m_subTreeColumns.Add().SetTreeButton(true);
}

TzuGridCore::~TzuGridCore()
{
    m_tree.reset();
    m_root.OnCreateCell = nullptr;
    m_root.OnMayDropRows = nullptr;
    m_root.OnDropRows = nullptr;
    m_root.OnGetCellText = nullptr;
    m_root.OnSetCellText = nullptr;
}

void TzuGridCore::SetHasHeaders(bool value)
{
    if (value != m_hasHeaders) {
        m_hasHeaders = value;
        NeedEnsureFixed();
    }
}

void TzuGridCore::SetHasInfoCol(bool value)
{
    if (value != m_hasInfoCol) {
        m_hasInfoCol = value;
        NeedEnsureFixed();
    }
}

void TzuGridCore::SetUseTree(bool useTree)
{
    if (useTree == UseTree()) {
        return;
    }
    m_tree.reset();
    if (useTree) {
        m_tree = std::make_unique<TzuGridTree>(*this, m_root);
    }
    m_changed();
}

void TzuGridCore::InitColumnsAndFixed(TBabGridCell &gridCell, TzuGrid_Columns &columns,
                                      bool hasInfoCol, bool hasHeaders)
{
    columns.AddGridCell(gridCell); // parts with the columns that it had
    TAxisContentList &items = gridCell.Columns();
    InitFixed(items, hasInfoCol, kInfoColumnWidth);
    InitFixed(gridCell.Rows(), hasHeaders, kHeaderHeight);
    const int wanted = items.FixedCount() + columns.Count();
    while (items.Count() < wanted) {
        items.AddNew(nullptr);
    }
    while (items.Count() > wanted) {
        items.Drop(items.Count() - 1);
    }
    for (int index = 0; index < columns.Count(); ++index) {
        TzuGrid_Column &column = columns.At(index);
        TAxisContentItem &item = *items.getAxisContentItem(items.FixedCount() + index);
        item.SetValue(&column);
        if (item.GetUserSize() != column.Width() || !item.GetUserSizeActive()) {
            item.SetUserSize(column.Width());
            item.SetUserSizeActive(true);
        }
        item.SetHide(column.Hidden());
    }
}

void TzuGridCore::NeedEnsureFixed()
{
    // Sorting by a column that is gone ends.
    std::erase_if(m_sortKeys,
                  [this](const TGridSortKey &key) { return m_columns.IndexOf(key.Column) < 0; });
    InitColumnsAndFixed(m_root, m_columns, m_hasInfoCol, m_hasHeaders);
    for (int index = 0; index < m_subGrids.Count(); ++index) {
        TzuGrid_SubGrid &subGrid = m_subGrids.At(index);
        for (TBabGridCell *grid : std::vector(subGrid.Columns().GridCells())) {
            InitColumnsAndFixed(*grid, subGrid.Columns(), subGrid.HasInfoCol(),
                                subGrid.HasHeaders());
            grid->SetExtendLastColumnToWidth(subGrid.ExtendLastColumnToWidth());
        }
    }
    m_changed();
}

void TzuGridCore::SubGridsChanged()
{
    for (int i = 0; i < m_columns.Count(); ++i) {
        CheckSubGrids(m_columns.At(i));
    }
    for (int k = 0; k < m_subGrids.Count(); ++k) {
        const TzuGrid_Columns &columns = m_subGrids.At(k).Columns();
        for (int i = 0; i < columns.Count(); ++i) {
            CheckSubGrids(columns.At(i));
        }
    }
    m_changed();
}

/// Cells go that show another sub-grid than their column names; the new ones come when they are
/// shown. Trees stay, and get other columns.
void TzuGridCore::CheckSubGrids(TzuGrid_Column &column)
{
    if (IsSimpleKind(column.Kind())) {
        return;
    }
    const TzuGrid_SubGrid *wanted = m_subGrids.SubGridByName(column.SubGridName());
    column.DropCells([&](TBabCell &cell) {
        auto *tree = dynamic_cast<TzuSubTreeCell *>(&cell);
        const auto *grid = dynamic_cast<TBabGridCell *>(&cell);
        const TzuGrid_Columns *columns = wanted != nullptr ? &wanted->Columns()
                                         : tree != nullptr ? &m_subTreeColumns
                                                           : nullptr;
        if (grid == nullptr
            || (columns != nullptr ? columns->HasGridCell(*grid) : grid->Columns().Count() == 0)) {
            return false;
        }
        if (tree != nullptr) {
            InitTreeColumns(*tree, column);
        }
        return tree == nullptr;
    });
}

/// The columns of the sub-grid, or a single one for the tree.
void TzuGridCore::InitTreeColumns(TzuSubTreeCell &cell, const TzuGrid_Column &column)
{
    if (TzuGrid_SubGrid *subGrid = m_subGrids.SubGridByName(column.SubGridName())) {
        InitColumnsAndFixed(cell, subGrid->Columns(), subGrid->HasInfoCol(), subGrid->HasHeaders());
        cell.SetExtendLastColumnToWidth(subGrid->ExtendLastColumnToWidth());
    } else {
        InitColumnsAndFixed(cell, m_subTreeColumns, false, false);
        cell.SetExtendLastColumnToWidth(true);
    }
}

/// What the user made of a column's width in one grid holds for all grids of the column.
void TzuGridCore::UserSized(TSingleEventListener *listener)
{
    auto *item = static_cast<TAxisContentItem *>(listener->Data());
    auto *column = dynamic_cast<TzuGrid_Column *>(item->Value());
    if (column != nullptr && item->GetUserSizeActive()) {
        column->SetWidth(item->GetUserSize());
    }
}

std::unique_ptr<TBabCell> TzuGridCore::CreateCell(TBabGridCell *grid, TAxisContentItem *columnItem,
                                                  TAxisContentItem *row)
{
    auto *column = dynamic_cast<TzuGrid_Column *>(columnItem->Value());
    const bool isHead = grid->Rows().IndexOf(*row) < grid->Rows().FixedCount();
    if (column == nullptr || isHead) {
        return nullptr;
    }
    if (!HoldsGrids(column->Kind(), grid->ShowsTree())) {
        auto data = column->CreateData();
        data->SetText(grid->CellText(*columnItem, *row));
        return std::make_unique<TBabSimpleCell>(std::move(data));
    }
    return CreateGrid(*column, *columnItem, *row);
}

/// A grid or a tree for a cell, with the columns of its sub-grid.
std::unique_ptr<TBabCell>
TzuGridCore::CreateGrid(TzuGrid_Column &column, TAxisContentItem &columnItem, TAxisContentItem &row)
{
    std::unique_ptr<TBabSubGridCell> cell;
    if (column.Kind() == TColumnKind::tckSubTree) {
        auto tree = std::make_unique<TzuSubTreeCell>(*this);
        InitTreeColumns(*tree, column);
        cell = std::move(tree);
    } else {
        cell = std::make_unique<TBabSubGridCell>();
        if (TzuGrid_SubGrid *subGrid = m_subGrids.SubGridByName(column.SubGridName())) {
            InitColumnsAndFixed(*cell, subGrid->Columns(), subGrid->HasInfoCol(),
                                subGrid->HasHeaders());
            cell->SetExtendLastColumnToWidth(subGrid->ExtendLastColumnToWidth());
        }
    }
    OnInitSubGrid(Self(), cell.get(), &columnItem, &row);
    return cell;
}

void TzuGridCore::GetCellText(TBabGridCell *grid, TAxisContentItem *columnItem,
                              TAxisContentItem *row, std::string &text)
{
    const TAxisContentList &rows = grid->Rows();
    if (rows.FixedCount() > 0 && rows.IndexOf(*row) < rows.FixedCount()) {
        if (const auto *column = dynamic_cast<TBabColumn *>(columnItem->Value())) {
            text = column->HeaderText();
        }
        return;
    }
    if (const auto *node = grid->ShowsTree() ? TzuGridTree::NodeOf(row) : nullptr) {
        const auto *column = dynamic_cast<TzuGrid_Column *>(columnItem->Value());
        if (column != nullptr && column->IsTreeColumn()) {
            text = node->GetText();
        }
    }
    OnGetCellText(grid, columnItem, row, text);
}

TAxisContentItem *TzuGridCore::AddRows(int count)
{
    TAxisContentItem *last = nullptr;
    for (int i = 0; i < count; ++i) {
        last = m_root.Rows().AddNew(nullptr);
    }
    return last;
}

std::string TzuGridCore::CellText(int column, int row)
{
    TAxisContentItem *columnItem =
        m_root.Columns().getAxisContentItem(m_root.Columns().FixedCount() + column);
    TAxisContentItem *rowItem = m_root.Rows().getAxisContentItem(m_root.Rows().FixedCount() + row);
    return columnItem != nullptr && rowItem != nullptr ? m_root.CellText(*columnItem, *rowItem)
                                                       : std::string();
}

void TzuGridCore::SetCellText(int column, int row, std::string_view text)
{
    TBabCell *cell =
        m_root.GetCell(m_root.Columns().FixedCount() + column, m_root.Rows().FixedCount() + row);
    if (cell != nullptr) {
        cell->SetText(text);
    }
}

TzuGrid_SubGrid *TzuGridCore::SubGridOf(const TBabGridCell &gridCell) const
{
    const TAxisContentItem *item = gridCell.Column();
    const auto *column =
        item != nullptr ? dynamic_cast<const TzuGrid_Column *>(item->Value()) : nullptr;
    return column != nullptr ? m_subGrids.SubGridByName(column->SubGridName()) : nullptr;
}

} // namespace korvane
