// What the keyboard does in the area of a Gantt chart.
#pragma once

#include "foundation/zuExport.h"
#include "gantt/zuGantGestures.h"

#include <string>
#include <vector>

namespace korvane {

/// Keys that the chart knows.
enum class TGantKey : unsigned char {
    Left,
    Right,
    Up,
    Down,
    Home,
    End,
    PageUp,
    PageDown,
    Space,
    Enter,
    Escape,
    Delete,
    Plus,
    Minus,
    A,
};

/// What a key can do.
enum class TGantKeyFunction : unsigned char {
    kfNone,
    // These make another item active and select it alone, or the range to it from the anchor.
    kfLeft,     ///< to the item before on the line
    kfRight,    ///< to the next one
    kfUp,       ///< to the closest item on the line above
    kfDown,     ///< to the one below
    kfRowStart, ///< to the first item of the line
    kfRowEnd,   ///< to the last one
    kfFirstRow, ///< to the closest item on the first row that has any
    kfLastRow,  ///< to the one on the last row
    kfPageUp,   ///< to the closest item about one screen of rows above
    kfPageDown, ///< to the one below

    // These change the selected items, as far as they can be edited and their rows permit it. A
    // step is the width of the snap grid at the current zoom.
    kfMoveEarlier,
    kfMoveLater,
    kfMoveUp, ///< hands each item to OnTimeChangeRow, for the row above its own
    kfMoveDown,
    kfStartEarlier,
    kfStartLater,
    kfStopEarlier,
    kfStopLater,

    kfSelect, ///< selects the active item alone
    kfToggle, ///< selects or deselects the active item
    kfSelectAll,
    kfCancel, ///< ends a gesture, or else clears the selection
    /// OnEditDataEntity_Link of a link that alone is selected; or else, of the active item,
    /// OnEditDataEntity_Spanbar or OnDblClickGantArea.
    kfEdit,
    kfDelete, ///< deletes what is selected when OnAskDelete agrees
    kfZoomIn, ///< about the active item, or else the middle of the axis
    kfZoomOut,
};

/// A hint, and where it holds, in area pixels.
struct TAreaHint
{
    std::string Text; ///< lines; empty for no hint
    TRect Rect;       ///< the hint goes when the pointer leaves it
};

/// Adds the keyboard to the chart.
///
/// Left and Right walk along a line, Up and Down from line to line, staying as close as they can to
/// the time at which the walk began. Shift extends the range from the anchor, which the last step
/// without Shift has set. Home and End go to the ends of the line, with Ctrl to the first and last
/// row; the page keys go as many rows as are on screen. Whatever becomes active is brought into
/// view. Without an active item the first key makes the item closest to the middle of the axis
/// active, on the tree's current row or else on the rows from the top of the screen down.
///
/// Ctrl with an arrow moves the selected items by a step in time or by a row, and Alt with Left or
/// Right moves their stops, with Shift as well their starts; each is a change of the user like that
/// of a drag, by the same rules.
///
/// Space selects the active item, Ctrl+Space changes its mark, Ctrl+A selects all, Escape cancels
/// or clears, Enter edits, Delete deletes with consent, plus and minus zoom.
class KORVANE_CORE_API TGantKeys : public TGantGestures
{
public:
    /// As that of TGantGestures.
    using TGantGestures::TGantGestures;

    /// Whether the key was used.
    bool GantAreaKeyDown(TGantKey key, const TShiftState &shift);
    /// What a key does with these modifiers.
    static TGantKeyFunction KeyFunctionOf(TGantKey key, const TShiftState &shift);
    /// Does it; true when there was something to do. `extend` matters where another item becomes
    /// active.
    bool PerformGantAreaKeyfunction(TGantKeyFunction function, bool extend = false);
    /// The mouse is over a point of the area: marks the link there. An item above it comes first.
    void PointAt(int x, int y);
    /// The mouse has left the area: no link is marked.
    void PointAway() { SetHoverLink(nullptr); }
    /// What a hint says about the item or link at a point: its caption, and when the item starts
    /// and stops. Empty where there is neither.
    TAreaHint HintAt(int x, int y);

    /// With the focus and no active item the area is framed.
    void GantAreaPaint() override;
    /// Makes an item active where there is none, as the first key does: for an area that comes to
    /// have the keyboard focus.
    void EnsureActiveDataEntity();

    /// HintAt has found an item, or a link; the handler may say something else.
    TOnItemHint OnItemHint;
    TOnLinkHint OnLinkHint;
    /// The user wants to edit an item, which can be edited.
    TPublished<TOnGantItem> OnEditDataEntity_Spanbar;
    /// The user wants to edit a link: it alone is selected.
    TPublished<TOnGantLink> OnEditDataEntity_Link;
    /// The user wants to delete what is selected. The chart deletes it when the handler says so; a
    /// handler that deletes on its own does not. Items that cannot be edited are not among them.
    TOnAskDelete OnAskDelete;

protected:
    void _OnItemFreed(const TzuDataEntity_Spanbar *item) override;

private:
    bool Walk(TGantKeyFunction function, bool extend);
    TzuDataEntity_Spanbar *WalkTarget(TzuDataEntity_Spanbar &from, TGantKeyFunction function);
    TzuDataEntity_Spanbar *PageTarget(TzuDataEntity_Spanbar &from, TGantStep step);
    TzuDataEntity_Spanbar *EdgeRowTarget(TzuDataEntity_Spanbar &from, TGantStep step);
    TzuDataEntity_Spanbar *FirstTarget();
    TDateTime WalkDate(const TzuDataEntity_Spanbar &from) const;
    void StepTo(TzuDataEntity_Spanbar &item, bool extend);
    bool MoveInTime(TGantStep step);
    bool MoveToRow(TGantStep step);
    bool Resize(TGantEnd end, TGantStep step);
    TDateTime TimeStep(TDateTime gridStep, TGantStep step);
    template <typename Change>
    TDrop Moving(const TzuDataEntity_Spanbar &item, TDateTime shift, const Change &change);
    void AfterChange();
    bool Select(TSelectHow how);
    bool Cancel();
    bool Edit();
    bool DeleteSelected();
    void AskAndDelete(const std::vector<TzuDataEntity_Spanbar *> &items);
    void DeleteAll(const std::vector<TzuDataEntity_Spanbar *> &items,
                   const std::vector<TzuDataEntity_Link *> &links);
    void RemoveAll(const std::vector<TzuDataEntity_Spanbar *> &items,
                   const std::vector<TzuDataEntity_Link *> &links);
    bool Zoom(TGantKeyFunction function);

    /// Where a walk from line to line keeps to, and the item for which that holds.
    TDateTime m_walkDate = 0;
    const TzuDataEntity_Spanbar *m_walkItem = nullptr;
};

} // namespace korvane
