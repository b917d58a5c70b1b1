#include "cellgrid/zuBabGridGestures.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace korvane {

namespace {

constexpr int kMoveSlack = 4;
constexpr int kLeastUserSize = 8;

} // namespace

TGridChoice TBabGridGestures::ChoiceOf(TShiftState shift) const
{
    return shift.Shift ? TGridChoice::Extend : shift.Ctrl ? TGridChoice::Toggle : TGridChoice::Set;
}

void TBabGridGestures::MouseDown(TMouseButton button, TShiftState shift, TPoint point)
{
    CancelGesture();
    const TGridHit hit = HitTest(point);
    m_pressed = hit;
    m_pressPoint = m_point = point;
    if (button != TMouseButton::mbLeft) {
        // The menu is for what is selected, or for what is pointed at.
        const bool onCell = hit.Part == TGridPart::Cell || hit.Part == TGridPart::CheckBox;
        if (onCell && !IsSelected(hit.At)) {
            ChooseCell(hit.At, TGridChoice::Set);
        }
        return;
    }
    switch (hit.Part) {
    case TGridPart::ColumnBorder:
        BeginResize(hit, TGesture::ResizeColumn);
        break;
    case TGridPart::RowBorder:
        BeginResize(hit, TGesture::ResizeRow);
        break;
    case TGridPart::ColumnHeader:
        m_gesture = TGesture::Header;
        break;
    case TGridPart::Corner:
        SelectAll();
        break;
    case TGridPart::TreeButton:
        if (!ExpandNode(hit.At, true)) {
            ExpandNode(hit.At, false);
        }
        break;
    case TGridPart::RowHeader:
    case TGridPart::Cell:
    case TGridPart::CheckBox:
        PressCell(hit, shift);
        break;
    case TGridPart::Nothing:
        break;
    }
}

void TBabGridGestures::PressCell(const TGridHit &hit, TShiftState shift)
{
    const bool plain = !shift.Shift && !shift.Ctrl;
    if (plain && MayDragRows(hit)) {
        m_gesture = TGesture::Rows; // what is selected stays so until it is dropped, or released
        return;
    }
    TGridCellAt at = hit.At;
    const TAxisContentList &columns = at.Grid->Columns();
    const bool rowHeader = hit.Part == TGridPart::RowHeader;
    if (rowHeader) {
        at.Column = FocusCell().Grid == at.Grid ? FocusCell().Column
                                                : columns.NearestShown(columns.FixedCount(), 1);
    }
    if (!ChooseCell(at, ChoiceOf(shift))) {
        return;
    }
    if (rowHeader && MultiSelect() && !RowSelect()) {
        at.Grid->Selection().Select({0, at.Row, TCellSelection::kAllColumns, at.Row});
        RootCell().SelectionEvent.TriggerEvent(at.Grid);
    }
    m_gesture = hit.Part == TGridPart::CheckBox ? TGesture::CheckBox
                : rowHeader                     ? TGesture::SelectRows
                                                : TGesture::SelectCells;
    if (plain && !MultiSelect() && MayDragRows(hit)) {
        m_gesture = TGesture::Rows;
    }
}

void TBabGridGestures::MouseMove(TShiftState /*shift*/, TPoint point)
{
    m_point = point;
    const bool moved = std::abs(point.X - m_pressPoint.X) > kMoveSlack
                       || std::abs(point.Y - m_pressPoint.Y) > kMoveSlack;
    switch (m_gesture) {
    case TGesture::None:
        UpdateCursor(point);
        break;
    case TGesture::Header:
        if (moved && m_columnMoving) {
            m_gesture = TGesture::MoveColumn;
            UpdateDropPlace(point);
        }
        break;
    case TGesture::MoveColumn:
        UpdateDropPlace(point);
        break;
    case TGesture::ResizeColumn:
    case TGesture::ResizeRow:
        Resize(point);
        break;
    case TGesture::SelectCells:
    case TGesture::SelectRows:
        if (moved && MultiSelect()) {
            SelectTo(point);
        }
        break;
    case TGesture::Rows:
        if (moved) {
            m_gesture = TGesture::MoveRows;
            m_restTicks = 0;
            UpdateRowDrop();
        }
        break;
    case TGesture::MoveRows:
        UpdateRowDrop();
        break;
    case TGesture::CheckBox:
        break;
    }
}

