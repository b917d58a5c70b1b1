#include "plan/ResourceLoad.h"

#include <algorithm>
#include <cmath>

namespace korvane::planner {

namespace {

/// Sums of fractions like 0.1 do not meet exactly.
constexpr double kSameUnits = 1e-6;

struct Step
{
    TDateTime At = 0;
    double Units = 0;
    int Count = 0; ///< of stretches that begin, less those that end
};

} // namespace

std::vector<LoadStretch> SumOf(std::span<const LoadStretch> loads)
{
    std::vector<Step> steps;
    steps.reserve(loads.size() * 2);
    for (const LoadStretch &load : loads) {
        if (load.From < load.To) {
            steps.push_back({load.From, load.Units, 1});
            steps.push_back({load.To, -load.Units, -1});
        }
    }
    std::ranges::sort(steps, {}, &Step::At);
    std::vector<LoadStretch> sum;
    double units = 0;
    int count = 0;
    for (std::size_t i = 0; i < steps.size();) {
        const TDateTime at = steps[i].At;
        for (; i < steps.size() && steps[i].At == at; ++i) {
            units += steps[i].Units;
            count += steps[i].Count;
        }
        if (count == 0) {
            units = 0; // what is left of rounding
            continue;
        }
        const TDateTime to = steps[i].At;
        if (std::abs(units) < kSameUnits) {
            continue;
        }
        if (!sum.empty() && sum.back().To == at
            && std::abs(sum.back().Units - units) < kSameUnits) {
            sum.back().To = to;
        } else {
            sum.push_back({at, to, units});
        }
    }
    return sum;
}

void AddLoad(const PlanTask &task, double units, std::vector<LoadStretch> &loads)
{
    for (const PlanSpan &part : task.Parts) {
        loads.push_back({part.Start, part.Finish, units});
    }
    if (task.Parts.empty() && task.Dates) {
        loads.push_back({task.Dates->Start, task.Dates->Finish, units});
    }
}

std::vector<LoadStretch> OverloadOf(const Plan &plan, const PlanResource &resource,
                                    std::span<const LoadStretch> load)
{
    std::vector<LoadStretch> over;
    if (!resource.MaxUnits) {
        return over;
    }
    const WorkCalendar &calendar =
        resource.Calendar == kNoIndex
            ? plan.ProjectCalendar()
            : plan.Calendars.at(static_cast<std::size_t>(resource.Calendar)).Times;
    std::ranges::copy_if(load, std::back_inserter(over), [&](const LoadStretch &stretch) {
        return stretch.Units > *resource.MaxUnits + kSameUnits
               && calendar.MinutesBetween(stretch.From, stretch.To) > 0;
    });
    return over;
}

std::size_t FirstAfter(std::span<const LoadStretch> stretches, TDateTime instant)
{
    return static_cast<std::size_t>(
        std::ranges::upper_bound(stretches, instant, {}, &LoadStretch::To) - stretches.begin());
}

} // namespace korvane::planner
