// Series that begin at another time.
#pragma once

#include "agenda/Agenda.h"

#include <variant>

namespace korvane::planner {

/// Moves what a series names along with its start.
class SeriesMove
{
public:
    /// The agenda is observed. One of both starts may be a day.
    SeriesMove(const Agenda &agenda, const AgendaTime &from, const AgendaTime &to)
        : m_agenda(agenda)
        , m_from(from)
        , m_to(to)
    {
    }

    AgendaTime Moved(const AgendaTime &time) const;
    /// Or why a rule cannot be moved.
    std::variant<std::shared_ptr<const AgendaSeries>, QString>
    Moved(const AgendaSeries &series) const;

private:
    const Agenda &m_agenda;
    AgendaTime m_from;
    AgendaTime m_to;
};

/// Puts events that are no part of an agenda yet on other days, so many later or, negative,
/// earlier.
///
/// A series goes along with all that its rules, exceptions and overrides name. A rule that names
/// days of a month or a year, the last Friday perhaps, keeps them: such a series begins on the
/// first one of them from its new day on, for as long as before, and what is said of earlier days
/// is dropped. Where there is none within eight years, the series stays where it is.
void MoveByDays(const Agenda &agenda, std::vector<AgendaEvent> &events, qint64 days);

} // namespace korvane::planner
