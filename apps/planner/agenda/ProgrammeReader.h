// Conference programmes as the planning systems of conferences publish them: schedule.xml and the
// JSON with the same content.
#pragma once

#include "agenda/Programme.h"
#include "plan/PlanReader.h"

namespace korvane::planner {

/// What cannot be used is remarked on and left out; a text that is no programme is refused with
/// PlanRefusal. End with PlanCanceled when the watcher wants that.
Programme ReadProgrammeXml(const QByteArray &text, IProgress &progress);
Programme ReadProgrammeJson(const QByteArray &text, IProgress &progress);

struct ProgrammeResult
{
    PlanStatus Status = PlanStatus::Refused;
    Programme Value;
    PlanError Error;
};

/// Whether a file is a programme, by its content.
bool IsProgrammeFile(const QString &fileName);
/// Reads a file, decompressing it where its content is gzip.
ProgrammeResult LoadProgramme(const QString &fileName, IProgress &progress);

} // namespace korvane::planner
