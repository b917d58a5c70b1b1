#include "agenda/AgendaEdit.h"

#include "agenda/AgendaRule.h"

#include <algorithm>

namespace korvane::planner {

namespace {

const AgendaEvent &EventAt(const Agenda &agenda, int event)
{
    return agenda.Events[static_cast<std::size_t>(event)];
}

/// Moves what a series names along with its start.
class SeriesMove
{
public:
    SeriesMove(const Agenda &agenda, const AgendaTime &from, const AgendaTime &to)
        : m_agenda(agenda)
        , m_from(from)
        , m_to(to)
    {
    }

    AgendaTime Moved(const AgendaTime &time) const
    {
        AgendaTime moved = time;
        if (time.IsDate || m_from.IsDate) {
            moved.Wall += (DayOf(m_to.Wall) - DayOf(m_from.Wall)) * kSecondsPerDay;
        } else if (time.Zone == m_from.Zone || time.Zone == kFloating || m_from.Zone == kFloating) {
            moved.Wall += m_to.Wall - m_from.Wall;
        } else {
            const AgendaSeconds wall = WallOf(m_agenda, time, m_from) + m_to.Wall - m_from.Wall;
            moved.Wall =
                m_agenda.Zones->ToWall(m_agenda.Zones->ToUtc(wall, m_from.Zone), time.Zone);
        }
        return moved;
    }

    std::variant<std::shared_ptr<const AgendaSeries>, QString>
    Moved(const AgendaSeries &series) const
    {
        auto moved = std::make_shared<AgendaSeries>(series);
        for (std::vector<QByteArray> *rules : {&moved->Rules, &moved->ExceptRules}) {
            for (QByteArray &rule : *rules) {
                auto text = MovedRule(m_agenda, rule, m_from, m_to);
                if (auto *reason = std::get_if<QString>(&text)) {
                    return *reason;
                }
                rule = std::get<QByteArray>(text);
            }
        }
        for (AgendaTime &time : moved->ExceptDates) {
            time = Moved(time);
        }
        for (AgendaExtraDate &date : moved->ExtraDates) {
            date.Start = Moved(date.Start);
        }
        return std::shared_ptr<const AgendaSeries>(std::move(moved));
    }

private:
    const Agenda &m_agenda;
    AgendaTime m_from;
    AgendaTime m_to;
};

std::variant<AgendaEdit, QString> MoveSeries(const Agenda &agenda, int index, AgendaSeconds shift,
                                             const AgendaLength &length)
{
    AgendaEdit edit;
    const AgendaEvent &event = EventAt(agenda, index);
    const AgendaTime from = *event.Start;
    AgendaEvent &moved = edit.Change(agenda, index);
    moved.Start->Wall += shift;
    moved.Length = length;
    ++moved.Sequence;
    if (shift == 0) {
        return edit;
    }
    const SeriesMove move(agenda, from, *moved.Start);
    auto series = move.Moved(*event.Series);
    if (auto *reason = std::get_if<QString>(&series)) {
        return *reason;
    }
    moved.Series = std::get<std::shared_ptr<const AgendaSeries>>(series);
    for (std::size_t i = 0; i < agenda.Events.size(); ++i) {
        const AgendaEvent &other = agenda.Events[i];
        if (other.Override && other.Calendar == event.Calendar && other.Uid == event.Uid) {
            AgendaEvent &changed = edit.Change(agenda, static_cast<int>(i));
            changed.Override->Of = move.Moved(other.Override->Of);
            ++changed.Sequence;
        }
    }
    return edit;
}

AgendaEvent NewOverride(const Agenda &agenda, const AgendaOccurrence &occurrence)
{
    AgendaEvent event = EventAt(agenda, occurrence.Event);
    event.CopyOf = event.Source;
    event.Source = -1;
    event.Series = nullptr;
    event.Override = AgendaOverride{*occurrence.Of, false};
    event.Start = occurrence.Start;
    return event;
}

} // namespace

AgendaEvent &AgendaEdit::Change(const Agenda &agenda, int event)
{
    auto place = std::ranges::find(m_changes, event, &Place::Event);
    if (place == m_changes.end()) {
        place = m_changes.insert(place, {event, EventAt(agenda, event)});
    }
    return *place->Value;
}

void AgendaEdit::Append(const Agenda &agenda, AgendaEvent event)
{
    m_changes.push_back({static_cast<int>(agenda.Events.size()), std::move(event)});
}

void AgendaEdit::SwapWith(Agenda &agenda)
{
    for (Place &place : m_changes) {
        const auto index = static_cast<std::size_t>(place.Event);
        if (index == agenda.Events.size()) {
            agenda.Events.push_back(std::move(*place.Value));
            place.Value.reset();
        } else if (!place.Value) {
            place.Value = std::move(agenda.Events[index]);
            agenda.Events.pop_back();
        } else {
            std::swap(*place.Value, agenda.Events[index]);
        }
    }
}

bool IsRepeated(const Agenda &agenda, const AgendaOccurrence &occurrence)
{
    return occurrence.Series >= 0 && !EventAt(agenda, occurrence.Event).Override;
}

std::variant<AgendaEdit, QString> MoveOccurrence(const Agenda &agenda,
                                                 const AgendaOccurrence &occurrence,
                                                 AgendaSeconds start, const AgendaLength &length,
                                                 AgendaScope scope)
{
    const AgendaSeconds wall = occurrence.Start.IsDate ? DayOf(start) * kSecondsPerDay : start;
    if (wall == occurrence.Start.Wall && length == occurrence.Length) {
        return AgendaEdit();
    }
    if (IsRepeated(agenda, occurrence) && scope == AgendaScope::Series) {
        return MoveSeries(agenda, occurrence.Series, wall - occurrence.Start.Wall, length);
    }
    AgendaEdit edit;
    const AgendaEvent &event = EventAt(agenda, occurrence.Event);
    const bool isOwn = !occurrence.Of || (event.Override && event.Override->Of == *occurrence.Of);
    if (!isOwn && !AgendaOccurrences(agenda).CanBeOverridden(occurrence.Series)) {
        return QStringLiteral(
            "This series has no UID of its own, so that single occurrences cannot "
            "be told from others. The whole series can be moved.");
    }
    AgendaEvent moved = isOwn ? event : NewOverride(agenda, occurrence);
    moved.Start->Wall = wall;
    moved.Length = length;
    ++moved.Sequence;
    if (isOwn) {
        edit.Change(agenda, occurrence.Event) = std::move(moved);
    } else {
        edit.Append(agenda, std::move(moved));
    }
    return edit;
}

} // namespace korvane::planner
