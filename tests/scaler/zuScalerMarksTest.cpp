#include "Numbers.h"
#include "TestScaler.h"
#include "foundation/zuRound.h"

#include <cmath>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

namespace korvane::test {
namespace {

std::vector<std::string> TextsOf(const TScaleMarkList &marks, std::size_t count)
{
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < std::min(count, marks.size()); ++i) {
        texts.push_back(marks[i].Text);
    }
    return texts;
}

TEST(ScalerMarks, StepsAndLabelsFollowTheZoom)
{
    using TTexts = std::vector<std::string>;
    const std::tuple<TDateTime, const char *, const char *, TTexts, TTexts> cases[] = {
        {1000 * kYear, "100 \u00e5r", "100 \u00e5r", {"00", "00"}, {"2000 - 2099", "2100 - 2200"}},
        {250 * kYear, "10 \u00e5r", "20 \u00e5r", {"00", "10"}, {"2000 - 2020", "2020 - 2040"}},
        {20 * kYear, "1 \u00e5r", "10 \u00e5r", {"01", "02"}, {"2000 - 2009", "2010 - 2020"}},
        {6 * kYear, "3 m\u00e5nader", "1 \u00e5r", {"Jan", "Apr"}, {"2001", "2002"}},
        {2 * kYear, "1 m\u00e5nad", "3 m\u00e5nader", {"Jan", "Feb"}, {"2001 Q1", "2001 Q2"}},
        {100, "1 vecka", "1 m\u00e5nad", {"0101 - 0107", "0108 - 0114"}, {"2001 Jan", "2001 Feb"}},
        {7, "1 dag", "1 vecka", {"Mon", "Tue"}, {"0101 - 0107", "0108 - 0114"}},
        {1, "1 timme", "1 dag", {"00", "01"}, {"Mon", "Tue"}},
        {4 * kHour, "10 min", "1 timme", {"00", "10"}, {"00:00:00", "01:00:00"}},
        {30 * kMinute, "1 min", "10 min", {"00", "01"}, {"00:00:00", "00:10:00"}},
        {5 * kMinute, "10 sek", "1 min", {"00", "10"}, {"00:00:00", "00:01:00"}},
        {0.4 * kMinute, "1 sek", "10 sek", {"00", "01"}, {"00:00:00", "00:00:10"}},
        {1e-6, "1 tiondel", "1 sek", {"0101 00:00:00", "0101 00:00:00"}, {"00:00:00", "00:00:01"}},
    };
    for (const auto &[span, minorName, majorName, minor, major] : cases) {
        TestScaler scaler;
        scaler.SetDateFormat("mmdd");
        scaler.SetTimeFormat("HH:MM:SS");
        scaler.SetRange(36892, 36892 + span);
        EXPECT_EQ(scaler.MinorStepName(), minorName) << span;
        EXPECT_EQ(scaler.MajorStepName(), majorName) << span;
        EXPECT_EQ(TextsOf(scaler.PrimaryMarks(), 2), minor) << span;
        EXPECT_EQ(TextsOf(scaler.SecondaryMarks(), 2), major) << span;
    }
}

TEST(ScalerMarks, WeekLabelsShowNumbersOrRanges)
{
    TestScaler scaler;
    scaler.SetDateFormat("d/m");
    EXPECT_EQ(scaler.GetWeekString("d/m", EncodeDate(2001, 1, 29)), "29-1 - 4-2");
    scaler.SetWeekNumbers(true);
    EXPECT_EQ(scaler.SecondaryMarks().front().Text, "2001 w 1");
    EXPECT_EQ(scaler.GetWeekString("", EncodeDate(2001, 1, 29)), "2001 w 5");
    EXPECT_EQ(scaler.GetWeekString("", EncodeDate(2003, 12, 29)), "2004 w 1");
    scaler.SetWeekYearFormat("");
    scaler.SetWeekPrefix("v.");
    EXPECT_EQ(scaler.SecondaryMarks().front().Text, "v.1");
}

TEST(ScalerMarks, AnHourMarkNeverReadsTheHourBefore)
{
    TestScaler scaler;
    for (int day = 36892; day < 36992; ++day) {
        scaler.SetRange(day, day + 1);
        for (int hour = 0; hour < 24; ++hour) {
            const TScaleMark &mark = scaler.PrimaryMarks()[static_cast<std::size_t>(hour)];
            ASSERT_EQ(std::stoi(mark.Text), hour);
        }
    }
}

TEST(ScalerMarks, LabelHandlersMayReplaceTheText)
{
    TestScaler scaler;
    scaler.OnUserStringShort = [](TDateTime date, TDateTime step, std::string &text, TScalerFont) {
        text = step == kScale1Day && date == 36893 ? "today" : text + "!";
    };
    scaler.OnUserStringLong = [](TDateTime, TDateTime, std::string &text, TScalerFont) {
        text.clear();
    };
    scaler.CalcDrawMode();
    EXPECT_EQ(TextsOf(scaler.PrimaryMarks(), 3),
              (std::vector<std::string>{"Mon!", "today", "Wed!"}));
    EXPECT_EQ(scaler.SecondaryMarks().front().Text, "");
}

TEST(ScalerMarks, LabelHandlersMayChangeTheScaler)
{
    TestScaler scaler;
    scaler.OnUserStringShort = [&](TDateTime, TDateTime, std::string &, TScalerFont) {
        scaler.SetStart(36885);
    };
    scaler.CalcDrawMode();
    EXPECT_EQ(scaler.PrimaryMarks().front().Date, 36885);

    // One that never comes to rest is not followed for ever.
    scaler.OnUserStringShort = [&](TDateTime, TDateTime, std::string &, TScalerFont) {
        scaler.SetStart(scaler.GetStart() + 0.001);
    };
    scaler.CalcDrawMode();
    EXPECT_FALSE(scaler.PrimaryMarks().empty());
}

TEST(ScalerMarks, AFailingLabelHandlerLeavesAUsableDay)
{
    TestScaler scaler;
    scaler.m_interaction.Dragging = true;
    scaler.OnUserStringLong = [](TDateTime, TDateTime, std::string &, TScalerFont) {
        throw std::runtime_error("no such label");
    };
    EXPECT_EQ(ErrorOf([&] { scaler.SetStart(36895); }), "Scale error:no such label");
    EXPECT_EQ(scaler.GetStart(), 36895);
    EXPECT_EQ(scaler.GetStop(), 36896);
    EXPECT_EQ(scaler.MinorStep(), kScale1Hour);
    EXPECT_FALSE(scaler.SecondaryMarks().empty());
    EXPECT_FALSE(scaler.Dragging());
    EXPECT_TRUE(scaler.ChangePending());
}

TEST(ScalerMarks, ANightPassCutsTheAxisAtHourStepsOnly)
{
    TestScaler scaler;
    scaler.SetRange(36892.25, 36893);
    scaler.HideHours(18, 6);
    ASSERT_EQ(scaler.MinorStep(), kScale1Hour);
    const TScaleMarkList &marks = scaler.PrimaryMarks();
    EXPECT_EQ(marks.front().Text, "07");
    EXPECT_TRUE(marks.front().AfterHidden);
    EXPECT_EQ(marks[10].Text, "17");
    EXPECT_TRUE(marks[10].HiddenAfter);
    EXPECT_EQ(marks[11].Text, "07");
    EXPECT_TRUE(marks[11].AfterHidden);
    EXPECT_FALSE(marks[11].HiddenAfter);
    EXPECT_NEAR(marks[11].HiddenBefore, 14 * kHour, 1e-9);
    EXPECT_NEAR(marks[11].Pixel - marks[10].Pixel, 700 / 18.0, 1);
    EXPECT_NEAR(scaler.HiddenSpan(), 14 * kHour, 1e-9);
    EXPECT_TRUE(scaler.SecondaryMarks().empty()); // every midnight is hidden

    scaler.SetStop(36899);
    ASSERT_EQ(scaler.MinorStep(), kScale1Day);
    EXPECT_EQ(scaler.HiddenSpan(), 0);
    EXPECT_EQ(scaler.PrimaryMarks()[1].HiddenBefore, 0);
}

TEST(ScalerMarks, APassColoursItsMarks)
{
    TestScaler scaler;
    scaler.GetPassList(3) = {.Active = true, .FromTime = 0.5, .ToTime = 0.75, .Color = clOlive};
    scaler.SetRange(36892, 36893);
    const TScaleMarkList &marks = scaler.PrimaryMarks();
    EXPECT_EQ(marks[11].Color, 0U);
    EXPECT_EQ(marks[12].Color, clOlive);
    EXPECT_EQ(marks[18].Color, clOlive);
    EXPECT_EQ(marks[19].Color, 0U);
    EXPECT_THROW(scaler.GetPassList(10), std::out_of_range);
    EXPECT_THROW(scaler.GetPassList(-1), std::out_of_range);
}

TEST(ScalerMarks, HidingEverythingIsUndoneAndReported)
{
    struct Case
    {
        TDateTime Span;
        double FromHour, ToHour;
        TDateTime MaxStep = kScale1Hour;
    };
    for (const Case &c : {Case{1, 0, 24}, Case{1, 12.2, 12.1}, // between two hours a minute is left
                          Case{7, 23, 1, kYear}, Case{1000 * kYear, 23, 1, kScale100Year},
                          Case{0.1 / 86'400, 0, 24}}) {
        SCOPED_TRACE(c.Span);
        TestScaler scaler;
        scaler.SetRange(36892, 36892 + c.Span);
        scaler.GetPassList(9).Hide = true;
        EXPECT_EQ(ErrorOf([&] { scaler.HideHours(c.FromHour, c.ToHour, c.MaxStep); }),
                  std::string("Scale error:") + kEverythingHidden);
        for (int pass = 0; pass < TestScaler::kPassCount; ++pass) {
            EXPECT_FALSE(scaler.GetPassList(pass).Hide);
        }
        EXPECT_EQ(scaler.GetStop(), scaler.GetStart() + kDay);
        EXPECT_EQ(scaler.HiddenSpan(), 0);
        EXPECT_EQ(scaler.PrimaryMarks().size(), 26U);
        EXPECT_EQ(scaler.DateToPixel(36892.5), 350);
        EXPECT_EQ(ErrorOf([&] { scaler.SetStart(36893); }), "");
    }
}

TEST(ScalerMarks, MoreThanAYearOfHiddenTimeIsTheSameError)
{
    TestScaler scaler;
    scaler.SetLength(40'000);
    scaler.SetRange(36892, 36892 + 2600 * kScale10Min);
    ASSERT_EQ(scaler.MinorStep(), kScale10Min);
    // Two visible marks a day; the axis would need more than three years of days.
    EXPECT_EQ(ErrorOf([&] { scaler.HideHours(12.2, 11.8); }),
              std::string("Scale error:") + kEverythingHidden);
}

TEST(ScalerMarks, SnappingTooFarShortensTheRange)
{
    TestScaler scaler;
    EXPECT_EQ(ErrorOf([&] { scaler.Snap(kScale1Hour, 1e30); }), "To small span");
    EXPECT_EQ(scaler.GetStop(), scaler.GetStart() + kDay);
    EXPECT_EQ(scaler.Snap(kScale1Week, 36895.3), 36892);
}

TEST(ScalerMarks, AbsurdAxesStayBoundedAndUsable)
{
    const TDateTime latest = EncodeDate(4000, 1, 1);
    const std::tuple<TDateTime, TDateTime, int, int> cases[] = {
        {0, latest, 700, 15},          {0, latest, 2'000'000'000, 15},
        {0, latest, 2'000'000'000, 1}, {36892, 36892 + 1e-9, 700, 15},
        {36892, 36892.001, 700, 1},    {latest - 1e-6, latest, 700, 15},
        {1e300, latest, 700, 15},      {36892, 36899, 1, 1'000'000'000},
        {36892, 36899, 700, 0},        {36892, 36899, 700, -15},
    };
    for (const auto &[start, stop, length, spacing] : cases) {
        TestScaler scaler;
        scaler.SetPixelsForModeSwitch(spacing);
        scaler.SetLength(length);
        EXPECT_EQ(ErrorOf([&, from = start, to = stop] { scaler.SetRange(from, to); }), "");
        EXPECT_LE(scaler.PrimaryMarks().size(), 100'000U);
        EXPECT_LE(scaler.SecondaryMarks().size(), 100'000U);
        scaler.DateToPixel(36895);
        scaler.PixelToDate(350);
    }
}

TEST(ScalerMarks, TheSameDateMakesOneMajorMark)
{
    TestScaler scaler;
    scaler.SetRange(0, 1); // date 0 counts as seen before the first position
    EXPECT_EQ(scaler.SecondaryMarks().front().Date, 1);
    for (const double years : {1.0, 30.0, 300.0, 2000.0}) {
        scaler.SetRange(100, 100 + years * kYear);
        const TScaleMarkList &marks = scaler.SecondaryMarks();
        for (std::size_t i = 0; i + 1 < marks.size(); ++i) {
            EXPECT_LT(marks[i].Date, marks[i + 1].Date);
        }
    }
}

TEST(ScalerMarks, PixelsAreThoseOfTheCurrentLength)
{
    TestScaler scaler;
    const auto secondDay = [&] { return scaler.FindScaleMarksFromDate(36893).A->Pixel; };
    EXPECT_EQ(secondDay(), 100); // without a paint
    EXPECT_EQ(scaler.SecondaryMarks()[1].Pixel, 700);
    scaler.Host.Size.Width = 1400; // as a print enlarges the control, untold
    EXPECT_EQ(scaler.PixelToDate(300), 36893.5);
    EXPECT_EQ(secondDay(), 200);
    scaler.Host.Size.Width = 700;
    EXPECT_EQ(scaler.PixelToDate(300), 36895);
}

TEST(ScalerMarks, TheOddEvenNumberStaysWithTheCalendarPeriod)
{
    const TDateTime start = EncodeDate(2015, 8, 20) + EncodeTime(17, 43, 36, 0);
    const std::pair<TDateTime, int> cases[] = {
        {0.1 / 86'400, 36}, {0.4 * kMinute, 4}, {5 * kMinute, 44}, {30 * kMinute, 4},
        {4 * kHour, 18},    {1, 42237},         {7, 34},           {100, 8},
        {2 * kYear, 3},     {6 * kYear, 2015},  {20 * kYear, 201}, {250 * kYear, 100},
        {1000 * kYear, 20},
    };
    for (const auto &[span, number] : cases) {
        TestScaler scaler;
        scaler.SetRange(start, start + span);
        EXPECT_EQ(scaler.GetOddOrEventStartForVerticalBack(), number) << span;
    }
    TestScaler empty;
    empty.SetStop(empty.GetStart());
    EXPECT_EQ(empty.GetOddOrEventStartForVerticalBack(), 0);
}

/// The marks as the plain walk from one position to the next makes them, hidden ones included.
struct PlainWalk
{
    TestScaler &Scaler;
    TScaleMarkList Minor{};
    TScaleMarkList Major{};
    TDateTime HiddenSpan = 0;
    bool Failed = false;

    void Run()
    {
        const TDateTime step = Scaler.MinorStep();
        TDateTime t = SnapTo(step, Scaler.GetStart());
        bool afterHidden = false;
        for (std::int64_t i = 0; i <= Last(step); ++i) {
            const TPassInfo info = Scaler.GetPassInfoFromDateTime(t);
            if (info.Hide) {
                HiddenSpan += step;
                afterHidden = true;
                if (!Minor.empty()) {
                    Minor.back().HiddenAfter = true;
                }
            } else {
                Minor.push_back({.Date = t,
                                 .Text = {},
                                 .Color = info.Color,
                                 .HiddenBefore = HiddenSpan,
                                 .AfterHidden = afterHidden});
                afterHidden = false;
            }
            t = SnapTo(step, t + GetAdaptiveStep(step, t));
            if (HiddenSpan > kYear) {
                Failed = true;
                return;
            }
        }
        RunMajor();
    }

    void RunMajor()
    {
        const TDateTime step = Scaler.MajorStep();
        TDateTime t = SnapTo(step, Scaler.GetStart());
        TDateTime previous = 0;
        for (std::int64_t i = 0; i <= Last(step); ++i) {
            const TPassInfo info = Scaler.GetPassInfoFromDateTime(t);
            if (!info.Hide && t != previous) {
                Major.push_back({.IsMajor = true, .Date = t, .Text = {}, .Color = info.Color});
                previous = t;
            }
            t = SnapTo(step, t + GetAdaptiveStep(step, t));
        }
    }
    TDateTime SnapTo(TDateTime step, TDateTime date) const
    {
        return Snap(step, date, Scaler.FirstDayOfWeek());
    }
    std::int64_t Last(TDateTime step) const
    {
        return Round((Scaler.GetStop() - Scaler.GetStart() + HiddenSpan) / step + 1.0);
    }
};

void ExpectSameMarks(const TScaleMarkList &marks, const TScaleMarkList &plain)
{
    constexpr TDateTime kMillisecond = kScale10Hun / 10;
    ASSERT_EQ(marks.size(), plain.size());
    for (std::size_t i = 0; i < marks.size(); ++i) {
        ASSERT_NEAR(marks[i].Date, plain[i].Date, kMillisecond) << i;
        ASSERT_NEAR(marks[i].HiddenBefore, plain[i].HiddenBefore, kMillisecond) << i;
        const auto exact = [](const TScaleMark &mark) {
            return std::tuple(mark.IsMajor, mark.Color, mark.HiddenAfter, mark.AfterHidden);
        };
        ASSERT_EQ(exact(marks[i]), exact(plain[i])) << i;
    }
}

/// Sets up to four passes at random; windows begin and end on a grid of so many milliseconds.
void SetRandomPasses(TestScaler &scaler, Numbers &numbers, double longest, int gridMilliseconds)
{
    const auto onGrid = [&](double time) {
        return std::floor(time * kMillisecondsPerDay / gridMilliseconds) * gridMilliseconds
               / kMillisecondsPerDay;
    };
    const int count = numbers.Int(0, 4);
    for (int index = 0; index < count; ++index) {
        TDateScalePass &pass = scaler.GetPassList(numbers.Int(0, 9));
        pass.Active = numbers.Int(0, 9) > 0;
        pass.Hide = numbers.Int(0, 2) > 0;
        pass.FromTime = onGrid(numbers.Real(0, 1));
        pass.ToTime = onGrid(std::fmod(pass.FromTime + numbers.Real(0, longest), 1.0));
        pass.MaxStep = numbers.Int(0, 2) > 0 ? kScale1Hour : kYear;
        pass.Color = static_cast<TColor>(numbers.Int(0, 0xFFFFFF));
    }
}

TEST(ScalerMarks, SkippingHiddenStretchesGivesTheMarksOfThePlainWalk)
{
    struct Zoom
    {
        const char *Name;
        TDateTime ShortestSpan;
        TDateTime LongestSpan;
        double LongestWindow; ///< in days; bounds what the plain walk has to go through
        int Rounds;
    };
    const Zoom zooms[] = {
        {"seconds", kMinute / 60, kMinute, 0.004, 100},
        {"minutes", kMinute, 10 * kHour, 0.05, 100},
        {"hours", 4 * kHour, 2, 1, 400},
        {"days and weeks", 2, 150, 1, 200},
        {"months to centuries", 150, 1500 * kYear, 1, 200},
    };
    Numbers numbers;
    int failures = 0;
    int cuts = 0;
    for (const Zoom &zoom : zooms) {
        for (int round = 0; round < zoom.Rounds; ++round) {
            SCOPED_TRACE(zoom.Name + std::to_string(round));
            TestScaler scaler;
            scaler.SetLength(numbers.Int(30, 2000));
            const TDateTime start = numbers.Real(0, 80'000);
            const TDateTime span =
                std::exp(numbers.Real(std::log(zoom.ShortestSpan), std::log(zoom.LongestSpan)));
            scaler.SetFirstDayOfWeek(numbers.Int(1, 7));
            scaler.SetRange(start, start + span);
            SetRandomPasses(scaler, numbers, zoom.LongestWindow, round % 2 == 0 ? 1 : 1'800'000);

            PlainWalk plain{scaler};
            plain.Run();
            const std::string error = ErrorOf([&] { scaler.CalcDrawMode(); });
            ASSERT_EQ(error.empty(), !plain.Failed) << error;
            if (plain.Failed) {
                ++failures;
                continue;
            }
            cuts += scaler.HiddenSpan() > 0 ? 1 : 0;
            ASSERT_NEAR(scaler.HiddenSpan(), plain.HiddenSpan, 1e-8);
            ExpectSameMarks(scaler.PrimaryMarks(), plain.Minor);
            ExpectSameMarks(scaler.SecondaryMarks(), plain.Major);
        }
    }
    EXPECT_GT(failures, 20);
    EXPECT_GT(cuts, 150);
}

} // namespace
} // namespace korvane::test
