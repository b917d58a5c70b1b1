#include "scaler/zuScaleWalk.h"

#include "foundation/zuRound.h"
#include "scaler/zuScalerSteps.h"

#include <algorithm>

namespace korvane {

namespace {

int StepMilliseconds(TDateTime step)
{
    return static_cast<int>(Round(std::clamp(step, kScale10Hun, kDay) * kMillisecondsPerDay));
}

} // namespace

TScaleWalk::TScaleWalk(TDateTime step, TDateTime start, int firstDayOfWeek,
                       const TDayPattern &pattern)
    : m_step(step)
    , m_firstDayOfWeek(firstDayOfWeek)
    , m_pattern(pattern)
    , m_stepMilliseconds(StepMilliseconds(step))
    , m_origin(Snap(step, start, firstDayOfWeek))
    , m_millisecond(MillisecondOfDay(m_origin))
{
    if (IsCounted() && step > kScale1Sec) {
        // Multiples of the step, so that a mark has the same date from wherever it was reached.
        m_index = Round(m_origin / step);
        m_origin = 0;
    }
}

TDateTime TScaleWalk::Date() const
{
    return m_origin + static_cast<double>(m_index) * m_step;
}

void TScaleWalk::Next()
{
    if (IsCounted()) {
        MoveBy(1);
    } else {
        m_origin = Snap(m_step, m_origin + GetAdaptiveStep(m_step, m_origin), m_firstDayOfWeek);
    }
}

std::optional<std::int64_t> TScaleWalk::SkipHidden()
{
    // Days repeat and every step below a day divides it: where a day's positions are all hidden, so
    // is every other one.
    const std::int64_t mostPositions = kMillisecondsPerDay / m_stepMilliseconds;
    std::int64_t skipped = 0;
    while (const int hidden = m_pattern.HiddenFor(m_millisecond)) {
        const std::int64_t positions = (hidden + m_stepMilliseconds - 1) / m_stepMilliseconds;
        if (hidden == TDayPattern::kForever || skipped + positions >= mostPositions) {
            MoveBy(-skipped);
            return std::nullopt;
        }
        skipped += positions;
        MoveBy(positions);
    }
    return skipped;
}

void TScaleWalk::MoveBy(std::int64_t positions)
{
    m_index += positions;
    const std::int64_t moved = m_millisecond + positions * m_stepMilliseconds;
    const std::int64_t ofDay = moved % kMillisecondsPerDay;
    m_millisecond = static_cast<int>(ofDay < 0 ? ofDay + kMillisecondsPerDay : ofDay);
}

} // namespace korvane
