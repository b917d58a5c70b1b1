#include "plan/WorkCalendar.h"

#include <queue>

#include <algorithm>
#include <climits>
#include <cmath>
#include <iterator>
#include <utility>

namespace korvane::planner {

namespace {

constexpr int kFirstDay = static_cast<int>(kFirstPlanDate);
constexpr int kLastDay = static_cast<int>(kLastPlanDate);
/// Instants are doubles: what differs by less than this is the same minute.
constexpr double kTinyMinutes = 1.0 / 60'000;

/// An exception with its place in the list; of several on a day the least place counts.
struct Ranked
{
    CalendarException Entry;
    std::size_t Place = 0;

    /// For a heap with the least place on top.
    friend bool operator<(const Ranked &a, const Ranked &b) { return a.Place > b.Place; }
};

std::vector<Ranked> RankedByFirstDay(std::vector<CalendarException> exceptions)
{
    std::vector<Ranked> ranked;
    ranked.reserve(exceptions.size());
    for (CalendarException &exception : exceptions) {
        exception.FirstDay = std::max(exception.FirstDay, kFirstDay);
        exception.LastDay = std::min(exception.LastDay, kLastDay);
        if (exception.FirstDay <= exception.LastDay) {
            ranked.push_back({std::move(exception), ranked.size()});
        }
    }
    std::ranges::sort(ranked, {}, [](const Ranked &entry) { return entry.Entry.FirstDay; });
    return ranked;
}

/// The exceptions in ascending order, cut where an earlier entry of the list covers them, and to
/// the plan dates.
std::vector<CalendarException> Disjoint(std::vector<CalendarException> exceptions)
{
    std::vector<Ranked> waiting = RankedByFirstDay(std::move(exceptions));
    std::vector<CalendarException> result;
    std::priority_queue<Ranked> current;
    std::size_t next = 0;
    int day = kFirstDay;
    while (next < waiting.size() || !current.empty()) {
        if (current.empty()) {
            day = std::max(day, waiting[next].Entry.FirstDay);
        }
        for (; next < waiting.size() && waiting[next].Entry.FirstDay <= day; ++next) {
            current.push(std::move(waiting[next]));
        }
        const CalendarException &top = current.top().Entry;
        if (top.LastDay >= day) {
            const int nextFirst = next < waiting.size() ? waiting[next].Entry.FirstDay : INT_MAX;
            const int last = std::min(top.LastDay, nextFirst - 1);
            result.push_back({day, last, top.Times});
            day = last + 1;
        }
        if (top.LastDay < day) {
            current.pop();
        }
    }
    return result;
}

/// Day 0, 1899-12-30, was a Saturday. 0 = Sunday ... 6 = Saturday.
int WeekDayOf(int day)
{
    return ((day + 6) % 7 + 7) % 7;
}

struct DayAndMinute
{
    int Day = 0;
    double Minute = 0;
};

DayAndMinute Split(TDateTime instant)
{
    const double clamped = std::clamp(instant, kFirstPlanDate, kLastPlanDate);
    const double day = std::floor(clamped);
    // To the nearest thousandth of a second, so that 17:00 is not a hair before or after it.
    const double minute = std::round((clamped - day) * kMinutesPerDay * 60'000) / 60'000;
    return {static_cast<int>(day), minute};
}

TDateTime Join(int day, double minute)
{
    return day + minute / kMinutesPerDay;
}

/// The first of the days first..last-1 from which on the condition holds; `last` when it holds for
/// none.
template <typename Condition>
int FirstDayWhere(int first, int last, Condition holds)
{
    while (first < last) {
        const int middle = first + (last - first) / 2;
        if (holds(middle)) {
            last = middle;
        } else {
            first = middle + 1;
        }
    }
    return first;
}

} // namespace

DayTimes::DayTimes(std::vector<DayStretch> stretches)
{
    for (DayStretch &stretch : stretches) {
        stretch.From = std::clamp(stretch.From, 0, kMinutesPerDay);
        stretch.To = std::clamp(stretch.To, 0, kMinutesPerDay);
    }
    std::ranges::sort(stretches, {}, &DayStretch::From);
    for (const DayStretch &stretch : stretches) {
        if (stretch.To <= stretch.From) {
            continue;
        }
        if (!m_stretches.empty() && stretch.From <= m_stretches.back().To) {
            m_stretches.back().To = std::max(m_stretches.back().To, stretch.To);
        } else {
            m_stretches.push_back(stretch);
        }
    }
    for (const DayStretch &stretch : m_stretches) {
        m_minutes += stretch.To - stretch.From;
    }
}

double DayTimes::MinutesBefore(double minuteOfDay) const
{
    double minutes = 0;
    for (const DayStretch &stretch : m_stretches) {
        minutes += std::clamp(minuteOfDay, double(stretch.From), double(stretch.To)) - stretch.From;
    }
    return minutes;
}

double DayTimes::MinuteAfter(double worked) const
{
    if (worked <= kTinyMinutes) {
        return 0;
    }
    for (const DayStretch &stretch : m_stretches) {
        const int length = stretch.To - stretch.From;
        if (worked <= length + kTinyMinutes) {
            return stretch.From + std::min<double>(worked, length);
        }
        worked -= length;
    }
    return kMinutesPerDay;
}

double DayTimes::LastMinuteWith(double worked) const
{
    for (const DayStretch &stretch : m_stretches) {
        const int length = stretch.To - stretch.From;
        if (worked < length - kTinyMinutes) {
            return stretch.From + worked;
        }
        worked -= length;
    }
    return kMinutesPerDay;
}

WorkCalendar::Week WorkCalendar::OfficeWeek()
{
    const DayTimes office({{8 * 60, 12 * 60}, {13 * 60, 17 * 60}});
    return {DayTimes(), office, office, office, office, office, DayTimes()};
}

WorkCalendar::WorkCalendar(Week week, std::vector<CalendarException> exceptions)
    : m_week(std::move(week))
    , m_exceptions(Disjoint(std::move(exceptions)))
{
    for (std::size_t day = 0; day < m_week.size(); ++day) {
        m_weekMinutes[day + 1] = m_weekMinutes[day] + m_week[day].Minutes();
    }
    m_added.reserve(m_exceptions.size() + 1);
    m_added.push_back(0);
    for (const CalendarException &exception : m_exceptions) {
        const std::int64_t days = exception.LastDay - exception.FirstDay + 1;
        const std::int64_t usual =
            WeekMinutesBefore(exception.LastDay + 1) - WeekMinutesBefore(exception.FirstDay);
        m_added.push_back(m_added.back() + days * exception.Times.Minutes() - usual);
    }
}

int WorkCalendar::DayMinutes() const
{
    return std::ranges::max(m_week, {}, &DayTimes::Minutes).Minutes();
}

const DayTimes &WorkCalendar::TimesOf(int day) const
{
    const auto after =
        std::ranges::upper_bound(m_exceptions, day, {}, &CalendarException::FirstDay);
    if (after != m_exceptions.begin() && std::prev(after)->LastDay >= day) {
        return std::prev(after)->Times;
    }
    return m_week[WeekDayOf(day)];
}

std::int64_t WorkCalendar::WeekMinutesBefore(int day) const
{
    // Counted from the Sunday before day 0, a Saturday; the six days too many are taken off again.
    const int sinceSunday = day + 6;
    return sinceSunday / 7 * m_weekMinutes[7] + m_weekMinutes[sinceSunday % 7] - m_weekMinutes[6];
}

std::int64_t WorkCalendar::MinutesBeforeDay(int day) const
{
    const auto after =
        std::ranges::upper_bound(m_exceptions, day, {}, &CalendarException::FirstDay);
    const auto count = after - m_exceptions.begin();
    if (count == 0 || m_exceptions[count - 1].LastDay < day) {
        return WeekMinutesBefore(day) + m_added[count];
    }
    const CalendarException &current = m_exceptions[count - 1];
    return WeekMinutesBefore(current.FirstDay) + m_added[count - 1]
           + std::int64_t(day - current.FirstDay) * current.Times.Minutes();
}

double WorkCalendar::MinutesBeforeInstant(TDateTime instant) const
{
    const auto [day, minute] = Split(instant);
    return static_cast<double>(MinutesBeforeDay(day)) + TimesOf(day).MinutesBefore(minute);
}

double WorkCalendar::MinutesBetween(TDateTime start, TDateTime finish) const
{
    return MinutesBeforeInstant(finish) - MinutesBeforeInstant(start);
}

TDateTime WorkCalendar::FinishAfter(TDateTime start, double minutes) const
{
    if (minutes <= kTinyMinutes) {
        return start;
    }
    const double target = MinutesBeforeInstant(start) + minutes - kTinyMinutes;
    const int firstDay = Split(start).Day;
    const int day = FirstDayWhere(firstDay, kLastDay, [&](int candidate) {
        return double(MinutesBeforeDay(candidate + 1)) >= target;
    });
    if (day == kLastDay) {
        return std::max(start, kLastPlanDate);
    }
    const double worked = target + kTinyMinutes - double(MinutesBeforeDay(day));
    return Join(day, TimesOf(day).MinuteAfter(worked));
}

TDateTime WorkCalendar::StartBefore(TDateTime finish, double minutes) const
{
    if (minutes <= kTinyMinutes) {
        return finish;
    }
    const double target = MinutesBeforeInstant(finish) - minutes + kTinyMinutes;
    if (target < 0) {
        return std::min(finish, kFirstPlanDate);
    }
    // Nothing lies before the first day, so that one at least does not exceed the target.
    const int day =
        FirstDayWhere(kFirstDay, Split(finish).Day + 1,
                      [&](int candidate) { return double(MinutesBeforeDay(candidate)) > target; })
        - 1;
    return Join(day,
                TimesOf(day).LastMinuteWith(target - kTinyMinutes - double(MinutesBeforeDay(day))));
}

} // namespace korvane::planner