void TBabGridGestures::MouseUp(TMouseButton button, TShiftState shift, TPoint point)
{
    if (button != TMouseButton::mbLeft) {
        return;
    }
    const TGesture gesture = std::exchange(m_gesture, TGesture::None);
    const TGridHit pressed = m_pressed;
    switch (gesture) {
    case TGesture::Header:
        HeaderClicked(pressed.At, shift);
        break;
    case TGesture::MoveColumn: {
        const int to = m_dropIndex > pressed.At.Column ? m_dropIndex - 1 : m_dropIndex;
        Host().InvalidateGridOverlay();
        // The application may have changed the columns meanwhile.
        const TAxisContentList &columns = pressed.At.Grid->Columns();
        const auto isColumn = [&columns](int index) {
            return index >= columns.FixedCount() && index < columns.Count();
        };
        if (isColumn(to) && isColumn(pressed.At.Column) && to != pressed.At.Column) {
            MoveColumn(*pressed.At.Grid, pressed.At.Column, to);
        }
        break;
    }
    case TGesture::ResizeColumn:
    case TGesture::ResizeRow:
        if (std::exchange(m_sized, false)) {
            OnAfterUserSize(this);
        }
        break;
    case TGesture::CheckBox: {
        const TGridHit hit = HitTest(point);
        if (hit.Part == TGridPart::CheckBox && hit.At == pressed.At) {
            CheckBoxClicked(hit.At);
        }
        break;
    }
    case TGesture::Rows: // a click after all
        m_gesture = TGesture::None;
        ChooseCell(pressed.Part == TGridPart::RowHeader
                       ? TGridCellAt{pressed.At.Grid, FocusCell().Column, pressed.At.Row}
                       : pressed.At,
                   TGridChoice::Set);
        break;
    case TGesture::MoveRows:
        Host().InvalidateGridOverlay();
        if (m_mayDrop) {
            DropRows(m_rowDrop);
        }
        break;
    default:
        break;
    }
}

void TBabGridGestures::DblClick(TPoint point)
{
    CancelGesture();
    const TGridHit hit = HitTest(point);
    if (hit.Part == TGridPart::ColumnBorder && m_userSizing) {
        FitColumn(hit.At);
    } else if (hit.Part == TGridPart::RowBorder && m_userSizing) {
        FitRow(hit.At);
    } else if (hit.Part == TGridPart::Cell) {
        CellDoubleClicked(hit.At);
    }
}

void TBabGridGestures::CancelGesture()
{
    const TGesture gesture = std::exchange(m_gesture, TGesture::None);
    if (gesture == TGesture::MoveColumn || gesture == TGesture::MoveRows) {
        Host().InvalidateGridOverlay();
    }
    const bool resizing = gesture == TGesture::ResizeColumn || gesture == TGesture::ResizeRow;
    if (resizing && std::exchange(m_sized, false)) {
        m_gesture = gesture;
        TAxisContentItem *item = SizedItem();
        m_gesture = TGesture::None;
        if (item != nullptr) {
            item->SetUserSize(m_sizeBefore);
            item->SetUserSizeActive(m_activeBefore);
        }
        LayoutOutOfDate();
    }
}

void TBabGridGestures::SubGridGoes(TBabGridCell *grid)
{
    if (m_pressed.At.Grid == grid) {
        m_gesture = TGesture::None;
        m_pressed = {};
    }
    TBabGridSelectCore::SubGridGoes(grid);
}

// --- resizing ------------------------------------------------------------------------------------

TAxisContentItem *TBabGridGestures::SizedItem() const
{
    return m_gesture == TGesture::ResizeColumn
               ? m_pressed.At.Grid->Columns().FindLoaded(m_pressed.At.Column)
               : m_pressed.At.Grid->Rows().FindLoaded(m_pressed.At.Row);
}

void TBabGridGestures::BeginResize(const TGridHit &hit, TGesture gesture)
{
    if (!m_userSizing) {
        return;
    }
    m_pressed = hit;
    m_gesture = gesture;
    m_sized = false;
    if (const TAxisContentItem *item = SizedItem()) {
        // A column that fills the view begins with what it takes there.
        m_sizeBefore = item->GetUserSizeActive() ? item->GetUserSize() : item->Size();
        m_activeBefore = item->GetUserSizeActive();
    } else {
        m_gesture = TGesture::None;
    }
}

void TBabGridGestures::Resize(TPoint point)
{
    TAxisContentItem *item = SizedItem();
    const bool column = m_gesture == TGesture::ResizeColumn;
    const int by = column ? point.X - m_pressPoint.X : point.Y - m_pressPoint.Y;
    const int shown = column ? m_pressed.Rect.Width() : m_pressed.Rect.Height();
    if (item != nullptr && (by != 0 || m_sized)) {
        m_sized = true;
        SetSize(*item, shown + by);
    }
}

void TBabGridGestures::SetSize(TAxisContentItem &item, int size)
{
    size = std::max(kLeastUserSize, size);
    const bool row = item.List()->IsRowAxis();
    if (item.GetUserSizeActive() && item.GetUserSize() == size) {
        return;
    }
    item.SetUserSizeActive(true);
    item.SetUserSize(size);
    LayoutOutOfDate();
    (row ? OnRowResized : OnColumnResized)(this, &item, size);
}

void TBabGridGestures::FitColumn(const TGridCellAt &at)
{
    TAxisContentItem *item = at.Grid->Columns().FindLoaded(at.Column);
    if (item != nullptr) {
        SetSize(*item, BestColumnWidth(at));
        OnAfterUserSize(this);
    }
}

void TBabGridGestures::FitRow(const TGridCellAt &at)
{
    TAxisContentItem *item = at.Grid->Rows().FindLoaded(at.Row);
    if (item == nullptr) {
        return;
    }
    if (at.Row < at.Grid->Rows().FixedCount()) {
        SetSize(*item, BestRowHeight(at));
    } else {
        item->SetUserSizeActive(false); // as high as its content again
        LayoutOutOfDate();
    }
    OnAfterUserSize(this);
}

