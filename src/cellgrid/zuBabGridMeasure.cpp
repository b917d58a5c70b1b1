// How large the contents of a grid want its rows and columns to be.
#include "cellgrid/zuBabGridChanges.h"
#include "cellgrid/zuBabGridLayout.h"
#include "cellgrid/zuCellText.h"

#include <algorithm>

namespace korvane {

/// Gives the shown rows the heights that their contents ask for. True when one changed.
bool TBabGridLayoutCore::MeasureRows(TGridBlock &block)
{
    TBabGridCell &grid = *block.Grid;
    std::vector<TAxisContentItem *> measured;
    for (int p = grid.Columns().FixedCount(); p < grid.Columns().LoadedCount(); ++p) {
        TAxisContentItem *item = grid.Columns().getLoadedAxisContentItem(p);
        const TBabColumn *column = ColumnOf(*item);
        const TLayoutProp *layout = column != nullptr ? column->LayoutProp() : nullptr;
        const bool wraps = (layout != nullptr ? *layout : m_defaultLayout).WrapTextAndFit;
        if (!item->GetHide()
            && (wraps || (column != nullptr && HoldsGrids(column->Kind(), grid.ShowsTree())))) {
            measured.push_back(item);
        }
    }
    bool changed = false;
    const bool cellsDiffer = grid.Matris().CellCount() > 0;
    for (const TGridBand &row : block.Rows) {
        if (row.Fixed || row.Item->GetUserSizeActive()) {
            continue;
        }
        int height = grid.Rows().DefaultSize();
        const TGridChanges changes(grid);
        for (TAxisContentItem *column : measured) {
            const int width = grid.Columns().SizeAt(grid.Columns().IndexOf(*column));
            height = std::max(
                height, MeasuredHeight(grid, *column, *row.Item, {0, row.Near, width, row.Far}));
            if (changes.Happened()) {
                return true;
            }
        }
        for (std::size_t i = 0; cellsDiffer && i < block.Columns.size(); ++i) {
            const TBabCell *cell = grid.FindCell(*block.Columns[i].Item, *row.Item);
            if (cell != nullptr && cell->LayoutProp() != nullptr) {
                const TRect rect{block.Columns[i].Near, row.Near, block.Columns[i].Far, row.Far};
                height =
                    std::max(height, MeasuredHeight(grid, *block.Columns[i].Item, *row.Item, rect));
                if (changes.Happened()) {
                    return true;
                }
            }
        }
        const bool isDefault = height == grid.Rows().DefaultSize();
        if (height != row.Far - row.Near) {
            row.Item->SetAutoSize(isDefault ? TAxisContentItem::kNotMeasured : height);
            changed = changed || row.Item->Size() != row.Far - row.Near;
        }
    }
    return changed;
}

int TBabGridLayoutCore::MeasuredHeight(TBabGridCell &grid, TAxisContentItem &column,
                                       TAxisContentItem &row, const TRect &cell)
{
    const TBabColumn *info = ColumnOf(column);
    if (info != nullptr && HoldsGrids(info->Kind(), grid.ShowsTree())) {
        const TGridChanges before(grid);
        TBabCell &made = grid.GetCell(column, row);
        auto *subGrid = before.Happened() ? nullptr : dynamic_cast<TBabGridCell *>(&made);
        if (subGrid == nullptr) {
            return 0;
        }
        // What of it is in view is measured first.
        const TRect area{cell.Left, cell.Top, cell.Right, kFarAway};
        const int end = m_printSlice != nullptr ? kFarAway : m_host.GridSize().Height;
        const TGridChanges changes(grid);
        ShownIn(*subGrid, area, {cell.Left, std::max(0, cell.Top), cell.Right, end});
        if (changes.Happened()) {
            return 0;
        }
        return ToPixel(subGrid->Rows().TotalSize()); // its last line is the cell's
    }
    const TLayoutProp &layout = LayoutOf(grid, column, row);
    if (!layout.WrapTextAndFit) {
        return layout.MinHeight;
    }
    TCanvas &canvas = m_host.MeasureCanvas();
    canvas.SetFont(FontOf(layout));
    const int width = cell.Width() - 1 - 2 * kPadding;
    const auto lines = std::ssize(WrappedText(canvas, grid.CellText(column, row), width));
    const int height = static_cast<int>(lines) * canvas.TextExtent("Xg").Height + kPadding + 1;
    return std::max(layout.MinHeight, height);
}

int TBabGridLayoutCore::BestColumnWidth(const TGridCellAt &at)
{
    EnsureLayout();
    TAxisContentItem *column = at.Grid->Columns().FindLoaded(at.Column);
    if (column == nullptr) {
        return 0;
    }
    const TRect area = AreaOf(*at.Grid);
    const TSize size = m_host.GridSize();
    const TGridBlock block = at.Grid == m_root.get()
                                 ? m_shown
                                 : BlockOf(*at.Grid, area, {0, 0, size.Width, size.Height});
    TCanvas &canvas = m_host.MeasureCanvas();
    int width = 0;
    for (const TGridBand &row : block.Rows) {
        const TLayoutProp &layout = LayoutOf(*at.Grid, *column, *row.Item);
        canvas.SetFont(FontOf(layout));
        const std::string text = at.Grid->CellText(*column, *row.Item);
        const TRect cell{0, 0, kFarAway, row.Far - row.Near};
        const TRect content = ContentRect({at.Grid, at.Column, row.Index}, cell);
        constexpr int kSortMark = 14; // has room in every header, a number beside it where it is
        const TBabColumn *info = row.Fixed ? ColumnOf(*column) : nullptr;
        const int order = info != nullptr ? info->SortOrder() : 0;
        const int marks =
            (row.Fixed ? kSortMark : 0)
            + (order > 0 ? canvas.TextExtent(std::to_string(order)).Width + kPadding : 0);
        for (const std::string_view line : WrappedText(canvas, text, kFarAway)) {
            width =
                std::max(width, canvas.TextExtent(line).Width + kFarAway - content.Width() + marks);
        }
        width = std::max(width, row.Fixed ? 0 : layout.MinWidth);
    }
    return width;
}

int TBabGridLayoutCore::BestRowHeight(const TGridCellAt &at)
{
    TAxisContentItem *row = at.Grid->Rows().FindLoaded(at.Row);
    int height = at.Grid->Rows().DefaultSize();
    for (int p = at.Grid->Columns().FixedCount();
         row != nullptr && p < at.Grid->Columns().LoadedCount(); ++p) {
        TAxisContentItem *column = at.Grid->Columns().getLoadedAxisContentItem(p);
        height = std::max(height,
                          MeasuredHeight(*at.Grid, *column, *row, {0, 0, column->Size(), height}));
    }
    return height;
}

std::string TBabGridLayoutCore::CutText(const TGridCellAt &at)
{
    const TRect cell = CellRect(at);
    if (cell.IsEmpty()) {
        return {};
    }
    TAxisContentItem *column = at.Grid->Columns().FindLoaded(at.Column);
    TAxisContentItem *row = at.Grid->Rows().FindLoaded(at.Row);
    const TBabColumn *info = column != nullptr ? ColumnOf(*column) : nullptr;
    const bool header = at.Row < at.Grid->Rows().FixedCount();
    if (row == nullptr || column == nullptr
        || (!header && info != nullptr
            && (info->Kind() == TColumnKind::tckBool
                || HoldsGrids(info->Kind(), at.Grid->ShowsTree())))) {
        return {};
    }
    std::string text = at.Grid->CellText(*column, *row);
    const TLayoutProp &layout = LayoutOf(*at.Grid, *column, *row);
    TCanvas &canvas = m_host.MeasureCanvas();
    canvas.SetFont(FontOf(layout));
    const TRect content = ContentRect(at, cell);
    if (layout.WrapTextAndFit && !header) {
        const auto lines = std::ssize(WrappedText(canvas, text, content.Width()));
        const bool fits = lines * canvas.TextExtent("Xg").Height <= content.Height();
        return fits ? std::string() : text;
    }
    const bool fits = canvas.TextExtent(FirstLine(text)).Width <= content.Width()
                      && FirstLine(text).size() == text.size();
    return fits ? std::string() : text;
}

} // namespace korvane
