// Recurrence rules of series that are moved, cut, or made in a form.
#pragma once

#include "agenda/Agenda.h"

#include <variant>

namespace korvane::planner {

/// The rule of a series that starts at `to` instead of `from`, so that it gives the same
/// occurrences, all moved by that time; or why there is none. One of both may be a day.
std::variant<QByteArray, QString> MovedRule(const Agenda &agenda, const QByteArray &rule,
                                            const AgendaTime &from, const AgendaTime &to);

/// The rule with what it says of days and times as it is; only its last day moves.
QByteArray RuleWithMovedEnd(const Agenda &agenda, const QByteArray &rule, const AgendaTime &from,
                            const AgendaTime &to);

/// The part of a rule that ends before an occurrence, given by the wall clock of its start; one
/// that ends earlier on its own stays.
QByteArray RuleBefore(const Agenda &agenda, const QByteArray &rule, const AgendaTime &start,
                      const AgendaTime &of);
/// The rest of it, to start at that occurrence when so many have come before.
QByteArray RuleFrom(const QByteArray &rule, int before);
/// The rule that an unfolded line holds, as the reader gives it; empty where it cannot be used.
QByteArray RuleOfLine(const QByteArray &line);

enum class AgendaRepeat : std::uint8_t {
    Never,
    Daily,
    Weekly,
    Monthly,
    Yearly,
    Other, ///< in a way that AgendaSimpleRule cannot say
};

/// A rule as a form shows it.
struct AgendaSimpleRule
{
    AgendaRepeat Repeat = AgendaRepeat::Never;
    int Interval = 1;
    unsigned Weekdays = 0;                   ///< bit 0 is Monday; 0 is the weekday of the start
    int Count = 0;                           ///< of all occurrences; 0 sets no limit
    std::optional<AgendaSeconds> Until = {}; ///< midnight of the last day, by the wall clock

    friend bool operator==(const AgendaSimpleRule &, const AgendaSimpleRule &) = default;
};

AgendaSimpleRule SimpleRuleOf(const Agenda &agenda, const AgendaEvent &event);
/// The text of the rule for a series with that start; empty for Never and Other.
QByteArray RuleText(const Agenda &agenda, const AgendaSimpleRule &rule, const AgendaTime &start);
/// Moves the start of a series that no rule gives to the first day on which its weekly rule does.
void StartOnRule(const Agenda &agenda, AgendaEvent &series);

/// "20261102", "20261102T080000" or "20261102T080000Z".
QByteArray IcalText(const AgendaTime &time);

} // namespace korvane::planner
