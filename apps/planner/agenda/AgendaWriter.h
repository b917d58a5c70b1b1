// Writes calendars in the iCalendar format, RFC 5545.
#pragma once

#include "agenda/Agenda.h"

#include <QDateTime>

namespace korvane::planner {

/// The text that `source` becomes with the changes made to the agenda since it was read from there.
///
/// Only what has changed is written anew: in an event that is a new revision its times, its rules
/// and exceptions, SEQUENCE and DTSTAMP, and LAST-MODIFIED where it has one. All else stays to the
/// byte: other properties and components, their order, folds and line ends. A new override, and the
/// rest of a series that was cut in two, is a copy of the event it stems from and follows it. An
/// event that goes into another calendar takes along the time zones that are not defined there.
QByteArray WriteAgenda(const Agenda &agenda, const QByteArray &source, const QDateTime &now);

/// Writes it beside the file and puts it in its place; compressed when the name ends in ".gz".
/// Returns what went wrong.
std::optional<QString> SaveAgenda(const Agenda &agenda, const QByteArray &source,
                                  const QString &fileName);

} // namespace korvane::planner
