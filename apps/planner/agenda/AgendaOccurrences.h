// When the events of an agenda take place.
#pragma once

#include "agenda/Agenda.h"

#include <QHash>
#include <QSet>

namespace korvane::planner {

/// From From up to, not including, To.
struct AgendaRange
{
    AgendaSeconds From = 0;
    AgendaSeconds To = 0;

    friend bool operator==(const AgendaRange &, const AgendaRange &) = default;
};

/// The years 1 to 4000.
inline constexpr AgendaRange kWholeAgenda{-62'135'596'800, 64'092'211'200};

struct AgendaOccurrence
{
    int Event = 0; ///< index of the event whose texts it has
    AgendaTime Start;
    AgendaLength Length;
    /// Which occurrence of its series it is, by that one's own start; nothing for single events.
    std::optional<AgendaTime> Of;
    int Series = -1; ///< the event that is repeated; -1 for single events
};

/// Finds the occurrences of an agenda's events. Rules without an end are followed as far as the
/// range asked for; rules that would take more than half a million steps there are left
/// after those.
///
/// An event starts on its start, whether or not its rules name that. Exceptions and overrides are
/// told by the moment they name, however that is written; one that names a day means all
/// occurrences on it. Of several overrides of an occurrence the one of the highest revision holds.
class AgendaOccurrences
{
public:
    /// The agenda is observed and does not change meanwhile.
    explicit AgendaOccurrences(const Agenda &agenda);

    /// What starts in the range by the event's own wall clock, in the order of the events.
    std::vector<AgendaOccurrence> StartingIn(const AgendaRange &range) const;
    /// The same of one event, and of what stands for its occurrences when it is a series.
    std::vector<AgendaOccurrence> StartingIn(const AgendaRange &range, int event) const;
    /// Whether single occurrences of a series can be told by others than itself. That takes a UID,
    /// and one that no other series of the calendar has.
    bool CanBeOverridden(int series) const;
    /// Whether there is a rule that never ends.
    bool IsEndless() const;

private:
    class Series;
    void RemoveSuperseded(std::vector<int> &overrides);
    void Add(const AgendaRange &range, int event, std::vector<AgendaOccurrence> &found) const;

    const Agenda &m_agenda;
    /// Of those that share a UID the one that overrides belong to, and these.
    QHash<std::pair<int, QByteArray>, int> m_masters;
    QHash<std::pair<int, QByteArray>, std::vector<int>> m_overrides;
    QSet<std::pair<int, QByteArray>> m_ambiguous; ///< shared by several series
    QSet<int> m_superseded;                       ///< overrides that others have taken the place of
};

/// How many starts a rule gives before a moment by the wall clock of its event, and whether it
/// gives that one.
struct AgendaRulePlace
{
    int Before = 0;
    bool IsGiven = false;
};
AgendaRulePlace PlaceInRule(const Agenda &agenda, const QByteArray &rule, const AgendaTime &start,
                            AgendaSeconds wall);

/// The moment on the wall that the start's zone has when it is `time`; exceptions and overrides are
/// compared by it.
AgendaSeconds WallOf(const Agenda &agenda, const AgendaTime &time, const AgendaTime &start);
/// UTC; of floating times the wall clock.
AgendaSeconds EndOf(const Agenda &agenda, const AgendaTime &start, const AgendaLength &length);

} // namespace korvane::planner
