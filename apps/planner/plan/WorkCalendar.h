// Working times by weekday with exceptions.
#pragma once

#include "plan/PlanDates.h"

#include <array>
#include <cstdint>
#include <vector>

namespace korvane::planner {

/// A working stretch within a day in minutes after midnight, half-open.
struct DayStretch
{
    int From = 0;
    int To = 0;

    friend bool operator==(const DayStretch &, const DayStretch &) = default;
};

/// The working stretches of one day, ascending and disjoint; empty on a day off.
class DayTimes
{
public:
    DayTimes() = default;
    /// Stretches in any order; they are cut to the day, sorted and merged.
    explicit DayTimes(std::vector<DayStretch> stretches);
    static DayTimes WholeDay() { return DayTimes({{0, kMinutesPerDay}}); }

    const std::vector<DayStretch> &Stretches() const { return m_stretches; }
    int Minutes() const { return m_minutes; }
    bool IsWorking() const { return m_minutes > 0; }
    /// Working minutes before the given minute of the day.
    double MinutesBefore(double minuteOfDay) const;
    /// Least minute of the day before which `worked` minutes lie; 0 <= worked <= Minutes().
    double MinuteAfter(double worked) const;
    /// Greatest minute of the day before which no more than `worked` minutes lie.
    double LastMinuteWith(double worked) const;

    friend bool operator==(const DayTimes &, const DayTimes &) = default;

private:
    std::vector<DayStretch> m_stretches;
    int m_minutes = 0;
};

/// Other times than the weekday's on the days FirstDay..LastDay, both included.
struct CalendarException
{
    int FirstDay = 0;
    int LastDay = 0;
    DayTimes Times;
};

/// Days are whole TDateTime values. Questions cost the logarithm of the number of exceptions,
/// however long the durations are.
class WorkCalendar
{
public:
    using Week = std::array<DayTimes, 7>; ///< from Sunday

    /// Monday to Friday, 08:00-12:00 and 13:00-17:00.
    static Week OfficeWeek();

    /// Where exceptions overlap, the one that stands first in the list holds.
    explicit WorkCalendar(Week week = OfficeWeek(), std::vector<CalendarException> exceptions = {});

    const Week &WeekDays() const { return m_week; }
    /// Ascending and disjoint.
    const std::vector<CalendarException> &Exceptions() const { return m_exceptions; }

    const DayTimes &TimesOf(int day) const;
    /// Of the weekday that has the most: what is called a day of work.
    int DayMinutes() const;
    bool IsWorkingDay(int day) const { return TimesOf(day).IsWorking(); }

    /// The earliest instant up to which that much working time has passed since `start`; the last
    /// plan date where there is not that much. `minutes` >= 0.
    TDateTime FinishAfter(TDateTime start, double minutes) const;
    /// The latest instant from which that much working time passes until `finish`; the first plan
    /// date where there is not that much. `minutes` >= 0.
    TDateTime StartBefore(TDateTime finish, double minutes) const;
    /// Working minutes from `start` to `finish`, negative when they are the wrong way round.
    double MinutesBetween(TDateTime start, TDateTime finish) const;

private:
    /// Working minutes by the weekdays alone, from day 0 up to the day.
    std::int64_t WeekMinutesBefore(int day) const;
    /// Working minutes from day 0 up to the day.
    std::int64_t MinutesBeforeDay(int day) const;
    double MinutesBeforeInstant(TDateTime instant) const;

    Week m_week;
    std::vector<CalendarException> m_exceptions;
    /// What the exceptions before each one (and, at the end, all of them) add to the minutes of the
    /// weekdays.
    std::vector<std::int64_t> m_added;
    std::array<std::int64_t, 8> m_weekMinutes{}; ///< minutes of a week's days before each weekday
};

} // namespace korvane::planner
