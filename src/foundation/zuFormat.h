// Text of dates and times.
#pragma once

#include "foundation/zuTypes.h"

#include <array>
#include <string>
#include <string_view>

namespace korvane {

/// Names and short forms that formatting uses. UTF-8.
struct TFormatSettings
{
    std::array<std::string, 7> ShortDayNames;    ///< from Sunday
    std::array<std::string, 7> LongDayNames;     ///< from Sunday
    std::array<std::string, 12> ShortMonthNames; ///< from January
    std::array<std::string, 12> LongMonthNames;  ///< from January
    std::string ShortDateFormat;                 ///< pattern of an empty date format
    std::string ShortTimeFormat;                 ///< pattern of an empty time format
    std::string AmText;
    std::string PmText;
    char DateSeparator = '-';
    char TimeSeparator = ':';

    /// English names and ISO 8601 forms.
    static TFormatSettings Invariant();
};

/// The settings in use; the invariant ones until replaced.
const TFormatSettings &FormatSettings();
void SetFormatSettings(TFormatSettings settings);

/// Text of an instant by a pattern. Letters count without regard to case:
/// `yy yyyy`, `m mm mmm mmmm` (minutes after an hour token, also with a separator between),
/// `d dd ddd dddd`, `h hh`, `n nn`, `s ss`, `z zzz`, `am/pm a/p ampm` (12-hour clock), `c`,
/// `ddddd` / `dddddd` (date forms), `t tt` (time forms), `/` and `:` (separators), text in quotes
/// as it stands. The instant is first taken to the nearest millisecond. An empty pattern gives `c`:
/// the short date and, unless midnight, the short time.
std::string FormatDateTime(std::string_view format, TDateTime value);
/// FormatDateTime where an empty pattern means the locale's short date.
std::string FormatDate(std::string_view format, TDateTime value);
/// FormatDateTime where an empty pattern means the locale's short time.
std::string FormatTime(std::string_view format, TDateTime value);

} // namespace korvane
