// The core of a grid view: the mouse.
#pragma once

#include "cellgrid/zuBabGridSelect.h"
#include "foundation/zuExport.h"
#include "foundation/zuInput.h"

#include <cstdint>

namespace korvane {

/// The user has given a column or a row a size, in pixels.
using TOnResizeEvent = TMethod<void(TObject *theGrid, TAxisContentItem *theItem, int theSize)>;

/// Selecting, resizing columns and rows, moving columns, and clicks on headers. A press and release
/// without movement resizes and moves nothing.
class KORVANE_CORE_API TBabGridGestures : public TBabGridSelectCore
{
public:
    using TBabGridSelectCore::TBabGridSelectCore;

    /// Whether the user may resize columns and rows, and move columns, at their headers; true by
    /// default.
    bool UserSizing() const { return m_userSizing; }
    void SetUserSizing(bool value) { m_userSizing = value; }
    bool ColumnMoving() const { return m_columnMoving; }
    void SetColumnMoving(bool value) { m_columnMoving = value; }

    /// Whether the user may drag the selected rows of a tree to another place, at their headers and
    /// in the tree's column.
    bool RowMoving() const { return m_rowMoving; }
    void SetRowMoving(bool value) { m_rowMoving = value; }
    /// The events of the mouse, in pixels of the view. The left button alone begins gestures;
    /// another one selects what it goes down on.
    void MouseDown(TMouseButton button, TShiftState shift, TPoint point);
    void MouseMove(TShiftState shift, TPoint point);
    void MouseUp(TMouseButton button, TShiftState shift, TPoint point);
    void DblClick(TPoint point);
    /// Escape, or the loss of the mouse: what the gesture changed is as before.
    void CancelGesture();
    /// A tick of scrolling while a gesture that selects or moves rows is held beyond the edge; rows
    /// that are dragged expand the node on which they rest. False when there is nothing to do.
    bool AutoScroll();
    /// From the press to the release, or to CancelGesture.
    bool InGesture() const { return m_gesture != TGesture::None; }
    /// Makes the column as wide as its shown cells ask for, or the row as high.
    void FitColumn(const TGridCellAt &at);
    void FitRow(const TGridCellAt &at);

    /// What the gesture shows above the picture.
    void PaintOverlay(TCanvas &canvas);

    TPublished<TOnResizeEvent> OnColumnResized; ///< also at each step while the user drags
    TPublished<TOnResizeEvent> OnRowResized;    ///< also at each step while the user drags
    TPublished<TNotify> OnAfterUserSize;        ///< a resizing is over

protected:
    void SubGridGoes(TBabGridCell *grid) override;
    /// What a click does beyond selecting; nothing here. `at` is a crossing of the header in the
    /// first.
    virtual void HeaderClicked(const TGridCellAt & /*at*/, TShiftState /*shift*/) {}
    virtual void CheckBoxClicked(const TGridCellAt & /*at*/) {}
    virtual void CellDoubleClicked(const TGridCellAt & /*at*/) {}
    /// The user dropped a column at another place.
    virtual void MoveColumn(TBabGridCell &grid, int from, int to);
    /// The user dropped the selected rows.
    virtual void DropRows(const TGridRowDrop &drop) { RootCell().OnDropRows(drop); }

private:
    enum class TGesture : std::uint8_t {
        None,
        Header, ///< pressed on a header, which may become a moving
        MoveColumn,
        ResizeColumn,
        ResizeRow,
        SelectCells,
        SelectRows,
        CheckBox,
        Rows, ///< pressed on selected rows, which may become a moving
        MoveRows
    };

    void PressCell(const TGridHit &hit, TShiftState shift);
    void BeginResize(const TGridHit &hit, TGesture gesture);
    void Resize(TPoint point);
    void SetSize(TAxisContentItem &item, int size);
    void SelectTo(TPoint point);
    void UpdateDropPlace(TPoint point);
    bool MayDragRows(const TGridHit &hit) const;
    bool ScrollStep();
    void UpdateRowDrop();
    void PaintRowDrop(TCanvas &canvas);
    void UpdateCursor(TPoint point);
    TAxisContentItem *SizedItem() const;
    TGridChoice ChoiceOf(TShiftState shift) const;

    TGesture m_gesture = TGesture::None;
    TGridHit m_pressed;
    TPoint m_pressPoint;
    TPoint m_point;
    int m_sizeBefore = 0;
    bool m_activeBefore = false;
    bool m_sized = false;
    int m_dropIndex = -1; ///< before which column the moved one is dropped
    int m_dropPixel = 0;
    TGridRowDrop m_rowDrop;
    int m_restTicks = 0; ///< for which the rows have been dragged to this place
    bool m_mayDrop = false;
    bool m_rowMoving = false;
    bool m_userSizing = true;
    bool m_columnMoving = true;
};

} // namespace korvane
