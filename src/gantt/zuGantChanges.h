// What the user changes in a Gantt chart, whatever he does it with.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuGraphStuff.h"
#include "gantt/zuGantSelection.h"

#include <functional>
#include <vector>

namespace korvane {

/// Adds the rules of moving, copying and resizing to the chart: the grid of times, and what happens
/// to the selected items. None asks for the permissions of rows.
class KORVANE_CORE_API TGantChanges : public TGantSelection
{
public:
    /// As that of TGantSelection.
    TGantChanges(IGantHost &host, IGantInputHost &inputHost, TzuGant_ComBasic *component);
    ~TGantChanges() override;

    /// Whether a move to another row also moves in time; false by default.
    bool MoveInTimeWhenMoveRow() const { return m_moveInTimeWhenMoveRow; }
    void SetMoveInTimeWhenMoveRow(bool on) { m_moveInTimeWhenMoveRow = on; }
    /// Whether moves by more than 12 hours become moves by whole days, after snapping; false by
    /// default.
    bool MoveOver12Then24() const { return m_moveOver12Then24; }
    void SetMoveOver12Then24(bool on) { m_moveOver12Then24 = on; }
    /// The grid of gestures. Its ScreenSnap is kept at the time that 3 pixels cover.
    TSnapHandler &SnapHandler() { return m_snap; }

    /// Replaces SnapHandler and MoveOver12Then24.
    TOnSnapTimes OnSnapTimes;
    TPublished<TOnBeginUserChange> OnBeginUserChange;
    TPublished<TOnEndUserChange> OnEndUserChange;

protected:
    /// Runs `body`, which tells whether it has changed anything, between OnBeginUserChange and
    /// OnEndUserChange. Within another one it only runs. When `body` throws, the end is told that
    /// there may be changes, and the exception goes on.
    template <typename Body>
    void AsUserChange(TGantUserChange kind, const Body &body);

    /// Where an item would come to lie.
    struct TDrop
    {
        /// Snapped; those of the item where it keeps them.
        TDateTime Start = 0;
        TDateTime Stop = 0;
        TGantRow *Row = nullptr; ///< the item's own, or another one
    };
    /// Changes an item; false when nothing was to be changed.
    using TItemChange = std::function<bool(TzuDataEntity_Spanbar &item)>;

    /// Fits the grid to the zoom level.
    void UpdateScreenSnap();
    /// The item moved in time and snapped.
    TDrop Shifted(const TzuDataEntity_Spanbar &item, TDateTime shift,
                  TGantMouseMoveMode mode) const;
    /// The item with one end moved, and both snapped; never inverted.
    TDrop Grown(const TzuDataEntity_Spanbar &item, TGantEnd end, TDateTime shift) const;
    /// Sets and announces the times; false when they are the item's already.
    bool ApplyTimes(TzuDataEntity_Spanbar &item, const TDrop &drop);
    /// Sets the times and has the application change the row, if it is another one.
    bool MoveItem(TzuDataEntity_Spanbar &item, const TDrop &drop);
    /// Hands the item to OnTimeCopy; the selection moves on to the copy.
    bool CopyItem(TzuDataEntity_Spanbar &item, const TDrop &drop);
    /// Calls `change`, which tells whether it has changed anything, for each selected item that can
    /// be edited, in chart order, as one change of the user. Handlers may delete items.
    void ChangeSelected(TGantUserChange kind, const TItemChange &change);

    void _OnInsertItem(TzuDataEntity *item) override;
    void _OnDeleteItem(TzuDataEntity *item) override;
    void _OnItemFreed(const TzuDataEntity_Spanbar *item) override;

private:
    class TWork;

    void BeginUserChange(TGantUserChange kind);
    void EndUserChange(TGantUserChange kind, bool changed);
    bool MoveItemToRow(TzuDataEntity_Spanbar &item, TGantRow &row, const TDrop &drop);
    void Forget(const TzuDataEntity_Spanbar *item);

    TSnapHandler m_snap;
    TzuDataEntity_Spanbar *m_insertedItem = nullptr; ///< by the handler of a copy or row change
    TWork *m_work = nullptr;                         ///< innermost of those that run
    int m_userChanges = 0;                           ///< nesting of AsUserChange
    bool m_moveInTimeWhenMoveRow = false;
    bool m_moveOver12Then24 = false;
};

template <typename Body>
void TGantChanges::AsUserChange(TGantUserChange kind, const Body &body)
{
    BeginUserChange(kind);
    bool changed = true;
    try {
        changed = body();
    } catch (...) {
        EndUserChange(kind, true);
        throw;
    }
    EndUserChange(kind, changed);
}

} // namespace korvane
