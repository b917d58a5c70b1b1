#include "agenda/AgendaEdit.h"

#include "agenda/AgendaRule.h"

#include <QUuid>

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

/// What changes besides the start.
void ApplyTo(AgendaEvent &event, const AgendaChange &change)
{
    event.Length = change.Length;
    event.Place = change.Place.value_or(event.Place);
    event.Calendar = change.Calendar.value_or(event.Calendar);
    ++event.Sequence;
}

/// Whether an event stands for single occurrences of a series.
bool IsOverrideOf(const AgendaEvent &event, const AgendaEvent &series)
{
    return event.Override && event.Calendar == series.Calendar && event.Uid == series.Uid
           && !event.Uid.isEmpty();
}

std::variant<AgendaEdit, QString> ChangeSeries(const Agenda &agenda, int index, AgendaSeconds shift,
                                               const AgendaChange &change)
{
    AgendaEdit edit;
    const AgendaEvent &event = EventAt(agenda, index);
    const AgendaTime from = *event.Start;
    AgendaEvent &moved = edit.Change(agenda, index);
    moved.Start->Wall += shift;
    ApplyTo(moved, change);
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
        if (IsOverrideOf(agenda.Events[i], event)) {
            AgendaEvent &changed = edit.Change(agenda, static_cast<int>(i));
            changed.Override->Of = move.Moved(changed.Override->Of);
            ++changed.Sequence;
        }
    }
    return edit;
}

/// One that comes from the same event of the file.
AgendaEvent CopyOf(const AgendaEvent &event)
{
    AgendaEvent copy = event;
    copy.CopyOf = event.Source >= 0 ? event.Source : event.CopyOf;
    copy.Source = -1;
    return copy;
}

AgendaEvent NewOverride(const Agenda &agenda, const AgendaOccurrence &occurrence)
{
    AgendaEvent event = CopyOf(EventAt(agenda, occurrence.Event));
    event.Series = nullptr;
    event.Override = AgendaOverride{*occurrence.Of, false};
    event.Start = occurrence.Start;
    return event;
}

/// A series that is cut in two before one of its occurrences. It has a single rule, which gives
/// that occurrence.
class SeriesCut
{
public:
    SeriesCut(const Agenda &agenda, const AgendaOccurrence &occurrence)
        : m_agenda(agenda)
        , m_event(EventAt(agenda, occurrence.Series))
        , m_index(occurrence.Series)
        , m_of(*occurrence.Of)
    {
    }

    bool IsPossible() const
    {
        const AgendaSeries &series = *m_event.Series;
        return series.Rules.size() == 1 && series.ExceptRules.empty() && Place().IsGiven
               && std::ranges::none_of(m_agenda.Events, [this](const AgendaEvent &other) {
                      return IsOverrideOf(other, m_event) && other.Override->AndFollowing;
                  });
    }

    std::variant<AgendaEdit, QString> Cut(AgendaSeconds shift, const AgendaChange &change) const
    {
        auto before = std::make_shared<AgendaSeries>(*m_event.Series);
        AgendaSeries after = *m_event.Series;
        before->Rules[0] = RuleBefore(m_agenda, before->Rules[0], m_of);
        after.Rules[0] = RuleFrom(after.Rules[0], Place().Before);
        std::erase_if(before->ExceptDates, [this](const auto &date) { return !IsBefore(date); });
        std::erase_if(after.ExceptDates, [this](const auto &date) { return IsBefore(date); });
        std::erase_if(before->ExtraDates,
                      [this](const auto &date) { return !IsBefore(date.Start); });
        std::erase_if(after.ExtraDates, [this](const auto &date) { return IsBefore(date.Start); });

        AgendaEvent rest = CopyOf(m_event);
        rest.Uid = QUuid::createUuid().toByteArray(QUuid::WithoutBraces);
        rest.Start = m_of;
        rest.Start->Wall += shift;
        ApplyTo(rest, change);
        rest.Sequence = 0;
        const SeriesMove move(m_agenda, m_of, *rest.Start);
        auto series = move.Moved(after);
        if (auto *reason = std::get_if<QString>(&series)) {
            return *reason;
        }
        rest.Series = std::get<std::shared_ptr<const AgendaSeries>>(series);

        AgendaEdit edit;
        AgendaEvent &rump = edit.Change(m_agenda, m_index);
        rump.Series = std::move(before);
        ++rump.Sequence;
        for (std::size_t i = 0; i < m_agenda.Events.size(); ++i) {
            const AgendaEvent &other = m_agenda.Events[i];
            if (IsOverrideOf(other, m_event) && !IsBefore(other.Override->Of)) {
                AgendaEvent &changed = edit.Change(m_agenda, static_cast<int>(i));
                changed.Uid = rest.Uid;
                changed.Override->Of = move.Moved(other.Override->Of);
                ++changed.Sequence;
            }
        }
        edit.Append(m_agenda, std::move(rest));
        return edit;
    }

private:
    AgendaRulePlace Place() const
    {
        return PlaceInRule(m_agenda, m_event.Series->Rules[0], *m_event.Start, m_of.Wall);
    }
    bool IsBefore(const AgendaTime &time) const
    {
        return WallOf(m_agenda, time, *m_event.Start) < m_of.Wall;
    }

