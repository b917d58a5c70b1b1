// What has to be written about assignments.
#pragma once

#include "plan/MspdiTaskFields.h"

#include <QHash>

namespace korvane::planner {

/// Tells which elements of assignments stay and which are new. The work that they spread over time
/// is what tells the parts of split tasks; where the dates of a task have changed it is dropped,
/// and for a split task written anew.
class MspdiAssignments
{
public:
    MspdiAssignments(const PlanDifference &difference, const MspdiMarkup &markup,
                     const MspdiTaskFields &tasks);

    /// To be called for every element of the source, in order. The element as it is to be written;
    /// nothing when it has to go.
    std::optional<QByteArray> Renewed(const XmlElement &element);
    /// The elements to be added; after all of the source have been renewed.
    std::vector<QByteArray> Added();

private:
    using Key = std::pair<std::int64_t, std::int64_t>; ///< UIDs of task and resource

    QByteArray New(int task, std::int64_t resourceUid, double units);
    void AddTimes(XmlFields &fields, int task, std::int64_t uid, double units) const;
    QByteArray Timephased(const PlanSpan &span, double minutes, std::int64_t uid) const;

    const PlanDifference &m_difference;
    const MspdiMarkup &m_markup;
    const MspdiTaskFields &m_tasks;
    QHash<Key, std::vector<int>> m_former;  ///< indices of assignments, the first one last
    QHash<Key, std::vector<int>> m_current; ///< likewise
    QHash<std::int64_t, int> m_formerTask;  ///< the first one of each UID
    std::vector<bool> m_hasAssignment;      ///< per task of the plan
    std::int64_t m_lastUid = 0;
};

} // namespace korvane::planner
