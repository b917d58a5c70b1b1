// Traces of the jobs of computing clusters in the Standard Workload Format.
#pragma once

#include "plan/PlanReader.h"

namespace korvane::planner {

/// Files of lines with 18 numbers, one per job, after comments with headers. An item is a job, from
/// its start (submitted, and waited) to its end. A row is a node, partition, queue, user or group;
/// in a trace that lists more nodes, or jobs on more of them, than can be shown, nodes are refused,
/// and partitions are the default instead.
///
/// The trace does not say on which nodes a job ran. It is given the free ones with the lowest
/// numbers when it starts; when these are too few, also those that become free soonest, on which
/// jobs then overlap. A job stands on all rows of its nodes, and counts as one item. Where the
/// headers name more processors than nodes, a node has its share of them, and a job has whole
/// nodes.
///
/// A wait that is not known counts as none; a job without a run time is left out. Where the number
/// of processors is not known, those requested count, or one. Times count from the trace's start
/// time in UTC; without it the trace starts with the year 1970.
class ClusterTraceReader final : public IPlanReader
{
public:
    explicit ClusterTraceReader(ReadOptions options = {});

    QString Name() const override;
    QStringList FilePatterns() const override;
    bool CanRead(const QByteArray &head) const override;
    PlanResult Read(QIODevice &source, IProgress &progress) const override;

private:
    ReadOptions m_options;
};

} // namespace korvane::planner
