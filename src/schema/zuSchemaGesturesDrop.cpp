// What gestures and keys store.
#include "foundation/zuDateUtils.h"
#include "foundation/zuRound.h"
#include "scaler/zuScalerGestures.h"
#include "schema/zuSchemaGestures.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace korvane {

namespace {

TDateTime ToGrid(TDateTime value, TDateTime step)
{
    return step > 0 ? std::nearbyint(value / step) * step : value;
}

TDateTime ToGridOfDay(TDateTime date, TDateTime step)
{
    const TDateTime midnight = DateOf(date);
    return midnight + ToGrid(date - midnight, step);
}

bool IsSame(TDateTime a, TDateTime b)
{
    constexpr TDateTime kRounding = 1e-9; // what sums of dates and base dates lose
    return std::abs(a - b) < kRounding;
}

} // namespace

void TSchemaGestures::Snap(TDateTime &start, TDateTime &length) const
{
    if (m_lengthSnapOn) {
        length = ToGrid(length, m_lengthSnap);
    }
    if (m_startSnapOn) {
        start = ToGridOfDay(start, m_startSnap);
    }
}

/// Rounds what another place changes of a time; `start` and `length` are absolute, to be stored.
void TSchemaGestures::SnapMoved(const TzuDataEntity_SchemaTime &time, const TPlace &place,
                                TDateTime &start, TDateTime &length) const
{
    const TPlace former = GetStartStopDateAndCol(time);
    const TDateTime stop = start + length;
    if (IsSame(length, former.Stop - former.Start)) {
        start = m_startSnapOn ? ToGridOfDay(start, m_startSnap) : start;
    } else if (IsSame(place.Stop, former.Stop)) {
        start = m_startSnapOn ? std::min(ToGridOfDay(start, m_startSnap), stop) : start;
        length = stop - start;
    } else if (IsSame(place.Start, former.Start)) {
        length = m_lengthSnapOn ? std::max(ToGridOfDay(stop, m_lengthSnap) - start, 0.0) : length;
    } else {
        Snap(start, length);
    }
}

// --- outcomes ------------------------------------------------------------------------------------

/// The time between a pixel and the one so many pixels further on. Far outside of the axis, where
/// pixels saturate, it is measured at the axis' start.
TDateTime TSchemaGestures::TimeShift(int pixel, int pixels) const
{
    constexpr std::int64_t kMost = std::numeric_limits<int>::max() - 1;
    const std::int64_t to = std::int64_t{pixel} + pixels;
    if (std::max(std::abs(to), std::abs(std::int64_t{pixel})) >= kMost) {
        return PixelToDate(pixels) - PixelToDate(0);
    }
    return PixelToDate(static_cast<int>(to)) - PixelToDate(pixel);
}

TSchemaCore::TPlace TSchemaGestures::Moved(const TzuDataEntity_SchemaTime &time,
                                           TPoint offset) const
{
    TPlace place = GetStartStopDateAndCol(time);
    if (AlongTime(offset) != 0) {
        const int from = ScalerPixelsFromStartStopFromDataEntity(FlipView(), time).From;
        const TDateTime shift = TimeShift(from, AlongTime(offset));
        place.Start += shift;
        place.Stop += shift;
    }
    if (AlongColumns(offset) != 0) {
        const TPixelSpan across = HeaderPixelsFromStartStopFromDataEntity(FlipView(), time);
        place.Col = Columns().VirtualColumnAt(FlipView(), across.Middle() + AlongColumns(offset));
    }
    return place;
}

TSchemaCore::TPlace TSchemaGestures::Grown(const TzuDataEntity_SchemaTime &time, TSchemaEnd end,
                                           TDateTime diff) const
{
    TPlace place = GetStartStopDateAndCol(time);
    if (end == TSchemaEnd::Start) {
        place.Start = std::min(place.Start + diff, place.Stop);
    } else {
        place.Stop = std::max(place.Stop + diff, place.Start);
    }
    return place;
}

TSchemaCore::TPlace TSchemaGestures::GrownByPixels(const TzuDataEntity_SchemaTime &time,
                                                   TSchemaEnd end, int pixels) const
{
    const TPixelSpan along = ScalerPixelsFromStartStopFromDataEntity(FlipView(), time);
    if (end == TSchemaEnd::Start) {
        return Grown(time, end, TimeShift(along.From, pixels));
    }
    if (!IsDrawnLonger(time)) {
        return Grown(time, end, TimeShift(along.To, pixels));
    }
    // The end that is seen goes with the mouse.
    const int own = DateToPixel(GetStartStopDateAndCol(time).Stop);
    return Grown(time, end, TimeShift(own, along.To - own + pixels));
}

/// What is stored for a place. The column is clamped into those that there are.
TSchemaGestures::TStored TSchemaGestures::Stored(const TzuDataEntity_SchemaTime &time,
                                                 const TPlace &place, bool copy) const
{
    const int col = std::clamp(place.Col, 0, Columns().Count() - 1);
    if (col != time.Col() && !m_moveInTimeWhenColSwitch && !copy) {
        return {time.GetStartDateTime(), time.GetStopDateTime(), col};
    }
    const TDateTime base = Columns().GetCol(col).BaseDate;
    TDateTime start = place.Start + base;
    TDateTime length = place.Stop - place.Start;
    if (m_snapMovedEndsOnly) {
        SnapMoved(time, place, start, length);
    } else {
        Snap(start, length);
    }
    return {start, start + length, col};
}

