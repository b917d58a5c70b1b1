#include "cellgrid/zuBabGridPaint.h"

#include "cellgrid/zuCellText.h"
#include "foundation/zuMirrorCanvas.h"

#include <algorithm>
#include <array>

namespace korvane {

TBabGridPainter::TBabGridPainter(TBabGridLayoutCore &core, TCanvas &canvas,
                                 const TGridPaintState &state)
    : m_core(core)
    , m_canvas(canvas)
    , m_state(state)
    , m_mirrored(dynamic_cast<const TMirrorCanvas *>(&canvas) != nullptr)
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
        m_advances = {};
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
    const bool hot = !cell.Selected && !look.Grids && IsHotRow(place);
    m_cellColor = hot ? Mixed(cell.BackColor, clHighlight, 8) : cell.BackColor;
    if (m_cellColor != clWindow) {
        m_canvas.FillRect(place.Rect, m_cellColor);
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
        PaintTreeLines(place, Mixed(m_cellColor, cell.FrontColor, 30));
        PaintTreeButton(place, cell.Selected || !IsHot(place, TGridPart::TreeButton)
                                   ? cell.FrontColor
                                   : TColor(clHighlight));
    }
    const TRect shown = m_core.ContentRect(at, textRect.IsEmpty() ? place.Rect : textRect);
    if (look.Column != nullptr && look.Column->HasIcon() && m_state.Images != nullptr) {
        const int index = const_cast<TBabColumn *>(look.Column)->IconIndex(grid, *place.Row.Item);
        if (m_core.IsLayoutOutOfDate()) {
            return;
        }
        constexpr int kImage = TBabGridLayoutCore::kImage;
        const TRect line = m_core.LineRect(at, place.Rect);
        const int right = shown.Left - TBabGridLayoutCore::kPadding;
        const int top = (line.Top + line.Bottom - kImage) / 2;
        m_canvas.DrawImage(TRect{right - kImage, top, right, top + kImage}.Intersected(place.Rect),
                           *m_state.Images, index);
    }
    if (look.Kind == TColumnKind::tckBool) {
        const bool hot = !cell.Selected && IsHot(place, TGridPart::CheckBox);
        PaintCheckBox(m_core.CheckBoxRect(at, place.Rect), !cell.Text.empty() && cell.Text != "0",
                      hot ? TColor(clHighlight) : cell.FrontColor);
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
    const auto lines =
        look.Wrap ? WrappedText(m_canvas, text, rect.Width()) : std::vector{FirstLine(text)};
    if (lines.size() == 1) {
        const int room = rect.Height() - lineHeight;
        const bool middle =
            look.VertCenter || TBabGridLayoutCore::StandsInMiddle(rect.Height(), lineHeight);
        const int top = rect.Top + (middle ? room / 2 : look.Bottom ? room : 0);
        PaintLine(lines.front(), rect, top, look);
        return;
    }
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

/// Whether the text is certain to be no wider, found without laying it out.
bool TBabGridPainter::SurelyFits(std::string_view text, int width)
{
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code >= m_advances.size()) {
            return false;
        }
        int &advance = m_advances[code];
        if (advance == 0) {
            advance = m_canvas.TextExtent(std::string_view(&c, 1)).Width;
        }
        width -= advance;
    }
    return width >= 0;
}

void TBabGridPainter::PaintLine(std::string_view text, const TRect &rect, int top,
                                const TTextLook &look)
{
    const int height = m_canvas.TextExtent("Xg").Height;
    const bool inside = top >= rect.Top - 2 && top + height <= rect.Bottom + 2;
    if (!look.Right && !look.Center && !look.Ellipsis) {
        // Where it begins is known; its width, which costs as much as drawing it, is not needed.
        PaintMarks(text, {rect.Left, top}, rect);
        if (inside && SurelyFits(text, rect.Width())) {
            m_canvas.TextOut({rect.Left, top}, text);
        } else {
            m_canvas.TextRect(rect, {rect.Left, top}, text);
        }
        return;
    }
    const TSize extent = m_canvas.TextExtent(text);
    const int room = rect.Width() - extent.Width;
    if (room >= 0) {
        const int left = rect.Left + (look.Center ? room / 2 : look.Right ? room : 0);
        PaintMarks(text, {left, top}, rect);
        if (inside) {
            m_canvas.TextOut({left, top}, text);
        } else {
            m_canvas.TextRect(rect, {left, top}, text);
        }
    } else if (look.Ellipsis) {
        PaintMarks(text, {rect.Left, top}, rect);
        m_canvas.TextRect(rect, {rect.Left, top}, EllipsizedText(m_canvas, text, rect.Width()));
    } else {
        const int left = look.Right ? rect.Left + room : rect.Left;
        PaintMarks(text, {left, top}, rect);
        m_canvas.TextRect(rect, {left, top}, text);
    }
}

} // namespace korvane
