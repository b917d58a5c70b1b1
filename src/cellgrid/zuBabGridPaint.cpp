#include "cellgrid/zuBabGridPaint.h"

#include "cellgrid/zuCellText.h"

#include <algorithm>
#include <array>

namespace korvane {

TBabGridPainter::TBabGridPainter(TBabGridLayoutCore &core, TCanvas &canvas,
                                 const TGridPaintState &state)
    : m_core(core)
    , m_canvas(canvas)
    , m_state(state)
    , m_gridFont(canvas.Font())
    , m_window(canvas.ResolveColor(clWindow))
    , m_lines(Mixed(clWindow, clWindowText, 16))
    , m_headerLines(Mixed(clBtnFace, clBtnText, 26))
{
}

void TBabGridPainter::Paint()
{
    PaintBlock(m_core.Shown());
}

TColor TBabGridPainter::Mixed(TColor from, TColor to, unsigned percent) const
{
    const TColor a = m_canvas.ResolveColor(from);
    const TColor b = m_canvas.ResolveColor(to);
    const auto mix = [percent](unsigned x, unsigned y) {
        return (x * (100 - percent) + y * percent) / 100;
    };
    return Rgb(mix(RedOf(a), RedOf(b)), mix(GreenOf(a), GreenOf(b)), mix(BlueOf(a), BlueOf(b)));
}

void TBabGridPainter::PaintBlock(const TGridBlock &block)
{
    if (block.Area.IsEmpty()) {
        return;
    }
    const TClipScope clip(m_canvas, block.Area);
    m_canvas.FillRect(block.Area, m_window);
    for (const bool fixedRows : {false, true}) {
        for (const bool fixedColumns : {false, true}) {
            PaintPart(block, fixedColumns, fixedRows);
        }
    }
    PaintFocus(block);
}

/// One of the four parts into which the heads divide a grid.
void TBabGridPainter::PaintPart(const TGridBlock &block, bool fixedColumns, bool fixedRows)
{
    const TRect &area = block.Area;
    const TRect part{fixedColumns ? area.Left : std::max(area.Left, block.FixedEnd.X),
                     fixedRows ? area.Top : std::max(area.Top, block.FixedEnd.Y),
                     fixedColumns ? std::min(area.Right, block.FixedEnd.X) : area.Right,
                     fixedRows ? std::min(area.Bottom, block.FixedEnd.Y) : area.Bottom};
    if (part.IsEmpty()) {
        return;
    }
    const TClipScope clip(m_canvas, part);
    if (m_canvas.ClipRect().IsEmpty()) {
        return;
    }
    for (const TGridBand &column : block.Columns) {
        if (column.Fixed == fixedColumns && !m_core.IsLayoutOutOfDate()
            && IsInClip({column.Near, part.Top, column.Far, part.Bottom})) {
            PaintColumn(block, column, fixedRows);
        }
    }
}

/// Texts may stand out of their cells by a few pixels.
bool TBabGridPainter::IsInClip(const TRect &rect) const
{
    constexpr int kOut = 8;
    const TRect clip = m_canvas.ClipRect();
    return rect.Intersects(
        {clip.Left - kOut, clip.Top - kOut, clip.Right + kOut, clip.Bottom + kOut});
}

bool TBabGridPainter::JoinsAbove(const TGridBlock &block, const TGridBand &column,
                                 const TGridBand &row) const
{
    if (m_core.IsLayoutOutOfDate()) {
        return false; // a handler changed the grid; the next paint shows it
    }
    TAxisContentItem *above = block.Grid->Rows().FindLoaded(row.Index - 1);
    return above != nullptr && row.Index > block.Grid->Rows().FixedCount() && !above->GetHide()
           && TBabGridLayoutCore::ColumnOf(*column.Item)
                  ->InOneGroup(*block.Grid, *above, *row.Item);
}

void TBabGridPainter::PaintColumn(const TGridBlock &block, const TGridBand &column, bool fixedRows)
{
    TColumnLook look;
    look.Column = TBabGridLayoutCore::ColumnOf(*column.Item);
    if (look.Column != nullptr) {
        look.Kind = look.Column->Kind();
        look.Grids = HoldsGrids(look.Kind, block.Grid->ShowsTree());
        look.Tree = block.Grid->ShowsTree() && look.Column->IsTreeColumn();
        look.Groups = look.Column->GroupsIn(block.Grid->ShowsTree()) && !fixedRows;
    }
    if (look.Groups && block.Grid->GridCell() != nullptr) {
        m_core.PaintedGroupsInside();
    }
    for (std::size_t at = 0; at < block.Rows.size(); ++at) {
        const TGridBand &row = block.Rows[at];
        const TRect rect{column.Near, row.Near, column.Far, row.Far};
        if (row.Fixed != fixedRows || m_core.IsLayoutOutOfDate()
            || (!look.Groups && !IsInClip(rect))) {
            continue;
        }
        const TCellPlace place{block, column, row, rect};
        if (row.Fixed && !column.Fixed) {
            PaintHeader(place, look);
        } else if (column.Fixed) {
            PaintRowHeader(place);
        } else if (!look.Groups) {
            PaintCell(place, look, rect);
            PaintLines(place, false);
        } else {
            // The group's text stands in what is shown of it.
            const bool first =
                at == 0 || block.Rows[at - 1].Fixed || !JoinsAbove(block, column, row);
            std::size_t last = at;
            while (last + 1 < block.Rows.size()
                   && JoinsAbove(block, column, block.Rows[last + 1])) {
                ++last;
            }
            const TRect group{rect.Left, rect.Top, rect.Right, block.Rows[last].Far};
            PaintCell(place, look, first ? group : TRect());
            PaintLines(place, last > at);
        }
    }
}

void TBabGridPainter::RightLine(const TRect &rect, TColor color)
{
    m_canvas.SetPen({color, 1, TPenStyle::psSolid});
    m_canvas.Line({rect.Right - 1, rect.Top}, {rect.Right - 1, rect.Bottom - 1});
}

void TBabGridPainter::BottomLine(const TRect &rect, TColor color)
{
    m_canvas.SetPen({color, 1, TPenStyle::psSolid});
    m_canvas.Line({rect.Left, rect.Bottom - 1}, {rect.Right - 1, rect.Bottom - 1});
}

void TBabGridPainter::PaintLines(const TCellPlace &place, bool joinedBelow)
{
    if (m_core.IsLayoutOutOfDate()) {
        return;
    }
    const TRect &rect = place.Rect;
    RightLine(rect, m_lines);
    if (!joinedBelow) {
        BottomLine(rect, m_lines);
    }
    const TLayoutProp &layout =
        m_core.LayoutOf(*place.Block.Grid, *place.Column.Item, *place.Row.Item);
    if (layout.FrameOptionsUse) {
        PaintFrame(rect, layout);
    }
}

void TBabGridPainter::SetFont(TFont font, TColor color)
{
    font.Color = color;
    ChooseFont(font);
}

void TBabGridPainter::ChooseFont(const TFont &font)
{
    if (m_state.FontChosen || !(font == m_canvas.Font())) {
        m_canvas.SetFont(font);
        m_state.FontChosen();
    }
}

void TBabGridPainter::PaintSubGrid(const TCellPlace &place)
{
    auto *subGrid = dynamic_cast<TBabGridCell *>(
        place.Block.Grid->FindCell(*place.Column.Item, *place.Row.Item));
    if (subGrid != nullptr) {
        PaintBlock(m_core.ShownIn(*subGrid, place.Rect, m_canvas.ClipRect()));
    }
}

/// `textRect` is where the text stands; empty for a cell that leaves it to another one.
void TBabGridPainter::PaintCell(const TCellPlace &place, const TColumnLook &look,
                                const TRect &textRect)
{
    if (m_core.IsLayoutOutOfDate()) {
        return;
    }
    TBabGridCell &grid = *place.Block.Grid;
    const TLayoutProp &layout = m_core.LayoutOf(grid, *place.Column.Item, *place.Row.Item);
    TCellRender cell;
    cell.Grid = &grid;
    cell.Column = place.Column.Item;
    cell.Row = place.Row.Item;
    cell.Rect = place.Rect;
    cell.Selected =
        m_state.Marks && grid.Selection().IsSelected(place.Column.Index, place.Row.Index);
    cell.BackColor = cell.Selected ? clHighlight : layout.BackColor;
    cell.FrontColor = cell.Selected        ? clHighlightText
                      : layout.UseFontInfo ? layout.Font.Color
                                           : layout.FrontColor;
    const bool asks = !look.Grids && (m_state.BeforeRender || m_state.UserRender);
    if (!look.Grids) {
        cell.Text = grid.CellText(*place.Column.Item, *place.Row.Item);
    }
    if (asks && !m_core.IsLayoutOutOfDate()) {
        cell.Cell = grid.FindCell(*place.Column.Item, *place.Row.Item);
        cell.Focused = m_state.Marks
                       && m_state.Focus == TGridCellAt{&grid, place.Column.Index, place.Row.Index};
        cell.Font = layout.UseFontInfo ? layout.Font : m_gridFont;
        m_state.BeforeRender(m_state.View, cell);
    }
    if (m_core.IsLayoutOutOfDate()) {
        return; // a handler changed the grid; the next paint shows it
    }
    if (cell.Selected || cell.BackColor != clWindow) {
        m_canvas.FillRect(place.Rect, cell.BackColor);
    }
    if (look.Grids) {
        PaintSubGrid(place);
    } else if (!asks || !PaintedByUser(cell)) {
        PaintContent(place, look, textRect, cell);
    }
}

bool TBabGridPainter::PaintedByUser(const TCellRender &cell)
{
    if (!m_state.UserRender) {
        return false;
    }
    const TRect &rect = cell.Rect;
    const TClipScope clip(m_canvas, {rect.Left, rect.Top, rect.Right - 1, rect.Bottom - 1});
    bool handled = false;
    m_state.UserRender(m_state.View, m_canvas, cell, handled);
    return handled || m_core.IsLayoutOutOfDate();
}

void TBabGridPainter::PaintContent(const TCellPlace &place, const TColumnLook &look,
                                   const TRect &textRect, const TCellRender &cell)
{
    TBabGridCell &grid = *place.Block.Grid;
    const TLayoutProp &layout = m_core.LayoutOf(grid, *place.Column.Item, *place.Row.Item);
    const TGridCellAt at{&grid, place.Column.Index, place.Row.Index};
    if (look.Tree) {
        PaintTreeButton(place, cell.FrontColor);
    }
    const TRect shown = m_core.ContentRect(at, textRect.IsEmpty() ? place.Rect : textRect);
    if (look.Column != nullptr && look.Column->HasIcon() && m_state.Images != nullptr) {
        const int index = const_cast<TBabColumn *>(look.Column)->IconIndex(grid, *place.Row.Item);
        if (m_core.IsLayoutOutOfDate()) {
            return;
        }
        // Beside the line that the text begins with.
        const int lineEnd = place.Rect.Top + grid.Rows().DefaultSize();
        const int bottom =
            layout.VertAlignCenter ? place.Rect.Bottom : std::min(place.Rect.Bottom, lineEnd);
        const int right = shown.Left - TBabGridLayoutCore::kPadding;
        m_canvas.DrawImage({right - TBabGridLayoutCore::kImage, place.Rect.Top, right, bottom - 1},
                           *m_state.Images, index);
    }
    if (look.Kind == TColumnKind::tckBool) {
        PaintCheckBox(m_core.CheckBoxRect(place.Rect), !cell.Text.empty() && cell.Text != "0",
                      cell.FrontColor);
    } else if (!textRect.IsEmpty() && !cell.Text.empty()) {
        const bool asked = m_state.BeforeRender || m_state.UserRender;
        SetFont(asked ? cell.Font : layout.UseFontInfo ? layout.Font : m_gridFont, cell.FrontColor);
        PaintText(cell.Text, shown, LookOf(layout));
    }
}

TBabGridPainter::TTextLook TBabGridPainter::LookOf(const TLayoutProp &layout)
{
    if (layout.WindowsFlagDraw) {
        const auto has = [flags = layout.WindowsFlags](int flag) { return (flags & flag) != 0; };
        return {has(TLayoutProp::kTextRight),
                has(TLayoutProp::kTextCenter),
                has(TLayoutProp::kTextVCenter),
                has(TLayoutProp::kTextBottom),
                has(TLayoutProp::kTextWordBreak) && !has(TLayoutProp::kTextSingleLine),
                has(TLayoutProp::kTextEndEllipsis)};
    }
    return {layout.HorzAlignRight, layout.HorzAlignCenter, layout.VertAlignCenter, false,
            layout.WrapTextAndFit, layout.EndEllipsis};
}

void TBabGridPainter::PaintText(std::string_view text, const TRect &rect, const TTextLook &look)
{
    const int lineHeight = m_canvas.TextExtent("Xg").Height;
    if (!look.Wrap) {
        const int room = rect.Height() - lineHeight;
        // A single line that hardly fits stands in the middle, wherever it is wanted.
        const bool middle = look.VertCenter || room < lineHeight / 2;
        const int top = rect.Top + (middle ? room / 2 : look.Bottom ? room : 0);
        PaintLine(FirstLine(text), rect, top, look);
        return;
    }
    const auto lines = WrappedText(m_canvas, text, rect.Width());
    const int room = rect.Height() - lineHeight * static_cast<int>(std::ssize(lines));
    int top = rect.Top;
    if (room > 0) {
        top += look.VertCenter ? room / 2 : look.Bottom ? room : 0;
    }
    for (const std::string_view line : lines) {
        if (top >= rect.Bottom) {
            break;
        }
        PaintLine(line, rect, top, look);
        top += lineHeight;
    }
}

void TBabGridPainter::PaintLine(std::string_view text, const TRect &rect, int top,
                                const TTextLook &look)
{
    const TSize extent = m_canvas.TextExtent(text);
    const int room = rect.Width() - extent.Width;
    if (room >= 0) {
        const int left = rect.Left + (look.Center ? room / 2 : look.Right ? room : 0);
        if (top >= rect.Top - 2 && top + extent.Height <= rect.Bottom + 2) {
            m_canvas.TextOut({left, top}, text);
        } else {
            m_canvas.TextRect(rect, {left, top}, text);
        }
    } else if (look.Ellipsis) {
        m_canvas.TextRect(rect, {rect.Left, top}, EllipsizedText(m_canvas, text, rect.Width()));
    } else {
        m_canvas.TextRect(rect, {look.Right ? rect.Left + room : rect.Left, top}, text);
    }
}

void TBabGridPainter::PaintHeader(const TCellPlace &place, const TColumnLook &look)
{
    const TRect &rect = place.Rect;
    m_canvas.FillRect(rect, clBtnFace);
    RightLine(rect, m_headerLines);
    BottomLine(rect, m_headerLines);
    TRect content =
        m_core.ContentRect({place.Block.Grid, place.Column.Index, place.Row.Index}, rect);
    if (look.Column != nullptr && look.Column->SortMark() != TSortMark::None) {
        constexpr int kMark = 9;
        PaintSortMark({content.Right - kMark, content.Top, content.Right, content.Bottom},
                      look.Column->SortMark());
        content.Right -= kMark + TBabGridLayoutCore::kPadding;
    }
    TFont font = m_gridFont;
    font.Color = clBtnText;
    ChooseFont(font);
    if (look.Column != nullptr && look.Column->SortOrder() > 0) {
        // Beside its mark.
        const std::string order = std::to_string(look.Column->SortOrder());
        const TSize extent = m_canvas.TextExtent(order);
        const int left = content.Right - extent.Width + TBabGridLayoutCore::kPadding / 2;
        const int top = (content.Top + content.Bottom - extent.Height) / 2;
        m_canvas.TextRect(content, {left, top}, order);
        content.Right = left - TBabGridLayoutCore::kPadding;
    }
    TTextLook text;
    text.Ellipsis = true;
    if (look.Column != nullptr) {
        const TLayoutProp *layout = look.Column->LayoutProp();
        text.Right = layout != nullptr && layout->HorzAlignRight;
        text.Center = layout != nullptr && layout->HorzAlignCenter;
    }
    PaintText(place.Block.Grid->CellText(*place.Column.Item, *place.Row.Item), content, text);
}

void TBabGridPainter::PaintTreeButton(const TCellPlace &place, TColor color)
{
    const TGridCellAt at{place.Block.Grid, place.Column.Index, place.Row.Index};
    const TRect button = m_core.TreeButtonRect(at, place.Rect);
    if (button.IsEmpty()) {
        return;
    }
    const bool expanded = TBabGridLayoutCore::TreeNodeAt(at)->IsTreeExpanded();
    const TSmoothScope smooth(m_canvas);
    const TClipScope clip(m_canvas, button);
    // In the middle of a line and of an indent, also where the cell is smaller.
    const int x = button.Left + TBabGridLayoutCore::kTreeIndent / 2;
    const int y = (button.Top + button.Bottom) / 2;
    m_canvas.SetPen({color, 1, TPenStyle::psSolid});
    m_canvas.SetBrushColor(color);
    const std::array down{TPoint{x - 4, y - 2}, TPoint{x + 4, y - 2}, TPoint{x, y + 2}};
    const std::array right{TPoint{x - 2, y - 4}, TPoint{x + 2, y}, TPoint{x - 2, y + 4}};
    m_canvas.Polygon(expanded ? down : right);
}

void TBabGridPainter::PaintSortMark(const TRect &rect, TSortMark mark)
{
    const TSmoothScope smooth(m_canvas);
    const int middle = (rect.Top + rect.Bottom) / 2;
    const int half = (rect.Width() - 1) / 2;
    const int point = mark == TSortMark::Ascending ? -2 : 2;
    const TColor color = Mixed(clBtnFace, clBtnText, 65);
    m_canvas.SetPen({color, 1, TPenStyle::psSolid});
    m_canvas.SetBrushColor(color);
    const std::array corners{TPoint{rect.Left, middle - point},
                             TPoint{rect.Left + 2 * half, middle - point},
                             TPoint{rect.Left + half, middle + point}};
    m_canvas.Polygon(corners);
}

/// The row of the focus is marked.
void TBabGridPainter::PaintRowHeader(const TCellPlace &place)
{
    const TRect &rect = place.Rect;
    m_canvas.FillRect(rect, clBtnFace);
    RightLine(rect, m_headerLines);
    BottomLine(rect, m_headerLines);
    const bool focused = m_state.Marks && m_state.Focus.Grid == place.Block.Grid
                         && m_state.Focus.Row == place.Row.Index && !place.Row.Fixed;
    if (!focused) {
        return;
    }
    const TSmoothScope smooth(m_canvas);
    const int middle = (std::max(rect.Top, place.Block.FixedEnd.Y)
                        + std::min(rect.Bottom, place.Block.Area.Bottom) - 1)
                       / 2;
    const int left = (rect.Left + rect.Right - 1) / 2 - 2;
    const TColor color = Mixed(clBtnFace, clBtnText, 75);
    m_canvas.SetPen({color, 1, TPenStyle::psSolid});
    m_canvas.SetBrushColor(color);
    const std::array corners{TPoint{left, middle - 4}, TPoint{left + 4, middle},
                             TPoint{left, middle + 4}};
    m_canvas.Polygon(corners);
}

void TBabGridPainter::PaintCheckBox(const TRect &box, bool checked, TColor color)
{
    m_canvas.SetBrushColor(color);
    m_canvas.FrameRect(box);
    if (!checked) {
        return;
    }
    const TSmoothScope smooth(m_canvas);
    m_canvas.SetPen({color, 2, TPenStyle::psSolid});
    const std::array tick{TPoint{box.Left + 3, box.Top + 6}, TPoint{box.Left + 5, box.Top + 9},
                          TPoint{box.Left + 10, box.Top + 3}};
    m_canvas.Polyline(tick);
}

void TBabGridPainter::PaintFrame(const TRect &rect, const TLayoutProp &layout)
{
    const TRect in{rect.Left, rect.Top, rect.Right - 1, rect.Bottom - 1}; // corners, both included
    const auto side = [&](TFrameOption option, TPoint from, TPoint to) {
        if ((layout.FrameOptions & option) != 0) {
            PaintFrameLine(from, to, option, layout);
        }
    };
    side(foLeft, {in.Left, in.Top}, {in.Left, in.Bottom});
    side(foTop, {in.Left, in.Top}, {in.Right, in.Top});
    side(foRight, {in.Right, in.Top}, {in.Right, in.Bottom});
    side(foBottom, {in.Left, in.Bottom}, {in.Right, in.Bottom});
}

void TBabGridPainter::PaintFrameLine(TPoint from, TPoint to, TFrameOption side,
                                     const TLayoutProp &layout)
{
    if (layout.OnFrameLineDraw) {
        bool handled = false;
        layout.OnFrameLineDraw(m_canvas, from, to, side, handled);
        if (handled) {
            return;
        }
    }
    const bool upper = side == foLeft || side == foTop;
    TPen pen{layout.FrameColor, 1, TPenStyle::psSolid};
    if (layout.FrameKind == TFrameKind::fkRaised || layout.FrameKind == TFrameKind::fkLowered) {
        const bool light = upper == (layout.FrameKind == TFrameKind::fkRaised);
        pen.Color = light ? clBtnHighlight : clBtnShadow;
    } else if (layout.FrameKind == TFrameKind::fkDotted) {
        pen.Style = TPenStyle::psDot;
    }
    m_canvas.SetPen(pen);
    m_canvas.Line(from, to);
    if (layout.FrameKind == TFrameKind::fkDouble) {
        const int inward = upper ? 2 : -2;
        const TPoint by = from.X == to.X ? TPoint{inward, 0} : TPoint{0, inward};
        m_canvas.Line({from.X + by.X, from.Y + by.Y}, {to.X + by.X, to.Y + by.Y});
    }
}

void TBabGridPainter::PaintFocus(const TGridBlock &block)
{
    if (m_core.IsLayoutOutOfDate() || !m_state.HasFocus || !m_state.FocusRects
        || m_state.Focus.Grid != block.Grid) {
        return;
    }
    const auto bandOf = [](const TGridBands &bands, int index) {
        return std::find_if(bands.begin(), bands.end(),
                            [index](const TGridBand &band) { return band.Index == index; });
    };
    const auto column = bandOf(block.Columns, m_state.Focus.Column);
    const auto row = bandOf(block.Rows, m_state.Focus.Row);
    if (column == block.Columns.end() || row == block.Rows.end()) {
        return;
    }
    const TClipScope clip(m_canvas, {column->Fixed ? block.Area.Left : block.FixedEnd.X,
                                     row->Fixed ? block.Area.Top : block.FixedEnd.Y,
                                     block.Area.Right, block.Area.Bottom});
    m_canvas.DrawFocusRect({column->Near, row->Near, column->Far - 1, row->Far - 1});
}

} // namespace korvane
