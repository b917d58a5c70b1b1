#include "foundation/zuGraphStuff.h"

#include "foundation/zuDateUtils.h"

#include <cmath>

namespace korvane {

namespace {

constexpr TDateTime kHalfDay = 0.5;

} // namespace

TDateTime TSnapHandler::CalcScreenSnap(TDateTime step) const
{
    const TDateTime widened = std::nearbyint(ScreenSnap / step) * step;
    return widened > step ? widened : step;
}

TDateTime TSnapHandler::ToGrid(TDateTime time, TDateTime step) const
{
    if (!(step > 0)) {
        return time;
    }
    const TDateTime grid = CalcScreenSnap(step);
    const TDateTime midnight = DateOf(time);
    return midnight + std::nearbyint((time - midnight) / grid) * grid;
}

void TSnapHandler::Snap(TDateTime &start, TDateTime &stop) const
{
    const bool ordered = start <= stop;
    if (SnapStop) {
        stop = ToGrid(stop, StopSnapStep);
    }
    if (SnapStart) {
        start = ToGrid(start, StartSnapStep);
    }
    if (!ordered || start <= stop) {
        return;
    }
    if (SnapStop) {
        stop = start;
    } else {
        start = stop;
    }
}

void TSnapHandler::SnapMove(TDateTime &start, TDateTime &stop) const
{
    if (StretchOnMove) {
        Snap(start, stop);
    } else if (SnapStart) {
        const TDateTime length = stop - start;
        start = ToGrid(start, StartSnapStep);
        stop = start + length;
    }
}

void TSnapHandler::SnapMoveTo24HIfMoveOver12H(TDateTime &start, TDateTime &stop,
                                              TDateTime origStart, TDateTime origStop)
{
    if (std::abs(stop - origStop) > kHalfDay && std::abs(start - origStart) > kHalfDay) {
        start = origStart + std::nearbyint(start - origStart);
        stop = origStop + std::nearbyint(stop - origStop);
    }
}

} // namespace korvane
