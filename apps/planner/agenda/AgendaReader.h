// Calendars in the iCalendar format, RFC 5545.
#pragma once

#include "agenda/Agenda.h"
#include "plan/PlanReader.h"

namespace korvane::planner {

/// Reads the events of all calendars in the text. Tasks, journals and free-busy times are left
/// alone. What cannot be used is remarked on and left out; a text that is no calendar, or ends
/// within one, is refused with PlanRefusal. Ends with PlanCanceled when the watcher wants that.
Agenda ReadAgenda(const QByteArray &text, IProgress &progress);

struct AgendaResult
{
    PlanStatus Status = PlanStatus::Refused;
    Agenda Value;
    QByteArray Text; ///< that it was read from, decompressed
    PlanError Error;
};

/// Whether a file is a calendar, by its content, or by its name where it has none.
bool IsAgendaFile(const QString &fileName);
/// Reads a file, decompressing it where its content is gzip.
AgendaResult LoadAgenda(const QString &fileName, IProgress &progress);

} // namespace korvane::planner