    const Agenda &m_agenda;
    const AgendaEvent &m_event;
    int m_index;
    AgendaTime m_of;
};

/// A single event, an override, or an occurrence that becomes one, `andFollowing` for all after it.
std::variant<AgendaEdit, QString> ChangeSingle(const Agenda &agenda,
                                               const AgendaOccurrence &occurrence,
                                               AgendaSeconds wall, const AgendaChange &change,
                                               bool andFollowing)
{
    AgendaEdit edit;
    const AgendaEvent &event = EventAt(agenda, occurrence.Event);
    const bool isOwn = !occurrence.Of || (event.Override && event.Override->Of == *occurrence.Of);
    if (!isOwn && !AgendaOccurrences(agenda).CanBeOverridden(occurrence.Series)) {
        return QStringLiteral(
            "This series has no UID of its own, so that single occurrences cannot "
            "be told from others. The whole series can be moved.");
    }
    AgendaEvent moved = isOwn ? event : NewOverride(agenda, occurrence);
    if (!isOwn) {
        moved.Override->AndFollowing = andFollowing;
    }
    moved.Start->Wall = wall;
    ApplyTo(moved, change);
    if (isOwn) {
        edit.Change(agenda, occurrence.Event) = std::move(moved);
    } else {
        edit.Append(agenda, std::move(moved));
    }
    return edit;
}

std::variant<AgendaEdit, QString> ChangeFollowing(const Agenda &agenda,
                                                  const AgendaOccurrence &occurrence,
                                                  AgendaSeconds wall, const AgendaChange &change)
{
    const AgendaEvent &event = EventAt(agenda, occurrence.Event);
    if (!event.Override) {
        const AgendaSeconds shift = wall - occurrence.Start.Wall;
        const SeriesCut cut(agenda, occurrence);
        std::variant<AgendaEdit, QString> edit;
        if (*occurrence.Of == *event.Start) {
            edit = ChangeSeries(agenda, occurrence.Series, shift, change);
        } else if (cut.IsPossible()) {
            edit = cut.Cut(shift, change);
        } else {
            edit = QString();
        }
        if (std::holds_alternative<AgendaEdit>(edit)) {
            return edit;
        }
    }
    return ChangeSingle(agenda, occurrence, wall, change, true);
}

/// Nothing where the event can stand in the other calendar.
std::optional<QString> ObstacleToCalendar(const Agenda &agenda, const AgendaEvent &event,
                                          int calendar)
{
    if (event.Series != nullptr || event.Override) {
        return QStringLiteral("A series stays in its calendar. Single events can be moved to "
                              "others.");
    }
    const bool isTaken = std::ranges::any_of(agenda.Events, [&](const AgendaEvent &other) {
        return other.Calendar == calendar && !other.Uid.isEmpty() && other.Uid == event.Uid;
    });
    return isTaken ? std::optional(QStringLiteral("That calendar has this event already."))
                   : std::nullopt;
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

std::vector<AgendaScope> ScopesOf(const Agenda &agenda, const AgendaOccurrence &occurrence)
{
    using enum AgendaScope;
    if (occurrence.Series < 0) {
        return {Occurrence};
    }
    const AgendaEvent &event = EventAt(agenda, occurrence.Event);
    if (!event.Override) {
        return {Occurrence, Following, Series};
    }
    const bool isFirst = event.Override->Of == *occurrence.Of;
    return event.Override->AndFollowing && !isFirst ? std::vector{Occurrence, Following}
                                                    : std::vector{Occurrence};
}

std::variant<AgendaEdit, QString> ChangeOccurrence(const Agenda &agenda,
                                                   const AgendaOccurrence &occurrence,
                                                   const AgendaChange &change, AgendaScope scope)
{
    const AgendaEvent &event = EventAt(agenda, occurrence.Event);
    AgendaChange wanted = change;
    if (wanted.Place == event.Place) {
        wanted.Place.reset();
    }
    if (wanted.Calendar == event.Calendar) {
        wanted.Calendar.reset();
    }
    const AgendaSeconds wall =
        occurrence.Start.IsDate ? DayOf(change.Start) * kSecondsPerDay : change.Start;
    if (wall == occurrence.Start.Wall && wanted.Length == occurrence.Length && !wanted.Place
        && !wanted.Calendar) {
        return AgendaEdit();
    }
    if (wanted.Calendar) {
        if (const auto obstacle = ObstacleToCalendar(agenda, event, *wanted.Calendar)) {
            return *obstacle;
        }
    }
    const std::vector<AgendaScope> scopes = ScopesOf(agenda, occurrence);
    const bool isMeant = std::ranges::find(scopes, scope) != scopes.end();
    if (isMeant && scope == AgendaScope::Series) {
        return ChangeSeries(agenda, occurrence.Series, wall - occurrence.Start.Wall, wanted);
    }
    if (isMeant && scope == AgendaScope::Following) {
        return ChangeFollowing(agenda, occurrence, wall, wanted);
    }
    return ChangeSingle(agenda, occurrence, wall, wanted, false);
}

} // namespace korvane::planner
