// Writes calendars in the iCalendar format, RFC 5545.
#pragma once

#include "agenda/Agenda.h"

#include <QDateTime>

namespace korvane::planner {

/// The text that `source` becomes with the changes made to the agenda since it was read from there.
///
/// Only what has changed is written anew: in an event that is a new revision its times, its rules
/// and exceptions, SEQUENCE and DTSTAMP, and LAST-MODIFIED where it has one. All else stays to the
/// byte: other properties and components, their order, folds and line ends. A new override, the
/// rest of a series that was cut in two, and a copy are made of the event they stem from and follow
/// it. What is new, or goes into another calendar, comes last there, with the time zones that are
/// not defined in that calendar. What was removed is left out.
QByteArray WriteAgenda(const Agenda &agenda, const QByteArray &source, const QDateTime &now);

/// Copies of the agenda's events, as CopyOccurrence makes them, as a calendar to be pasted.
QByteArray WriteClip(const Agenda &agenda, const QByteArray &source,
                     const std::vector<AgendaEvent> &events);

/// Writes it beside the file and puts it in its place; compressed when the name ends in ".gz".
/// Returns what went wrong.
std::optional<QString> SaveAgenda(const Agenda &agenda, const QByteArray &source,
                                  const QString &fileName);

} // namespace korvane::planner
