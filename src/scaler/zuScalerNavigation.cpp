#include "scaler/zuScalerNavigation.h"

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {

/// A little above the length below which SetScale would choose another one.
constexpr TDateTime kShortestSpan = kMinute * (1 + 1e-6);
constexpr double kPage = 0.9;
/// How often a range is put right when the cuts of the axis have changed with it.
constexpr int kMostCorrections = 8;

/// Days from an instant to the nearest visible one, backwards when the direction is negative.
/// Zero when it is visible itself, and when none is.
TDateTime HiddenDays(const TDayPattern &pattern, TDateTime date, double direction)
{
    const int millisecond = MillisecondOfDay(date);
    const int hidden =
        direction < 0 ? pattern.HiddenSince(millisecond) : pattern.HiddenFor(millisecond);
    if (hidden == TDayPattern::kForever) {
        return 0;
    }
    return std::copysign(static_cast<double>(hidden) / kMillisecondsPerDay, direction);
}

} // namespace

void TDateScalerNavigation::ZoomBy(double factor, int pixel)
{
    const double scale = GetScale();
    const int length = GetScaleLen();
    if (scale <= 0 || length <= 0 || !(factor >= 0)) {
        return;
    }
    const double finest = kShortestSpan / length;
    const double coarsest = LatestStop() / length;
    const bool atLimit = factor < 1 ? scale <= finest : scale >= coarsest;
    if (factor == 1 || atLimit) {
        return;
    }
    const TDateTime date = PixelToDate(pixel);
    const bool cut = HiddenSpan() != 0;
    SetCenterScale(std::clamp(scale * factor, finest, coarsest), date, pixel);
    if (cut || HiddenSpan() != 0) {
        KeepAt(date, pixel);
    }
}

void TDateScalerNavigation::ZoomAround(double notches, int pixel)
{
    if (ZoomFactor() > 0) {
        ZoomBy(std::pow(ZoomFactor(), notches), pixel);
    }
}

void TDateScalerNavigation::PanPixels(double pixels)
{
    const TDateTime by = GetScale() * pixels;
    if (by != 0) {
        MoveTo(PastHidden(GetStart() + by, by));
    }
}

void TDateScalerNavigation::Execute(TScalerCommand command)
{
    switch (command) {
    case TScalerCommand::Earlier:
        return PanNotches(-1);
    case TScalerCommand::Later:
        return PanNotches(1);
    case TScalerCommand::PageEarlier:
        return PanPixels(-kPage * GetScaleLen());
    case TScalerCommand::PageLater:
        return PanPixels(kPage * GetScaleLen());
    case TScalerCommand::ZoomIn:
        return ZoomAround(1, GetScaleLen() / 2);
    case TScalerCommand::ZoomOut:
        return ZoomAround(-1, GetScaleLen() / 2);
    case TScalerCommand::Today:
        return GoTo(AxisHost().Now());
    }
}

void TDateScalerNavigation::Fit(const TTimePeriod &period)
{
    if (!(period.Stop - period.Start >= kMinute)) {
        return;
    }
    // An axis that cuts time out reaches further than Stop, and which cuts there are depends on the
    // zoom.
    TDateTime hidden = 0;
    for (int round = 0; round < kMostCorrections; ++round) {
        SetRange(period.Start, std::max(period.Stop - hidden, period.Start + kMinute));
        const TDateTime found = HiddenUntil(period.Stop);
        if (std::abs(found - hidden) < kScale10Hun) {
            break;
        }
        hidden = found;
    }
}

TTimePeriod TDateScalerNavigation::PeriodAt(TScaleRow row, TDateTime date) const
{
    constexpr double kRounding = 1e-6; // of a step
    const TDateTime step = row == TScaleRow::Major ? MajorStep() : MinorStep();
    if (step <= 0) {
        return {date, date};
    }
    const TDateTime start = step < kScale1Week ? std::floor(date / step + kRounding) * step
                                               : korvane::Snap(step, date, FirstDayOfWeek());
    return {start, start + GetAdaptiveStep(step, start)};
}

void TDateScalerNavigation::MoveTo(TDateTime start)
{
    const TDateTime span = GetStop() - GetStart();
    const TDateTime latest = std::max(LatestStop() - std::max(span, 0.0), 0.0);
    const TDateTime within = std::clamp(start, 0.0, latest);
    if (within != GetStart()) {
        SetRange(within, within + span);
    }
}

TDateTime TDateScalerNavigation::StepPastHidden(TDateTime step) const
{
    constexpr int kMostHops = 1000;
    const TDayPattern pattern = DayPattern();
    TDateTime date = GetStart() + step;
    double steps = 1;
    for (int hop = 0; hop < kMostHops && date > 0 && date < LatestStop(); ++hop) {
        const TDateTime hidden = HiddenDays(pattern, date, step);
        if (hidden == 0 || step == 0) {
            return date;
        }
        // Over what is hidden in one go.
        steps += std::max(std::ceil(hidden / step), 1.0);
        date = GetStart() + steps * step;
    }
    return PastHidden(date, step); // steps of whole days never leave the night
}

TDateTime TDateScalerNavigation::PastHidden(TDateTime date, double direction) const
{
    return date + HiddenDays(DayPattern(), date, direction);
}

/// Moves until the instant is at the pixel, as nearly as the cuts allow.
void TDateScalerNavigation::KeepAt(TDateTime date, int pixel)
{
    for (int round = 0; round < kMostCorrections; ++round) {
        const double off = static_cast<double>(DateToPixel(date)) - pixel;
        if (std::abs(off) < 1 || GetScale() <= 0) {
            break;
        }
        PanPixels(off); // never too far: what is cut out on the way is left for the next round
    }
}

/// Days that are cut out between Start and the date.
TDateTime TDateScalerNavigation::HiddenUntil(TDateTime date) const
{
    const TScaleMarkPair marks = FindScaleMarksFromDate(date);
    if (marks.A == nullptr) {
        return marks.B == nullptr ? 0 : std::min(marks.B->HiddenBefore, date - GetStart());
    }
    const TDateTime tail = marks.A->HiddenAfter ? date - marks.A->Date - MinorStep() : 0;
    return marks.A->HiddenBefore + std::max(tail, 0.0);
}

} // namespace korvane
