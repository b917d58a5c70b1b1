// What has to be written into the elements of tasks.
#pragma once

#include "plan/MspdiMarkup.h"
#include "plan/PlanDifference.h"

#include <QHash>
#include <QSet>

namespace korvane::planner {

/// Where a task stands in the file.
struct MspdiPlace
{
    std::int64_t Row = 1; ///< blank rows count
    QString OutlineNumber;
};

/// Identifiers of the custom fields that hold what the format has no element for; empty where there
/// is no such field.
struct MspdiCustomFields
{
    QString Color;
    QString Collapsed;
};

/// Makes the fields of a task that differ from the former ones; of a new task all of them.
///
/// With the dates go the durations, the manual dates of tasks scheduled by hand, and what is done
/// of the task. Figures that scheduling works out (slack, early and late dates, work, costs) stay.
class MspdiTaskFields
{
public:
    MspdiTaskFields(const PlanDifference &difference, const MspdiMarkup &markup,
                    const MspdiCustomFields &custom);

    /// `children`: of the task's element in the source; none of a new task. `place` is null when
    /// the outline is as before.
    XmlFields Of(int task, const std::vector<XmlElement> &children, const MspdiPlace *place) const;

    /// In working time of the project's calendar; of a split task without the pauses.
    double WorkingMinutes(const PlanTask &task) const;

private:
    struct Job;

    void AddIdentity(Job &job) const;
    void AddPlace(Job &job, const MspdiPlace &place) const;
    void AddTexts(Job &job) const;
    void AddDates(Job &job) const;
    void AddDone(Job &job) const;
    void AddLimits(Job &job) const;
    void AddFlags(Job &job) const;
    void AddBaseline(Job &job) const;
    void AddCustomValues(Job &job) const;
    void AddLinks(Job &job) const;
    QByteArray Link(const PlanLink &link, const XmlElement *element, const PlanLink *former) const;
    QByteArray CustomValue(const QString &field, const QString &value) const;

    const PlanDifference &m_difference;
    const MspdiMarkup &m_markup;
    const MspdiCustomFields &m_custom;
    QSet<std::int64_t> m_formerUids;
    QSet<std::int64_t> m_uids;
};

} // namespace korvane::planner