// --- selecting and moving ------------------------------------------------------------------------

void TBabGridGestures::SelectTo(TPoint point)
{
    const TSize size = Host().GridSize();
    const TSize page = PageSize();
    const TPoint inside{std::clamp(point.X, size.Width - page.Width,
                                   std::max(size.Width - page.Width, size.Width - 1)),
                        std::clamp(point.Y, size.Height - page.Height,
                                   std::max(size.Height - page.Height, size.Height - 1))};
    TGridHit hit =
        HitTest(m_gesture == TGesture::SelectRows ? TPoint{m_pressPoint.X, inside.Y} : inside);
    while (hit.At.Grid != nullptr && hit.At.Grid != m_pressed.At.Grid) {
        TBabGridCell *parent = hit.At.Grid->GridCell();
        if (parent == nullptr) {
            return;
        }
        hit.At = {parent, parent->Columns().IndexOf(*hit.At.Grid->Column()),
                  parent->Rows().IndexOf(*hit.At.Grid->Row())};
    }
    if (hit.At.Grid == nullptr || hit.At.Row < 0) {
        return;
    }
    if (m_gesture == TGesture::SelectRows) {
        const int anchor = m_pressed.At.Row;
        const TGridCellAt at{hit.At.Grid, FocusCell().Column, hit.At.Row};
        if (at != FocusCell() && ChooseCell(at, TGridChoice::Extend) && !RowSelect()) {
            at.Grid->Selection().Select({0, std::min(anchor, at.Row), TCellSelection::kAllColumns,
                                         std::max(anchor, at.Row)});
            RootCell().SelectionEvent.TriggerEvent(at.Grid);
        }
    } else if (hit.At != FocusCell()) {
        ChooseCell(hit.At, TGridChoice::Extend);
    }
}

bool TBabGridGestures::AutoScroll()
{
    if (m_gesture == TGesture::MoveRows) {
        constexpr int kTicksToExpand = 25;
        if (ScrollStep()) {
            UpdateRowDrop();
        } else if (m_mayDrop && m_rowDrop.Place == TGridRowPlace::On
                   && ++m_restTicks == kTicksToExpand) {
            ExpandNode({&RootCell(), RootCell().Columns().FixedCount(), m_rowDrop.Row}, true);
        }
        return true;
    }
    const bool selects = m_gesture == TGesture::SelectCells || m_gesture == TGesture::SelectRows;
    if (!selects || !MultiSelect() || !ScrollStep()) {
        return false;
    }
    SelectTo(m_point);
    return true;
}

/// Scrolls by what the mouse is beyond the edge.
bool TBabGridGestures::ScrollStep()
{
    const TSize size = Host().GridSize();
    const TSize page = PageSize();
    const auto step = [](int pixel, int near, int far) {
        return pixel < near ? pixel - near : pixel >= far ? pixel - far + 1 : 0;
    };
    const int x = step(m_point.X, size.Width - page.Width, size.Width);
    const int y = step(m_point.Y, size.Height - page.Height, size.Height);
    if (x == 0 && y == 0) {
        return false;
    }
    ScrollTo(ScrollX() + x, ScrollY() + y);
    return true;
}

void TBabGridGestures::UpdateDropPlace(TPoint point)
{
    const TGridBands bands = Shown().Columns;
    m_dropIndex = -1;
    if (m_pressed.At.Grid == &RootCell()) {
        for (const TGridBand &band : bands) {
            if (!band.Fixed && (m_dropIndex < 0 || point.X >= (band.Near + band.Far) / 2)) {
                const bool behind = point.X >= (band.Near + band.Far) / 2;
                m_dropIndex = behind ? band.Index + 1 : band.Index;
                m_dropPixel = behind ? band.Far : band.Near;
            }
        }
    }
    Host().InvalidateGridOverlay();
}

void TBabGridGestures::MoveColumn(TBabGridCell &grid, int from, int to)
{
    grid.Columns().Move(from, to);
}

void TBabGridGestures::UpdateCursor(TPoint point)
{
    const TGridPart part = m_userSizing ? HitTest(point).Part : TGridPart::Nothing;
    Host().SetGridCursor(part == TGridPart::ColumnBorder ? TGridCursor::ColumnResize
                         : part == TGridPart::RowBorder  ? TGridCursor::RowResize
                                                         : TGridCursor::Arrow);
}

void TBabGridGestures::PaintOverlay(TCanvas &canvas)
{
    if (m_gesture == TGesture::MoveColumn && m_dropIndex >= 0) {
        const TGridBlock &shown = Shown();
        canvas.FillRect({m_dropPixel - 1, shown.Area.Top, m_dropPixel + 1, shown.Area.Bottom},
                        clHighlight);
    } else if (m_gesture == TGesture::MoveRows && m_mayDrop) {
        PaintRowDrop(canvas);
    }
}

} // namespace korvane
