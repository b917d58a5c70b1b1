// Recurrence rules of series that are moved.
#pragma once

#include "agenda/Agenda.h"

#include <variant>

namespace korvane::planner {

/// The rule of a series that starts at `to` instead of `from`, so that it gives the same
/// occurrences, all moved by that time; or why there is none.
std::variant<QByteArray, QString> MovedRule(const Agenda &agenda, const QByteArray &rule,
                                            const AgendaTime &from, const AgendaTime &to);

/// The part of a rule that ends before an occurrence, given by the wall clock of its start.
QByteArray RuleBefore(const Agenda &agenda, const QByteArray &rule, const AgendaTime &of);
/// The rest of it, to start at that occurrence when so many have come before.
QByteArray RuleFrom(const QByteArray &rule, int before);
/// The rule that an unfolded line holds, as the reader gives it; empty where it cannot be used.
QByteArray RuleOfLine(const QByteArray &line);

/// "20261102", "20261102T080000" or "20261102T080000Z".
QByteArray IcalText(const AgendaTime &time);

} // namespace korvane::planner
