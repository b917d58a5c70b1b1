// Recurrence rules of series that are moved.
#pragma once

#include "agenda/Agenda.h"

#include <variant>

namespace korvane::planner {

/// The rule of a series that starts at `to` instead of `from`, so that it gives the same
/// occurrences, all moved by that time; or why there is none.
std::variant<QByteArray, QString> MovedRule(const Agenda &agenda, const QByteArray &rule,
                                            const AgendaTime &from, const AgendaTime &to);

/// "20261102", "20261102T080000" or "20261102T080000Z".
QByteArray IcalText(const AgendaTime &time);

} // namespace korvane::planner