TSchemaGestures::TStored TSchemaGestures::Outcome(const TzuDataEntity_SchemaTime &time) const
{
    if (IsGrow()) {
        const TSchemaEnd end = m_mode == TMode::GrowStart ? TSchemaEnd::Start : TSchemaEnd::Stop;
        return Stored(time, GrownByPixels(time, end, AlongTime(m_offset)), false);
    }
    if (m_offset == TPoint{}) {
        return {time.GetStartDateTime(), time.GetStopDateTime(), time.Col()};
    }
    return Stored(time, Moved(time, m_offset), m_mode == TMode::Copy);
}

TRect TSchemaGestures::OutlineOf(const TzuDataEntity_SchemaTime &time, const TStored &stored) const
{
    const bool flip = FlipView();
    const TDateTime base = Columns().GetCol(stored.Col).BaseDate;
    TPixelSpan across = HeaderPixelsFromStartStopFromDataEntity(flip, time);
    if (stored.Col != time.Col()) {
        across = Columns().VirtualSpan(flip, stored.Col);
        across = {across.From + time.NearMargin(), across.To - time.FarMargin()};
    }
    return RectOf(flip, across, TimePixels(flip, stored.Start - base, stored.Stop - base));
}

// --- storing -------------------------------------------------------------------------------------

bool TSchemaGestures::SetStartStopDateAndCol(TzuDataEntity_SchemaTime &time, TDateTime start,
                                             TDateTime stop, int col)
{
    const TzuLifeWatch lives(time);
    if (Columns().Count() == 0 || !time.GetCanEdit() || !lives || !Knows(&time)) {
        return false;
    }
    const TStored stored = Stored(time, {start, stop, col}, false);
    const bool same = stored.Start == time.GetStartDateTime()
                      && stored.Stop == time.GetStopDateTime() && stored.Col == time.Col();
    if (same) {
        return false;
    }
    if (stored.Col != time.Col()) {
        SwitchCol(time, time.Col(), stored.Col);
        if (!lives || !Knows(&time)) {
            return true;
        }
    }
    m_settingTimes = true;
    time.SetStartDateTime(stored.Start);
    time.SetStopDateTime(stored.Stop);
    time.SetCol(stored.Col);
    m_settingTimes = false;
    time.DoInfoPush();
    return true;
}

bool TSchemaGestures::Store(TzuDataEntity_SchemaTime &time, const TPlace &place)
{
    return SetStartStopDateAndCol(time, place.Start, place.Stop, place.Col);
}

void TSchemaGestures::AsUserChange(TSchemaUserChange kind, const std::function<bool()> &body)
{
    const bool outermost = m_userChanges++ == 0;
    if (outermost) {
        OnBeginUserChange(Component(), kind);
    }
    bool changed = true;
    const auto end = [&] {
        --m_userChanges;
        if (outermost) {
            OnEndUserChange(Component(), kind, changed);
        }
    };
    try {
        changed = body();
    } catch (...) {
        end();
        throw;
    }
    end();
}

/// What a handler does not draw is not changed with the others.
bool TSchemaGestures::HasRect(TzuDataEntity_SchemaTime &time) const
{
    if (!IsInColumn(time)) {
        return false;
    }
    TRect rect = VirtualRect(time);
    return !OnGetDrawingRect || OnGetDrawingRect(Component(), &time, rect);
}

void TSchemaGestures::ChangeSelected(TSchemaUserChange kind,
                                     const std::function<bool(TzuDataEntity_SchemaTime &)> &change)
{
    const TTimes times = SelectedTimes();
    ChangeSelection([&] {
        AsUserChange(kind, [&] {
            bool changed = false;
            for (TzuDataEntity_SchemaTime *time : times) {
                if (!WasRemoved(time) && HasRect(*time) && time->GetCanEdit()
                    && !WasRemoved(time)) {
                    changed = change(*time) || changed;
                }
            }
            return changed;
        });
    });
}

void TSchemaGestures::HandleMoveOfSelected(TPoint offset)
{
    if (offset == TPoint{}) {
        return;
    }
    ChangeSelected(TSchemaUserChange::ucMove, [&](TzuDataEntity_SchemaTime &time) {
        return Store(time, Moved(time, offset));
    });
    UpdateSubColumns();
}

void TSchemaGestures::HandleMoveOfSelectedFromTimeDiff(TDateTime diff, int colDiff)
{
    ChangeSelected(TSchemaUserChange::ucMove, [&](TzuDataEntity_SchemaTime &time) {
        TPlace place = GetStartStopDateAndCol(time);
        place.Start += diff;
        place.Stop += diff;
        place.Col += colDiff;
        return Store(time, place);
    });
    UpdateSubColumns();
}

void TSchemaGestures::HandleGrow(TzuDataEntity_SchemaTime &time, TSchemaEnd end, int pixels)
{
    if (pixels == 0 || !IsInColumn(time)) {
        return;
    }
    ChangeSelection([&] {
        AsUserChange(TSchemaUserChange::ucResize,
                     [&] { return Store(time, GrownByPixels(time, end, pixels)); });
    });
    UpdateSubColumns();
}

bool TSchemaGestures::GrowBy(TzuDataEntity_SchemaTime &time, TSchemaEnd end, TDateTime diff)
{
    return Store(time, Grown(time, end, diff));
}

} // namespace korvane
