#include "AxisLabels.h"

#include "foundation/zuFormat.h"
#include "foundation/zuTranslate.h"

#include <algorithm>

namespace korvane::planner {

namespace {

constexpr double kMonthName = 36; // pixels

/// Pixels that a length of time covers, hidden times not counted.
double WidthOf(const TDateScalerCore &scaler, TDateTime length)
{
    return scaler.GetScale() > 0 ? length / scaler.GetScale() : 0;
}

/// The pattern of a label in the row of small marks; empty where the scaler's own text is good.
const char *ShortPattern(const TDateScalerCore &scaler, TDateTime step)
{
    constexpr double kDayAndMonth = 48;
    constexpr double kDayAndName = 52;
    constexpr double kFullYear = 40;
    constexpr double kHourAndMinute = 42;
    if (step == kScale1Week) {
        return WidthOf(scaler, step) >= kDayAndMonth ? KORVANE_TRANSLATE_NOOP("Planner", "d mmm")
                                                     : "d";
    }
    if (step == kScale1Day) {
        return WidthOf(scaler, step) >= kDayAndName ? KORVANE_TRANSLATE_NOOP("Planner", "ddd d")
                                                    : "d";
    }
    if (step >= kScale1Year) {
        return WidthOf(scaler, step) >= kFullYear ? "yyyy" : "";
    }
    if (step >= kScale1Min && step <= kScale1Hour && WidthOf(scaler, step) >= kHourAndMinute) {
        return "hh:nn";
    }
    return "";
}

/// The same for the row of large marks.
const char *LongPattern(const TDateScalerCore &scaler, TDateTime step)
{
    constexpr double kWholeMonthName = 120;
    if (step < kScale1Min) {
        return KORVANE_TRANSLATE_NOOP("Planner", "ddd d mmm yyyy, hh:nn:ss");
    }
    if (step < kScale1Day) {
        return KORVANE_TRANSLATE_NOOP("Planner", "ddd d mmm yyyy, hh:nn");
    }
    if (step == kScale1Day) {
        return KORVANE_TRANSLATE_NOOP("Planner", "ddd d mmm yyyy");
    }
    if (step == kScale1Week) {
        return KORVANE_TRANSLATE_NOOP("Planner", "d mmm yyyy");
    }
    if (step == kScale1Month) {
        return WidthOf(scaler, step) >= kWholeMonthName
                   ? KORVANE_TRANSLATE_NOOP("Planner", "mmmm yyyy")
                   : KORVANE_TRANSLATE_NOOP("Planner", "mmm yyyy");
    }
    return "";
}

/// The first letter of the month's name, or its number where names begin with that.
std::string MonthLetter(TDateTime date)
{
    const std::string name = FormatDateTime("mmm", date);
    if (name.empty() || (name[0] >= '0' && name[0] <= '9')) {
        return FormatDateTime("m", date);
    }
    const auto isContinuation = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    };
    const auto end = std::find_if_not(name.begin() + 1, name.end(), isContinuation);
    return {name.begin(), end};
}

void Replace(std::string &text, const char *pattern, TDateTime date)
{
    if (*pattern != '\0') {
        text = FormatDateTime(Translate("Planner", pattern), date);
    }
}

} // namespace

void LabelAxis(TDateScalerCore &scaler)
{
    scaler.OnUserStringShort = [&scaler](TDateTime date, TDateTime step, std::string &text,
                                         TScalerFont) {
        if (step == kScale1Month && WidthOf(scaler, step) < kMonthName) {
            text = MonthLetter(date);
        } else {
            Replace(text, ShortPattern(scaler, step), date);
        }
    };
    scaler.OnUserStringLong = [&scaler](TDateTime date, TDateTime step, std::string &text,
                                        TScalerFont) {
        Replace(text, LongPattern(scaler, step), date);
    };
}

} // namespace korvane::planner
