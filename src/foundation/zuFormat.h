// Text of dates and times.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

#include <array>
#include <string>
#include <string_view>

namespace korvane {

/// Names and short forms that formatting uses. UTF-8.
struct KORVANE_CORE_API TFormatSettings
{
    std::array<std::string, 7> ShortDayNames;    ///< from Sunday
    std::array<std::string, 7> LongDayNames;     ///< from Sunday
    std::array<std::string, 12> ShortMonthNames; ///< from January
    std::array<std::string, 12> LongMonthNames;  ///< from January
    std::string ShortDateFormat;                 ///< pattern of an empty date format
    std::string LongDateFormat;                  ///< pattern of `dddddd`
    std::string ShortTimeFormat;                 ///< pattern of an empty time format
    std::string LongTimeFormat;                  ///< pattern of `tt`
    std::string AmText;                          ///< of the first half of the day
    std::string PmText;                          ///< of the second half
    char DateSeparator = '-';                    ///< stands for `/`
    char TimeSeparator = ':';                    ///< stands for `:`

    /// English names and ISO 8601 forms.
    static TFormatSettings Invariant();

    friend bool operator==(const TFormatSettings &, const TFormatSettings &) = default;
};

/// The settings in use, of the whole process; the invariant ones until replaced. Main thread only.
/// What was formatted before stays as it is.
KORVANE_CORE_API const TFormatSettings &FormatSettings();
KORVANE_CORE_API void SetFormatSettings(TFormatSettings settings);

/// Text of an instant by a pattern. Letters count without regard to case:
/// - `yy yyyy`, `m mm mmm mmmm`, `d dd ddd dddd`: numbers, then short and long names;
/// - `h hh`, `n nn`, `s ss`, `z zzz`: hours, minutes, seconds, milliseconds; `m` and `mm` are
///   minutes, too, when the last token before them was an hour (`hh:mm`);
/// - `am/pm a/p ampm`: half of the day; with one of them in the pattern, hours run from 12 to 11;
/// - `ddddd dddddd t tt`: the short and long forms of the date and of the time;
/// - `c`: the short date and, unless it is midnight, the short time;
/// - `/` and `:`: the separators; text in single or double quotes and all else as it stands.
///
/// The instant is first taken to the nearest millisecond. An empty pattern means `c`.
KORVANE_CORE_API std::string FormatDateTime(std::string_view format, TDateTime value);
/// FormatDateTime where an empty pattern means the locale's short date.
KORVANE_CORE_API std::string FormatDate(std::string_view format, TDateTime value);
/// FormatDateTime where an empty pattern means the locale's short time.
KORVANE_CORE_API std::string FormatTime(std::string_view format, TDateTime value);

} // namespace korvane
