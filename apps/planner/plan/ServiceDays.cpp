#include "plan/ServiceDays.h"

#include <algorithm>
#include <map>

namespace korvane::planner {

namespace {

constexpr int kDaysPerWeek = 7;
constexpr int kFirstMonday = 2; // day 0 is a Saturday

} // namespace

int ServiceDays::MondayOf(int day)
{
    return day - ((day - kFirstMonday) % kDaysPerWeek + kDaysPerWeek) % kDaysPerWeek;
}

ServiceDays::Service &ServiceDays::At(int service)
{
    m_services.resize(std::max(m_services.size(), std::size_t(service) + 1));
    return m_services[service];
}

void ServiceDays::AddWeekDays(int service, const WeekDays &weekDays, int firstDay, int lastDay)
{
    At(service).Ranges.push_back({weekDays, firstDay, lastDay});
}

void ServiceDays::AddDay(int service, int day, bool runs)
{
    At(service).Days[day] = runs;
}

bool ServiceDays::RunsOn(int service, int day) const
{
    if (service >= std::ssize(m_services)) {
        return false;
    }
    const Service &entry = m_services[service];
    const auto single = entry.Days.find(day);
    if (single != entry.Days.end()) {
        return single->second;
    }
    return std::ranges::any_of(entry.Ranges, [day](const Range &range) {
        return day >= range.First && day <= range.Last && range.Runs[day - MondayOf(day)];
    });
}

std::optional<int> ServiceDays::FirstDayInWeek(int service, int monday) const
{
    for (int day = monday; day < monday + kDaysPerWeek; ++day) {
        if (RunsOn(service, day)) {
            return day;
        }
    }
    return std::nullopt;
}

/// Mondays of the weeks in which the service may run, each once.
std::vector<int> ServiceDays::WeeksOf(int service) const
{
    constexpr int kLongestRange = 3660;
    std::vector<int> mondays;
    const Service &entry = m_services[service];
    for (const Range &range : entry.Ranges) {
        const int last = std::min(range.Last, range.First + kLongestRange);
        for (int monday = MondayOf(range.First); monday <= last; monday += kDaysPerWeek) {
            mondays.push_back(monday);
        }
    }
    for (const auto &[day, runs] : entry.Days) {
        mondays.push_back(MondayOf(day));
    }
    std::ranges::sort(mondays);
    const auto repeated = std::ranges::unique(mondays);
    mondays.erase(repeated.begin(), repeated.end());
    return mondays;
}

std::optional<int> ServiceDays::BusiestWeek(std::span<const std::int64_t> weights) const
{
    std::map<int, std::int64_t> weeks;
    for (int service = 0; service < std::ssize(m_services); ++service) {
        const std::int64_t weight = service < std::ssize(weights) ? weights[service] : 0;
        if (weight > 0) {
            for (const int monday : WeeksOf(service)) {
                if (FirstDayInWeek(service, monday)) {
                    weeks[monday] += weight;
                }
            }
        }
    }
    const auto busiest =
        std::ranges::max_element(weeks, {}, [](const auto &week) { return week.second; });
    return busiest != weeks.end() ? std::optional(busiest->first) : std::nullopt;
}

} // namespace korvane::planner
