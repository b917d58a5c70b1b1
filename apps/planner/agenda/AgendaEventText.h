// The text of single events of a calendar file.
#pragma once

#include "agenda/Agenda.h"

#include <QDateTime>

namespace korvane::planner {

/// The text of an event that has changed since it was read as `former` from `text`. What has not
/// changed stays to the byte.
QByteArray ChangedEvent(const QByteArray &text, const Agenda &agenda, const AgendaEvent &event,
                        const AgendaEvent &former, const QDateTime &now);
/// The text of a new override, of the rest of a series that was cut in two, or of a copy, which all
/// stem from the event that was read as `model` from `text`.
QByteArray NewEvent(const QByteArray &text, const Agenda &agenda, const AgendaEvent &event,
                    const AgendaEvent &model, const QDateTime &now);
/// The text of an event that stems from none.
QByteArray MadeEvent(const Agenda &agenda, const AgendaEvent &event, const QByteArray &lineEnd,
                     const QDateTime &now);

} // namespace korvane::planner
