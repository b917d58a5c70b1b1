// On which days the services of a timetable run.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace korvane::planner {

/// A service runs on weekdays within a range of days, except on single days, and on further single
/// days. Days are whole TDateTime values; services are indices.
class ServiceDays
{
public:
    using WeekDays = std::array<bool, 7>; ///< from Monday

    /// Both ends belong to the range.
    void AddWeekDays(int service, const WeekDays &weekDays, int firstDay, int lastDay);
    /// Has precedence over the weekdays.
    void AddDay(int service, int day, bool runs);

    bool RunsOn(int service, int day) const;
    /// The first of the seven days from `monday` on which the service runs.
    std::optional<int> FirstDayInWeek(int service, int monday) const;
    /// Monday of the first week in which the services that run at all have the greatest weight
    /// together. Ranges longer than ten years count for that long.
    std::optional<int> BusiestWeek(std::span<const std::int64_t> weights) const;

    static int MondayOf(int day);

private:
    struct Range
    {
        WeekDays Runs{};
        int First = 0;
        int Last = 0;
    };
    struct Service
    {
        std::vector<Range> Ranges;
        std::unordered_map<int, bool> Days;
    };

    Service &At(int service);
    std::vector<int> WeeksOf(int service) const;

    std::vector<Service> m_services;
};

} // namespace korvane::planner
