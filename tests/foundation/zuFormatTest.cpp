#include "foundation/zuDateUtils.h"
#include "foundation/zuFormat.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace korvane {
namespace {

class FormatTest : public testing::Test
{
protected:
    ~FormatTest() override { SetFormatSettings(TFormatSettings::Invariant()); }
};

const TDateTime kMorning = EncodeDate(2024, 2, 9) + EncodeTime(7, 5, 3, 42);
const TDateTime kEvening = EncodeDate(1987, 11, 30) + EncodeTime(18, 45, 59, 999);
const TDateTime kMidnight = EncodeDate(2000, 1, 1);
const TDateTime kNoon = kMidnight + 0.5;

TEST_F(FormatTest, WritesEveryToken)
{
    struct Case
    {
        const char *Format;
        TDateTime Value;
        const char *Text;
    };
    const std::vector<Case> cases = {
        {"yy yyyy", kMorning, "24 2024"},
        {"y yyy yyyyy", kMorning, "24 2024 2024"},
        {"yyyy", EncodeDate(7, 1, 1), "0007"},
        {"m mm mmm mmmm", kMorning, "2 02 Feb February"},
        {"d dd ddd dddd", kMorning, "9 09 Fri Friday"},
        {"h hh n nn s ss z zzz", kMorning, "7 07 5 05 3 03 42 042"},
        {"YYMMDD", kMorning, "240209"},
        {"YYYY-MM-DD", kEvening, "1987-11-30"},
        {"HH:MM:SS", kMorning, "07:05:03"},
        {"hhmm", kEvening, "1845"},
        {"h 'o''clock and' mm", kMorning, "7 oclock and 05"},
        {"hh:mm mm/dd", kMorning, "07:05 02-09"},
        {"hh:mm:ss mm/dd", kMorning, "07:05:03 02-09"},
        {"h.mm", kMorning, "7.05"},
        {"hh mmm", kMorning, "07 Feb"},
        {"mm/dd hh", kMorning, "02-09 07"},
        {"h am/pm", kMorning, "7 am"},
        {"h AM/PM", kEvening, "6 PM"},
        {"ha/p", kEvening, "6p"},
        {"ampm h", kEvening, "PM 6"},
        {"h ampm", kMidnight, "12 AM"},
        {"h ampm", kNoon, "12 PM"},
        {"h 'am/pm'", kEvening, "18 am/pm"},
        {"ddddd", kMorning, "2024-02-09"},
        {"dddddd", kMorning, "Friday, 9 February 2024"},
        {"t tt", kMorning, "07:05 07:05:03"},
        {"c", kMorning, "2024-02-09 07:05"},
        {"c", kMidnight, "2000-01-01"},
        {"", kMorning, "2024-02-09 07:05"},
        {"\"week \"d", kMorning, "week 9"},
        {"'open d", kMorning, "open d"},
        {"''d", kMorning, "9"},
        {"'", kMorning, ""},
        {"w é d.", kMorning, "w é 9."},
        {"//", kMorning, "--"},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(FormatDateTime(c.Format, c.Value), c.Text) << c.Format;
    }
}

TEST_F(FormatTest, TakesTheInstantToTheNearestMillisecondFirst)
{
    const double ms = EncodeTime(0, 0, 0, 1);
    const TDateTime newYear = EncodeDate(2025, 1, 1);
    EXPECT_EQ(FormatDateTime("yyyy-mm-dd hh:nn:ss.zzz", newYear - 0.4 * ms),
              "2025-01-01 00:00:00.000");
    EXPECT_EQ(FormatDateTime("yyyy-mm-dd hh:nn:ss.zzz", newYear - 0.6 * ms),
              "2024-12-31 23:59:59.999");
    EXPECT_EQ(FormatDateTime("c", newYear - 0.4 * ms), "2025-01-01") << "midnight has no time";
    for (int hour = 0; hour < 24; ++hour) {
        // Sums of fractions fall short of the full hour; the label must not.
        const TDateTime summed = EncodeDate(2024, 6, 1) + hour * (1.0 / 24);
        EXPECT_EQ(FormatDateTime("h:nn", summed), std::to_string(hour) + ":00");
    }
}

TEST_F(FormatTest, EmptyPatternsMeanTheShortForms)
{
    EXPECT_EQ(FormatDate("", kMorning), "2024-02-09");
    EXPECT_EQ(FormatTime("", kMorning), "07:05");
    EXPECT_EQ(FormatDate("d", kMorning), "9");
    EXPECT_EQ(FormatTime("nn", kMorning), "05");
}

TEST_F(FormatTest, UsesTheSettingsInForce)
{
    TFormatSettings settings = TFormatSettings::Invariant();
    settings.LongDayNames[5] = "vendredi";
    settings.ShortMonthNames[1] = "févr.";
    settings.DateSeparator = '/';
    settings.TimeSeparator = '.';
    settings.ShortDateFormat = "dd/mm/yyyy";
    settings.ShortTimeFormat = "h:nn ampm";
    settings.AmText = "vm";
    SetFormatSettings(settings);
    EXPECT_EQ(FormatDateTime("dddd d mmm", kMorning), "vendredi 9 févr.");
    EXPECT_EQ(FormatDateTime("c", kMorning), "09/02/2024 7.05 vm");
}

TEST_F(FormatTest, FormsThatNameEachOtherEnd)
{
    TFormatSettings settings = TFormatSettings::Invariant();
    settings.ShortDateFormat = "d ddddd c";
    settings.LongDateFormat = "dddddd";
    SetFormatSettings(settings);
    EXPECT_EQ(FormatDateTime("ddddd", kMidnight), "1  ");
    EXPECT_EQ(FormatDateTime("dddddd", kMidnight), "");
}

TEST_F(FormatTest, AFormInsideAPatternDoesNotChangeTheTokensAroundIt)
{
    EXPECT_EQ(FormatDateTime("h t mm", kMorning), "7 07:05 02");
    EXPECT_EQ(FormatDateTime("h ddddd am/pm", kEvening), "6 1987-11-30 pm");
}

} // namespace
} // namespace korvane
