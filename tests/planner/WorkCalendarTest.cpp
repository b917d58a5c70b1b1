#include "plan/WorkCalendar.h"

#include <gtest/gtest.h>
#include <random>

namespace korvane::planner {
namespace {

TDateTime At(QStringView text)
{
    return ParseIsoDateTime(text).value();
}

int DayAt(QStringView text)
{
    return static_cast<int>(At(text));
}

std::string Text(TDateTime instant)
{
    return IsoText(instant).toStdString();
}

TEST(WorkCalendar, DayTimesAreSortedMergedAndCutToTheDay)
{
    const DayTimes times({{900, 2000}, {60, 120}, {100, 200}, {300, 300}, {500, 400}});
    EXPECT_EQ(times.Stretches(), (std::vector<DayStretch>{{60, 200}, {900, 1440}}));
    EXPECT_EQ(times.Minutes(), 680);
}

struct Step
{
    QStringView From;
    double Hours;
    std::string To;
};

TEST(WorkCalendar, FinishIsTheEarliestInstantWithTheWorkDone)
{
    // 2026-11-06 is a Friday.
    const Step cases[] = {
        {u"2026-11-06T08:00:00", 8, "2026-11-06T17:00:00"},
        {u"2026-11-06T08:00:00", 4, "2026-11-06T12:00:00"},
        {u"2026-11-06T08:00:00", 4.5, "2026-11-06T13:30:00"},
        {u"2026-11-06T08:00:00", 8.25, "2026-11-09T08:15:00"},
        {u"2026-11-06T12:30:00", 1, "2026-11-06T14:00:00"},
        {u"2026-11-07T10:00:00", 8, "2026-11-09T17:00:00"},
        {u"2026-11-06T17:00:00", 40, "2026-11-13T17:00:00"},
        {u"2026-11-06T10:10:10", 0, "2026-11-06T10:10:10"},
        {u"2026-11-06T08:00:00", 8 * 5 * 52, "2027-11-04T17:00:00"},
        {u"2026-11-06T08:00:00", 1e300, "4000-01-01T00:00:00"},
    };
    const WorkCalendar calendar;
    for (const Step &step : cases) {
        EXPECT_EQ(Text(calendar.FinishAfter(At(step.From), step.Hours * 60)), step.To)
            << step.From.toUtf8().toStdString() << " + " << step.Hours;
    }
}

TEST(WorkCalendar, StartIsTheLatestInstantThatLeavesTheWork)
{
    const Step cases[] = {
        {u"2026-11-09T17:00:00", 8, "2026-11-09T08:00:00"},
        {u"2026-11-09T08:00:00", 8, "2026-11-06T08:00:00"},
        {u"2026-11-08T08:00:00", 4, "2026-11-06T13:00:00"},
        {u"2026-11-09T14:00:00", 1.5, "2026-11-09T11:30:00"},
        {u"2026-11-09T14:00:00", 1e300, "1899-12-30T00:00:00"},
    };
    const WorkCalendar calendar;
    for (const Step &step : cases) {
        EXPECT_EQ(Text(calendar.StartBefore(At(step.From), step.Hours * 60)), step.To)
            << step.From.toUtf8().toStdString() << " - " << step.Hours;
    }
}

TEST(WorkCalendar, OfOverlappingExceptionsTheFirstInTheListHolds)
{
    const DayTimes whole = DayTimes::WholeDay();
    const DayTimes morning({{480, 720}});
    const WorkCalendar calendar(WorkCalendar::OfficeWeek(),
                                {{DayAt(u"2026-11-04"), DayAt(u"2026-11-05"), morning},
                                 {DayAt(u"2026-11-02"), DayAt(u"2026-11-07"), DayTimes()},
                                 {DayAt(u"2026-11-07"), DayAt(u"2026-11-08"), whole},
                                 {DayAt(u"2026-11-09"), DayAt(u"2026-11-01"), whole}});
    const std::pair<QStringView, int> cases[] = {
        {u"2026-11-01", 0},   {u"2026-11-02", 0},    {u"2026-11-03", 0},
        {u"2026-11-04", 240}, {u"2026-11-05", 240},  {u"2026-11-06", 0},
        {u"2026-11-07", 0},   {u"2026-11-08", 1440}, {u"2026-11-09", 480},
    };
    for (const auto &[day, minutes] : cases) {
        EXPECT_EQ(calendar.TimesOf(DayAt(day)).Minutes(), minutes) << day.toUtf8().toStdString();
    }
    EXPECT_EQ(calendar.MinutesBetween(At(u"2026-11-01"), At(u"2026-11-10")), 240 * 2 + 1440 + 480);
}

TEST(WorkCalendar, WithoutAnyWorkingTimeEverythingEndsAtTheAxis)
{
    const WorkCalendar calendar(WorkCalendar::Week{});
    EXPECT_EQ(calendar.FinishAfter(At(u"2026-11-02"), 1), kLastPlanDate);
    EXPECT_EQ(calendar.StartBefore(At(u"2026-11-02"), 1), kFirstPlanDate);
    EXPECT_EQ(calendar.FinishAfter(At(u"2026-11-02"), 0), At(u"2026-11-02"));
}

/// The same by walking minute by minute.
TDateTime WalkedFinish(const WorkCalendar &calendar, TDateTime start, int minutes)
{
    auto minute = static_cast<std::int64_t>(std::llround(start * kMinutesPerDay));
    while (minutes > 0) {
        const int day = static_cast<int>(minute / kMinutesPerDay);
        const double inDay = double(minute % kMinutesPerDay);
        const DayTimes &times = calendar.TimesOf(day);
        minutes -= times.MinutesBefore(inDay + 1) > times.MinutesBefore(inDay) ? 1 : 0;
        ++minute;
    }
    return double(minute) / kMinutesPerDay;
}

DayTimes RandomTimes(std::mt19937 &random)
{
    std::vector<DayStretch> stretches(random() % 4);
    for (DayStretch &stretch : stretches) {
        stretch.From = int(random() % kMinutesPerDay);
        stretch.To = stretch.From + int(random() % 300);
    }
    return DayTimes(stretches);
}

TEST(WorkCalendar, AgreesWithAWalkThroughTheMinutes)
{
    std::mt19937 random(7);
    for (int round = 0; round < 40; ++round) {
        WorkCalendar::Week week;
        std::ranges::generate(week, [&] { return RandomTimes(random); });
        week[1] = DayTimes({{480, 720}});
        const int firstDay = DayAt(u"2026-11-01");
        std::vector<CalendarException> exceptions(random() % 8);
        for (CalendarException &exception : exceptions) {
            exception.FirstDay = firstDay + int(random() % 40);
            exception.LastDay = exception.FirstDay + int(random() % 6);
            exception.Times = RandomTimes(random);
        }
        const WorkCalendar calendar(week, exceptions);
        for (int i = 0; i < 20; ++i) {
            const double start = firstDay + double(random() % (20 * 1440)) / kMinutesPerDay;
            const int minutes = int(random() % 5000);
            const TDateTime finish = calendar.FinishAfter(start, minutes);
            EXPECT_EQ(Text(finish), Text(WalkedFinish(calendar, start, minutes)));
            EXPECT_NEAR(calendar.MinutesBetween(start, finish), minutes, 1e-3);
            const TDateTime latest = calendar.StartBefore(finish, minutes);
            EXPECT_GE(latest, start - 1e-9);
            EXPECT_NEAR(calendar.MinutesBetween(latest, finish), minutes, 1e-3);
        }
    }
}

} // namespace
} // namespace korvane::planner
