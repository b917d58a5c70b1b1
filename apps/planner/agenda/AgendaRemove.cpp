// What becomes of an agenda when occurrences are removed.
#include "agenda/AgendaEdit.h"
#include "agenda/AgendaRule.h"

#include <algorithm>

namespace korvane::planner {

namespace {

/// The removal of one occurrence, or of all from there on, from a series.
class SeriesRemoval
{
public:
    SeriesRemoval(const Agenda &agenda, const AgendaOccurrence &occurrence)
        : m_agenda(agenda)
        , m_event(agenda.At(occurrence.Series))
        , m_occurrence(occurrence)
        , m_of(WallOf(agenda, *occurrence.Of, *m_event.Start))
    {
    }

    AgendaEdit All()
    {
        m_edit.Change(m_agenda, m_occurrence.Series).IsRemoved = true;
        RemoveOverrides([](const AgendaTime &) { return true; });
        return std::move(m_edit);
    }

    /// The rules go on up to the occurrence.
    AgendaEdit Following()
    {
        const auto isMeant = [this](const AgendaTime &time) { return !IsBefore(time); };
        AgendaSeries series = *m_event.Series;
        for (QByteArray &rule : series.Rules) {
            AgendaTime of = *m_event.Start;
            of.Wall = m_of;
            rule = RuleBefore(m_agenda, rule, *m_event.Start, of);
        }
        std::erase_if(series.ExceptDates, isMeant);
        std::erase_if(series.ExtraDates, [&](const auto &date) { return isMeant(date.Start); });
        if (!IsBefore(*m_event.Start) && series.ExtraDates.empty()) {
            return All();
        }
        if (!IsBefore(*m_event.Start)) { // what is left are dates before the start
            series.ExceptDates.push_back(*m_event.Start);
        }
        Put(std::move(series));
        RemoveOverrides(isMeant);
        return std::move(m_edit);
    }

    AgendaEdit One()
    {
        AgendaSeries series = *m_event.Series;
        series.ExceptDates.push_back(*m_occurrence.Of);
        Put(std::move(series));
        const AgendaEvent &shown = m_agenda.At(m_occurrence.Event);
        if (!shown.Override || shown.Override->Of != *m_occurrence.Of) {
            return std::move(m_edit);
        }
        AgendaEvent &override = m_edit.Change(m_agenda, m_occurrence.Event);
        const auto next = shown.Override->AndFollowing ? NextOfOverride() : std::nullopt;
        if (next) { // it goes on to stand for those that follow
            override.Start = next->Start;
            override.Override->Of = *next->Of;
            ++override.Sequence;
        } else {
            override.IsRemoved = true;
        }
        return std::move(m_edit);
    }

private:
    bool IsBefore(const AgendaTime &time) const
    {
        return WallOf(m_agenda, time, *m_event.Start) < m_of;
    }

    void Put(AgendaSeries series)
    {
        AgendaEvent &event = m_edit.Change(m_agenda, m_occurrence.Series);
        event.Series = std::make_shared<const AgendaSeries>(std::move(series));
        ++event.Sequence;
    }

    /// Where others share the UID, it cannot be told whose they are.
    template <typename Condition>
    void RemoveOverrides(const Condition &isMeant)
    {
        if (!AgendaOccurrences(m_agenda).CanBeOverridden(m_occurrence.Series)) {
            return;
        }
        for (std::size_t i = 0; i < m_agenda.Events.size(); ++i) {
            const AgendaEvent &other = m_agenda.Events[i];
            if (IsOverrideOf(other, m_event) && isMeant(other.Override->Of)) {
                m_edit.Change(m_agenda, static_cast<int>(i)).IsRemoved = true;
            }
        }
    }

    std::optional<AgendaOccurrence> NextOfOverride() const
    {
        constexpr AgendaSeconds kReach = 20 * 366 * kSecondsPerDay;
        const AgendaSeconds from = m_occurrence.Start.Wall;
        std::optional<AgendaOccurrence> next;
        for (const AgendaOccurrence &one :
             AgendaOccurrences(m_agenda).StartingIn({from, from + kReach}, m_occurrence.Series)) {
            const bool isLater = one.Event == m_occurrence.Event && !IsBefore(*one.Of)
                                 && *one.Of != *m_occurrence.Of;
            if (isLater && (!next || one.Start.Wall < next->Start.Wall)) {
                next = one;
            }
        }
        return next;
    }

    const Agenda &m_agenda;
    const AgendaEvent &m_event;
    const AgendaOccurrence &m_occurrence;
    AgendaSeconds m_of = 0; ///< by the wall clock of the series
    AgendaEdit m_edit;
};

} // namespace

AgendaEdit RemoveOccurrence(const Agenda &agenda, const AgendaOccurrence &occurrence,
                            AgendaScope scope)
{
    if (occurrence.Series < 0) {
        AgendaEdit edit;
        edit.Change(agenda, occurrence.Event).IsRemoved = true;
        return edit;
    }
    SeriesRemoval removal(agenda, occurrence);
    return scope == AgendaScope::Series      ? removal.All()
           : scope == AgendaScope::Following ? removal.Following()
                                             : removal.One();
}

} // namespace korvane::planner
