// The tables of a timetable.
#pragma once

#include "plan/PlanBuilder.h"
#include "plan/PlanReader.h"
#include "plan/ServiceDays.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace korvane::planner {

/// What a row may stand for: a route or a vehicle's block.
struct TimetableRow
{
    QString Id;
    QString Name;
    std::optional<TColor> Color;
};

/// Rows and stops are indices; kNoIndex where the tables name none.
struct TimetableTrip
{
    QString Id;
    QString Head; ///< what the vehicle shows
    int Route = 0;
    int Block = kNoIndex;
    int Service = 0;
    int Stops = 0;  ///< with a time; the rest is of no use without any
    int Start = 0;  ///< the first time, in seconds of the service day
    int Finish = 0; ///< the last time, which may lie beyond the day
    int FirstStop = kNoIndex;
    int LastStop = kNoIndex;
    int FirstSequence = 0;
    int LastSequence = 0;
};

struct Timetable
{
    std::vector<TimetableRow> Routes;
    std::vector<TimetableRow> Blocks;
    std::vector<TimetableTrip> Trips;
    std::vector<QString> Stops;
    int Services = 0;
    ServiceDays Days;
};

/// Opens a table; null where there is none of that name.
using OpenTable = std::function<std::unique_ptr<QIODevice>(const QString &name)>;

/// Reads what is there; oddities become remarks of the builder. Throws PlanRefusal and
/// PlanCanceled.
Timetable ReadTimetable(const OpenTable &openTable, PlanBuilder &builder, IProgress &progress);

} // namespace korvane::planner
