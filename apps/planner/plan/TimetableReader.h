// Timetables of public transport as GTFS tables.
#pragma once

#include "plan/PlanReader.h"

namespace korvane::planner {

/// A folder of tables (trips.txt, stop_times.txt and others), or a zip archive of one. A row is a
/// route or a vehicle's block ("route", "block"): blocks where any trip names one, else routes.
/// Rows without a trip are left out. An item is a trip, from its first time to its last.
///
/// A given day shows the trips that run on it. Without one the week is shown in which most trips
/// run, the first such week, and every trip once: on the first of its days there. Times count from
/// the midnight at which the service day begins, so that 25:10 is ten past one on the next day.
/// Wall clocks are shown; frequencies.txt, which repeats trips, is not used.
class TimetableReader final : public IPlanReader
{
public:
    explicit TimetableReader(ReadOptions options = {});

    QString Name() const override;
    QStringList FilePatterns() const override;
    bool CanRead(const QByteArray &head) const override;
    PlanResult Read(QIODevice &source, IProgress &progress) const override;
    bool CanReadFolder(const QString &path) const override;
    PlanResult ReadFolder(const QString &path, IProgress &progress) const override;

private:
    ReadOptions m_options;
};

} // namespace korvane::planner
