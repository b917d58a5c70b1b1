#include "scaler/zuScalerSteps.h"

#include "foundation/zuDateUtils.h"
#include "scaler/zuScalerWeeks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

namespace korvane {

namespace {

constexpr std::array kLadder{
    TScaleStep{kScale10Hun, "1 tiondel"},     TScaleStep{kScale1Sec, "1 sek"},
    TScaleStep{kScale10Sec, "10 sek"},        TScaleStep{kScale1Min, "1 min"},
    TScaleStep{kScale10Min, "10 min"},        TScaleStep{kScale1Hour, "1 timme"},
    TScaleStep{kScale1Day, "1 dag"},          TScaleStep{kScale1Week, "1 vecka"},
    TScaleStep{kScale1Month, "1 m\u00e5nad"}, TScaleStep{kScale3Month, "3 m\u00e5nader"},
    TScaleStep{kScale1Year, "1 \u00e5r"},     TScaleStep{kScale10Year, "10 \u00e5r"},
    TScaleStep{kScale20Year, "20 \u00e5r"},   TScaleStep{kScale100Year, "100 \u00e5r"},
};

TDateTime SnapToMonths(int months, TDateTime date)
{
    const TDateParts parts = DecodeDate(date);
    if (months < 12) {
        return EncodeDate(parts.Year, (parts.Month - 1) / months * months + 1, 1);
    }
    const int years = months / 12;
    // There is no year 0, so the first period of several years begins in year 1.
    return EncodeDate(std::max(parts.Year / years * years, 1), 1, 1);
}

TDateTime SnapToNearest(TDateTime step, TDateTime date)
{
    constexpr double kLimit = 9223372036854775808.0; // 2^63
    const double count = date / step + 0.5;
    if (!(std::abs(count) < kLimit)) {
        throw std::range_error("To small span");
    }
    return std::trunc(count) * step;
}

} // namespace

TDateTime LatestStop()
{
    static const TDateTime latest = EncodeDate(4000, 1, 1);
    return latest;
}

int MonthsOfStep(TDateTime step)
{
    constexpr std::array<std::pair<TDateTime, int>, 6> kMonths{{{kScale1Month, 1},
                                                                {kScale3Month, 3},
                                                                {kScale1Year, 12},
                                                                {kScale10Year, 120},
                                                                {kScale20Year, 240},
                                                                {kScale100Year, 1200}}};
    const auto *const found = std::ranges::find(kMonths, step, &std::pair<TDateTime, int>::first);
    return found == kMonths.end() ? 0 : found->second;
}

TScaleStep StepFork(TDateTime length)
{
    const auto *const longer = std::ranges::upper_bound(kLadder, length, {}, &TScaleStep::Length);
    return longer == kLadder.end() ? kLadder.back() : *longer;
}

TDateTime Snap(TDateTime step, TDateTime date, int firstDayOfWeek)
{
    if (const int months = MonthsOfStep(step); months > 0) {
        return SnapToMonths(months, date);
    }
    if (step == kScale1Week) {
        return TruncToFirstDayOfWeek(date, firstDayOfWeek);
    }
    return step > kScale1Sec ? SnapToNearest(step, date) : date;
}

TDateTime GetAdaptiveStep(TDateTime step, TDateTime date)
{
    const int months = MonthsOfStep(step);
    return months > 0 ? FirstOfMonthLater(date, months) - date : step;
}

} // namespace korvane
