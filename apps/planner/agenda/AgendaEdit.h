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
    /// What it changes, by their indices.
    std::vector<int> Events() const;

private:
    struct Place
    {
        int Event = 0;
        std::optional<AgendaEvent> Value; ///< nothing where there is none yet
    };

    std::vector<Place> m_changes;
};

/// Of an occurrence that is repeated, what a change of it is meant for.
enum class AgendaScope : std::uint8_t { Occurrence, Following, Series };

/// What can be meant by a change of the occurrence; more than one where the user is to be asked.
std::vector<AgendaScope> ScopesOf(const Agenda &agenda, const AgendaOccurrence &occurrence);

/// What an occurrence becomes.
struct AgendaChange
{
    AgendaSeconds Start = 0; ///< by the wall clock of its own zone
    AgendaLength Length;
    std::optional<QString> Place; ///< nothing leaves it where it is; the same below
    std::optional<int> Calendar;
    std::optional<QString> Title = {};
    std::optional<QString> Notes = {};
    std::optional<QByteArray> Rule = {}; ///< of the series from then on; empty for a single event
    /// An all-day event becomes one with times, and the other way round.
    bool SwitchesAllDay = false;
    int Zone = kFloating; ///< of the start that an all-day event gets then
};

/// Moves, stretches or describes an occurrence. All-day events stay on whole days.
///
/// One occurrence of a series becomes an override. From an occurrence on, the series is cut in two:
/// it ends before, and a new one with a UID of its own begins; where its rules cannot be cut, an
/// override holds for all that follow. The series as a whole is moved by the same time; what its
/// rules, exceptions and overrides name moves with it, but occurrences that have been moved on
/// their own stay where they are, and what is said of them otherwise stays as well. The first
/// occurrence of an override that holds for all that follow moves these as well. Into another
/// calendar go single events and whole series, with all that stands for their occurrences. Every
/// change makes a new revision.
///
/// Returns why that cannot be done where it cannot: when the rule of a series names days or times
/// of day that have nothing to do with its start, for example.
std::variant<AgendaEdit, QString> ChangeOccurrence(const Agenda &agenda,
                                                   const AgendaOccurrence &occurrence,
                                                   const AgendaChange &change, AgendaScope scope);

/// Removes an occurrence; of a series it becomes an exception. From an occurrence on, the rules end
/// before it. With a series goes what stands for its occurrences.
AgendaEdit RemoveOccurrence(const Agenda &agenda, const AgendaOccurrence &occurrence,
                            AgendaScope scope);
/// A new single event like an occurrence, which is no part of an agenda yet.
AgendaEvent SingleEventLike(const Agenda &agenda, const AgendaOccurrence &occurrence);
/// Adds such an event, elsewhere.
AgendaEdit CopyOccurrence(const Agenda &agenda, const AgendaOccurrence &occurrence,
                          const AgendaChange &change);
/// A UID that no other event has.
QByteArray NewUid();

} // namespace korvane::planner
