// What the user does to the events of an agenda.
#pragma once

#include "agenda/AgendaOccurrences.h"

#include <variant>

namespace korvane::planner {

/// Events that take the place of others; new ones have the indices behind the last.
class AgendaEdit
{
public:
    /// One change of an event follows another on the same one.
    AgendaEvent &Change(const Agenda &agenda, int event);
    void Append(const Agenda &agenda, AgendaEvent event);

    /// Puts the events in their places and keeps those that were there, so that the second call
    /// undoes the first.
    void SwapWith(Agenda &agenda);
    bool IsEmpty() const { return m_changes.empty(); }

private:
    struct Place
    {
        int Event = 0;
        std::optional<AgendaEvent> Value; ///< nothing where there is none yet
    };

    std::vector<Place> m_changes;
};

enum class AgendaScope : std::uint8_t { Occurrence, Series };

/// Whether an occurrence is one of several, so that the user may mean all of them.
bool IsRepeated(const Agenda &agenda, const AgendaOccurrence &occurrence);

/// Moves or stretches an occurrence: it then starts at `start` by the wall clock of its own zone.
/// All-day events stay on whole days.
///
/// One occurrence of a series becomes an override. The series as a whole is moved by the same
/// time; what its rules, exceptions and overrides name moves with it, but occurrences that have
/// been moved on their own stay where they are. The first occurrence of an override that holds for
/// all that follow moves these as well. Every change makes a new revision.
///
/// Returns why that cannot be done where it cannot: when the rule of a series names days or times
/// of day that have nothing to do with its start.
std::variant<AgendaEdit, QString> MoveOccurrence(const Agenda &agenda,
                                                 const AgendaOccurrence &occurrence,
                                                 AgendaSeconds start, const AgendaLength &length,
                                                 AgendaScope scope);

} // namespace korvane::planner
