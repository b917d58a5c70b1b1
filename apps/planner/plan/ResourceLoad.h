// How much of a resource is in use, and when that is too much.
#pragma once

#include "plan/Plan.h"

#include <span>
#include <vector>

namespace korvane::planner {

/// A stretch of time, half-open, in which a number of units is at work.
struct LoadStretch
{
    TDateTime From = 0;
    TDateTime To = 0;
    double Units = 0;

    friend bool operator==(const LoadStretch &, const LoadStretch &) = default;
};

/// The sum over stretches in any order, as ascending and disjoint stretches; neighbours differ, and
/// times without load are left out. Empty and inverted stretches count for nothing. n log n.
std::vector<LoadStretch> SumOf(std::span<const LoadStretch> loads);

/// Appends what an assignment to the task takes: its units for the times of the task, or of its
/// parts when it is split.
void AddLoad(const PlanTask &task, double units, std::vector<LoadStretch> &loads);

/// What exceeds the resource's limit, of its load; stretches that lie wholly outside its working
/// time (its calendar's, or the project's) do not count.
std::vector<LoadStretch> OverloadOf(const Plan &plan, const PlanResource &resource,
                                    std::span<const LoadStretch> load);

/// Index of the first stretch that ends after the instant.
std::size_t FirstAfter(std::span<const LoadStretch> stretches, TDateTime instant);

} // namespace korvane::planner
