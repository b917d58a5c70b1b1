// Rounding of the times that mouse gestures produce.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

namespace korvane {

/// Rounds times to a grid that widens with the zoom level. All steps are in days; a step of 0 or
/// less leaves its end as it is.
class KORVANE_CORE_API TSnapHandler
{
public:
    /// Which ends are rounded.
    bool SnapStart = true;
    bool SnapStop = true;
    bool StretchOnMove = false; ///< a move may change the length, since both ends snap
    /// In days: 5 minutes and 1 minute.
    TDateTime StartSnapStep = 5.0 / (24 * 60);
    TDateTime StopSnapStep = 1.0 / (24 * 60);
    /// The time that one snap unit of the screen covers at the current zoom; 0 = the steps alone
    /// decide.
    TDateTime ScreenSnap = 0;

    /// Rounds both ends, each counted from its own midnight, so that a step that does not divide a
    /// day starts again each day. Ends in order stay in order: where rounding would cross them the
    /// item has no length, at the rounded start, or at the stop when that alone is not rounded.
    void Snap(TDateTime &start, TDateTime &stop) const;
    /// Rounds a moved item: its start alone, as its length stays, or with StretchOnMove both ends.
    void SnapMove(TDateTime &start, TDateTime &stop) const;
    /// The width of the grid: the multiple of the step that is nearest to ScreenSnap, at least the
    /// step.
    TDateTime CalcScreenSnap(TDateTime step) const;
    /// Turns a shift of both ends by more than 12 hours into whole days, so that the times of day
    /// stay.
    static void SnapMoveTo24HIfMoveOver12H(TDateTime &start, TDateTime &stop, TDateTime origStart,
                                           TDateTime origStop);

private:
    TDateTime ToGrid(TDateTime time, TDateTime step) const;
};

} // namespace korvane
