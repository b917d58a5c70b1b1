// The positions of marks along the time axis.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"
#include "scaler/zuScalePass.h"

#include <cstdint>
#include <optional>

namespace korvane {

/// Walks the calendar boundaries of a step from a start on, and over hidden stretches in one go.
///
/// Positions of steps below a day are counted, not summed up, so they do not drift however far the
/// walk goes. Those of a day and more all stand at midnight.
class KORVANE_CORE_API TScaleWalk
{
public:
    /// `pattern` is observed. Throws std::range_error when the start cannot be snapped.
    TScaleWalk(TDateTime step, TDateTime start, int firstDayOfWeek, const TDayPattern &pattern);

    /// The current position, hidden or not.
    TDateTime Date() const;
    /// What the passes say about the current position.
    TPassInfo Info() const { return m_pattern.At(m_millisecond); }

    /// Moves one position on.
    void Next();
    /// Moves to the next visible position; returns how many hidden ones were passed, at least 1
    /// from a hidden position. Empty, and nothing moved, when no position is visible.
    std::optional<std::int64_t> SkipHidden();

private:
    bool IsCounted() const { return m_stepMilliseconds < kMillisecondsPerDay; }
    void MoveBy(std::int64_t positions);

    TDateTime m_step;
    int m_firstDayOfWeek;
    const TDayPattern &m_pattern;
    int m_stepMilliseconds; ///< kMillisecondsPerDay for every longer step
    TDateTime m_origin = 0; ///< Date() is this plus m_index steps
    std::int64_t m_index = 0;
    int m_millisecond = 0; ///< of the day, at the current position
};

} // namespace korvane
