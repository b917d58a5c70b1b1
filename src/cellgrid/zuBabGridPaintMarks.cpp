// Heads, buttons, boxes, frames and the focus of a grid.
#include "cellgrid/zuBabGridPaint.h"
#include "cellgrid/zuCellText.h"

#include <algorithm>
#include <array>

namespace korvane {

bool TBabGridPainter::IsHot(const TCellPlace &place, TGridPart part) const
{
    return m_state.Hot.Part == part
           && m_state.Hot.At == TGridCellAt{place.Block.Grid, place.Column.Index, place.Row.Index};
}

bool TBabGridPainter::IsHotRow(const TCellPlace &place) const
{
    const TGridHot &hot = m_state.Hot;
    return hot.At.Grid == place.Block.Grid && hot.At.Row == place.Row.Index && !place.Row.Fixed;
}

/// Behind each place in the line where the marked text stands.
void TBabGridPainter::PaintMarks(std::string_view line, TPoint at, const TRect &rect)
{
    const std::string_view marked = m_state.MarkedText;
    if (marked.empty()) {
        return;
    }
    const TSize extent = m_canvas.TextExtent(line);
    const TColor color = m_cellColor == clHighlight ? Mixed(clHighlight, clHighlightText, 35)
                                                    : Mixed(m_cellColor, Rgb(0xff, 0xb0, 0x00), 50);
    for (auto from = FindCaseless(line, marked); from != std::string_view::npos;
         from = FindCaseless(line, marked, from + marked.size())) {
        const int begin = m_canvas.TextExtent(line.substr(0, from)).Width;
        const int end = m_canvas.TextExtent(line.substr(0, from + marked.size())).Width;
        const TRect mark = m_mirrored ? TRect{at.X + extent.Width - end, at.Y,
                                              at.X + extent.Width - begin, at.Y + extent.Height}
                                      : TRect{at.X + begin, at.Y, at.X + end, at.Y + extent.Height};
        m_canvas.FillRect(mark.Intersected(rect), color);
    }
}

void TBabGridPainter::PaintHeadGround(const TRect &rect, bool hot)
{
    m_canvas.FillRect(rect, hot ? Mixed(clBtnFace, clHighlight, 14) : TColor(clBtnFace));
    RightLine(rect, m_headerLines);
    BottomLine(rect, m_headerLines);
}

void TBabGridPainter::PaintHeader(const TCellPlace &place, const TColumnLook &look)
{
    const TRect &rect = place.Rect;
    PaintHeadGround(rect, IsHot(place, TGridPart::ColumnHeader));
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

/// From each node to its parent's button, and past it to the next one of the same parent.
void TBabGridPainter::PaintTreeLines(const TCellPlace &place, TColor color)
{
    const TGridCellAt at{place.Block.Grid, place.Column.Index, place.Row.Index};
    const IBabTreeRow *node = TBabGridLayoutCore::TreeNodeAt(at);
    if (!m_state.TreeLines || node == nullptr) {
        return;
    }
    constexpr int kIndent = TBabGridLayoutCore::kTreeIndent;
    constexpr int kButton = 6; ///< room that the button takes from its middle
    const TRect &rect = place.Rect;
    const TRect lineRect = m_core.LineRect(at, rect);
    const int first = rect.Left + TBabGridLayoutCore::kPadding + kIndent / 2;
    const int middle = (lineRect.Top + lineRect.Bottom) / 2;
    int level = node->TreeLevel();
    m_canvas.SetPen({color, 1, TPenStyle::psSolid});
    const TClipScope clip(m_canvas, {rect.Left, rect.Top, rect.Right - 1, rect.Bottom});
    const bool button = node->HasTreeButton();
    if (button && node->IsTreeExpanded()) {
        m_canvas.Line({first + level * kIndent, middle + kButton},
                      {first + level * kIndent, rect.Bottom - 1});
    }
    for (bool own = true; node != nullptr && level > 0; own = false, --level) {
        const int x = first + (level - 1) * kIndent;
        const bool goesOn = node->HasNextTreeRow();
        if ((own || goesOn) && x < rect.Right) {
            m_canvas.Line({x, rect.Top}, {x, goesOn ? rect.Bottom - 1 : middle});
        }
        if (own) {
            m_canvas.Line({x, middle}, {x + kIndent - (button ? kButton : 2), middle});
        }
        const TAxisContentItem *parent = node->ParentRow();
        node = parent != nullptr ? place.Block.Grid->TreeRowOf(*parent) : nullptr;
    }
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
    PaintHeadGround(rect, IsHotRow(place));
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
    std::array tick{TPoint{box.Left + 3, box.Top + 6}, TPoint{box.Left + 5, box.Top + 9},
                    TPoint{box.Left + 10, box.Top + 3}};
    for (TPoint &point : tick) {
        point.X = m_mirrored ? box.Left + box.Right - 1 - point.X : point.X;
    }
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
