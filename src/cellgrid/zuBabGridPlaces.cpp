// Where the cells of a grid lie, and what is at a point.
#include "cellgrid/zuBabGridChanges.h"
#include "cellgrid/zuBabGridLayout.h"

#include <algorithm>

namespace korvane {

TBabGridLayoutCore::TSpan TBabGridLayoutCore::SpanOf(const TAxisContentList &list, int index,
                                                     const TAxisView &view) const
{
    if (index < 0 || index >= list.Count() || list.SizeAt(index) == 0) {
        return {};
    }
    const std::int64_t near =
        view.Origin + list.OffsetOf(index) - (index < list.FixedCount() ? 0 : view.Scroll);
    std::int64_t far = near + list.SizeAt(index);
    if (view.ExtendTo > 0 && index == list.NearestShown(list.Count() - 1, -1)) {
        far = std::max<std::int64_t>(far, view.ExtendTo);
    }
    return {ToPixel(near), ToPixel(far)};
}

TRect TBabGridLayoutCore::AreaOf(TBabGridCell &grid)
{
    if (&grid == m_root.get()) {
        const TSize size = m_host.GridSize();
        return {0, 0, size.Width, size.Height};
    }
    TBabGridCell *parent = grid.GridCell();
    if (parent == nullptr) {
        return {};
    }
    return CellRect(
        {parent, parent->Columns().IndexOf(*grid.Column()), parent->Rows().IndexOf(*grid.Row())});
}

TRect TBabGridLayoutCore::CellRect(const TGridCellAt &at)
{
    EnsureLayout();
    if (at.Grid == nullptr) {
        return {};
    }
    const TRect area = AreaOf(*at.Grid);
    TAxisContentList &columns = at.Grid->Columns();
    TAxisContentList &rows = at.Grid->Rows();
    const TSpan x = SpanOf(
        columns, at.Column,
        {area.Left, ScrollOf(columns), {}, at.Grid->ExtendLastColumnToWidth() ? area.Right : 0});
    const TSpan y = SpanOf(rows, at.Row, {area.Top, ScrollOf(rows), {}, 0});
    return x.Near == x.Far || y.Near == y.Far ? TRect() : TRect{x.Near, y.Near, x.Far, y.Far};
}

const TGridBand *TBabGridLayoutCore::BandAt(const TGridBands &bands, int pixel)
{
    // The fixed ones come first and cover what is scrolled under them.
    const auto found = std::find_if(bands.begin(), bands.end(), [pixel](const TGridBand &band) {
        return pixel >= band.Near && pixel < band.Far;
    });
    return found == bands.end() ? nullptr : &*found;
}

/// The band that ends near the pixel.
const TGridBand *TBabGridLayoutCore::BorderAt(const TGridBands &bands, int pixel)
{
    const auto found = std::find_if(bands.begin(), bands.end(), [pixel](const TGridBand &band) {
        return pixel >= band.Far - kGrip && pixel < band.Far + kGrip;
    });
    return found == bands.end() ? nullptr : &*found;
}

TGridHit TBabGridLayoutCore::HitTest(TPoint point)
{
    EnsureLayout();
    return m_shown.Area.Contains(point) ? HitIn(m_shown, point) : TGridHit();
}

TGridHit TBabGridLayoutCore::HitIn(const TGridBlock &block, TPoint point)
{
    const TGridBand *column = BandAt(block.Columns, point.X);
    const TGridBand *row = BandAt(block.Rows, point.Y);
    const bool inHeader = row != nullptr && row->Fixed;
    const TGridBand *border = inHeader ? BorderAt(block.Columns, point.X) : nullptr;
    if (border != nullptr && (!border->Fixed || column == nullptr || column->Fixed)) {
        return {TGridPart::ColumnBorder,
                {block.Grid, border->Index, row->Index},
                {border->Near, row->Near, border->Far, row->Far}};
    }
    if (column != nullptr && column->Fixed) {
        border = BorderAt(block.Rows, point.Y);
        if (border != nullptr && (!border->Fixed || inHeader)) {
            return {TGridPart::RowBorder,
                    {block.Grid, column->Index, border->Index},
                    {column->Near, border->Near, column->Far, border->Far}};
        }
    }
    if (column == nullptr || row == nullptr) {
        return {TGridPart::Nothing, {block.Grid, -1, -1}, {}};
    }
    TGridHit hit{TGridPart::Cell,
                 {block.Grid, column->Index, row->Index},
                 {column->Near, row->Near, column->Far, row->Far}};
    if (row->Fixed || column->Fixed) {
        hit.Part = !row->Fixed     ? TGridPart::RowHeader
                   : column->Fixed ? TGridPart::Corner
                                   : TGridPart::ColumnHeader;
        return hit;
    }
    const TBabColumn *info = ColumnOf(*column->Item);
    if (info != nullptr && info->Kind() == TColumnKind::tckBool
        && CheckBoxRect(hit.At, hit.Rect).Contains(point)) {
        hit.Part = TGridPart::CheckBox;
    }
    if (TreeButtonRect(hit.At, hit.Rect).Contains(point)) {
        hit.Part = TGridPart::TreeButton;
        return hit;
    }
    auto *subGrid = dynamic_cast<TBabGridCell *>(block.Grid->FindCell(*column->Item, *row->Item));
    if (subGrid != nullptr) {
        const TGridHit inner =
            HitIn(BlockOf(*subGrid, hit.Rect,
                          {hit.Rect.Left, point.Y - kGrip, hit.Rect.Right, point.Y + kGrip}),
                  point);
        return inner.Part == TGridPart::Nothing ? hit : inner;
    }
    return hit;
}

TRect TBabGridLayoutCore::LineRect(const TGridCellAt &at, const TRect &cell) const
{
    TRect line{cell.Left, cell.Top, cell.Right, cell.Bottom - 1};
    const TAxisContentItem *column = at.Grid->Columns().FindLoaded(at.Column);
    const TAxisContentItem *row = at.Grid->Rows().FindLoaded(at.Row);
    if (column == nullptr || row == nullptr) {
        return line;
    }
    const TLayoutProp &layout = LayoutOf(*at.Grid, *column, *row);
    const auto flag = [&layout](int wanted) {
        return layout.WindowsFlagDraw && (layout.WindowsFlags & wanted) != 0;
    };
    const bool center =
        layout.WindowsFlagDraw ? flag(TLayoutProp::kTextVCenter) : layout.VertAlignCenter;
    const TRect content = ContentRect(at, cell);
    if (center || StandsInMiddle(content.Height(), m_textHeight)) {
        return line;
    }
    if (flag(TLayoutProp::kTextBottom)) {
        line.Top = content.Bottom - m_textHeight;
        line.Bottom = content.Bottom;
    } else {
        line.Top = content.Top;
        line.Bottom = content.Top + m_textHeight;
    }
    return line;
}

TRect TBabGridLayoutCore::CheckBoxRect(const TGridCellAt &at, const TRect &cell) const
{
    const TRect line = LineRect(at, cell);
    const int left = (cell.Left + cell.Right - 1 - kCheckBox) / 2;
    const int top = (line.Top + line.Bottom - kCheckBox) / 2;
    return {left, top, left + kCheckBox, top + kCheckBox};
}

IBabTreeRow *TBabGridLayoutCore::TreeNodeAt(const TGridCellAt &at)
{
    const TAxisContentItem *column =
        at.Grid->ShowsTree() ? at.Grid->Columns().FindLoaded(at.Column) : nullptr;
    const TBabColumn *info = column != nullptr ? ColumnOf(*column) : nullptr;
    const TAxisContentItem *row =
        info != nullptr && info->IsTreeColumn() ? at.Grid->Rows().FindLoaded(at.Row) : nullptr;
    return row != nullptr ? at.Grid->TreeRowOf(*row) : nullptr;
}

TRect TBabGridLayoutCore::TreeButtonRect(const TGridCellAt &at, const TRect &cell) const
{
    const IBabTreeRow *node = TreeNodeAt(at);
    if (node == nullptr || !node->HasTreeButton()) {
        return {};
    }
    const TRect line = LineRect(at, cell);
    const int left = cell.Left + kPadding + node->TreeLevel() * kTreeIndent;
    const int middle = (line.Top + line.Bottom) / 2;
    const int half = std::max(line.Height(), kTreeIndent) / 2;
    return TRect{left, middle - half, left + kTreeIndent, middle + half}.Intersected(cell);
}

TRect TBabGridLayoutCore::ContentRect(const TGridCellAt &at, const TRect &cell) const
{
    TRect rect{cell.Left + kPadding, cell.Top + kPadding / 2, cell.Right - 1 - kPadding,
               cell.Bottom - 1 - kPadding / 2};
    if (const IBabTreeRow *node = TreeNodeAt(at)) {
        rect.Left += (node->TreeLevel() + 1) * kTreeIndent;
    }
    const TAxisContentItem *item = at.Grid->Columns().FindLoaded(at.Column);
    const TBabColumn *column = item != nullptr ? ColumnOf(*item) : nullptr;
    if (column != nullptr && column->HasIcon() && m_host.GridImages() != nullptr
        && at.Row >= at.Grid->Rows().FixedCount()) {
        rect.Left += kImage + kPadding;
    }
    rect.Left = std::min(rect.Left, rect.Right);
    return rect;
}

} // namespace korvane
