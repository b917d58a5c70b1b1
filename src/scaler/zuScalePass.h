// Daily time windows that are coloured on the time axis or cut out of it.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"
#include "scaler/zuScalerSteps.h"

#include <span>
#include <vector>

namespace korvane {

/// One daily window, both bounds included, to the millisecond. From later than to: the window wraps
/// past midnight. Equal bounds: it never applies.
struct TDateScalePass
{
    bool Active = false;    ///< false: as if it were not there
    TDateTime FromTime = 0; ///< time of day, 0..1
    TDateTime ToTime = 0;   ///< time of day, 0..1
    bool Hide = false;      ///< the time is cut out of the axis, not only coloured
    /// The longest minor step of the axis at which the pass applies.
    TDateTime MaxStep = kScale1Hour;
    /// Of the background along the axis.
    TColor Color = clWhite;
};

/// What the passes say about an instant.
struct TPassInfo
{
    /// Those of the pass; of none, false and 0.
    bool Hide = false;
    TColor Color = 0;

    friend bool operator==(const TPassInfo &, const TPassInfo &) = default;
};

/// Milliseconds of a day without regard to time zones.
inline constexpr int kMillisecondsPerDay = 86'400'000;

/// Milliseconds since midnight, 0 <= result < kMillisecondsPerDay, to the nearest.
KORVANE_CORE_API int MillisecondOfDay(TDateTime date);

/// The first active pass whose window holds the millisecond of the day decides.
KORVANE_CORE_API TPassInfo PassInfoAt(std::span<const TDateScalePass> passes, TDateTime minorStep,
                                      int millisecond);

/// What a set of passes makes of a day at a given minor step.
class KORVANE_CORE_API TDayPattern
{
public:
    /// Of a day without a visible millisecond.
    static constexpr int kForever = -1;

    /// Takes the passes down; later changes of theirs do not count.
    TDayPattern(std::span<const TDateScalePass> passes, TDateTime minorStep);

    /// What PassInfoAt says of a millisecond 0..kMillisecondsPerDay - 1.
    TPassInfo At(int millisecond) const;
    /// Milliseconds until the first one that is not hidden, possibly on the next day: 0 when that
    /// is the given one, kForever when there is none.
    int HiddenFor(int millisecond) const;
    /// Milliseconds back to the last one that is not hidden, possibly on the day before: 0 when
    /// that is the given one, kForever when there is none.
    int HiddenSince(int millisecond) const;

private:
    struct Segment
    {
        int From = 0; ///< millisecond of the day; the segment ends where the next one begins
        TPassInfo Info;
    };

    std::size_t IndexAt(int millisecond) const;

    std::vector<Segment> m_segments;
};

} // namespace korvane
