// Plans of the GanttProject program (.gan).
#pragma once

#include "plan/PlanReader.h"

namespace korvane::planner {

/// Old and new versions of the format. Tasks count whole days of the file's calendar: a task ends
/// at the midnight after its last working day, a milestone when it starts. A working day has 1440
/// working minutes. Vacations of resources, costs and the hardness of links are not used.
class GanttProjectReader final : public IPlanReader
{
public:
    QString Name() const override;
    QStringList FilePatterns() const override;
    bool CanRead(const QByteArray &head) const override;
    PlanResult Read(QIODevice &source, IProgress &progress) const override;
};

} // namespace korvane::planner
