// Project plans in the XML interchange format with the namespace
// http://schemas.microsoft.com/project.
#pragma once

#include "plan/PlanReader.h"

namespace korvane::planner {

/// Reads the plan, not the figures: costs, work and custom fields are skipped. The project summary
/// task (UID 0) and blank rows (IsNull) are left out. Accepts any prefix for the namespace, and
/// none at all.
class MspdiReader final : public IPlanReader
{
public:
    QString Name() const override;
    QStringList FilePatterns() const override;
    bool CanRead(const QByteArray &head) const override;
    bool IsWritten() const override { return true; }
    PlanResult Read(QIODevice &source, IProgress &progress) const override;
};

} // namespace korvane::planner
