#include "agenda/AgendaEdit.h"

#include "agenda/AgendaRule.h"
#include "agenda/SeriesMove.h"
#include "plan/PlannerText.h"

#include <QUuid>

#include <algorithm>

namespace korvane::planner {

namespace {

AgendaTime MovedStart(const AgendaTime &start, AgendaSeconds wall, const AgendaChange &change)
{
    AgendaTime moved{wall, start.Zone, start.IsDate};
    if (change.SwitchesAllDay) {
        moved.IsDate = !start.IsDate;
        moved.Zone = moved.IsDate ? kFloating : change.Zone;
    }
    return moved;
}

/// What changes besides the start and the rules.
void ApplyTo(AgendaEvent &event, const AgendaChange &change)
{
    event.Length = change.Length;
    event.Place = change.Place.value_or(event.Place);
    event.Calendar = change.Calendar.value_or(event.Calendar);
    event.Title = change.Title.value_or(event.Title);
    event.Notes = change.Notes.value_or(event.Notes);
    if (change.SwitchesAllDay) {
        event.EndZone = event.Start->Zone;
    }
    ++event.Sequence;
}

/// The series with another rule; null where it is to have none.
std::shared_ptr<const AgendaSeries> WithRule(AgendaSeries series, const QByteArray &rule)
{
    if (rule.isEmpty()) {
        return nullptr;
    }
    series.Rules = {rule};
    return std::make_shared<const AgendaSeries>(std::move(series));
}

/// An override that goes along with its series, which was `former`. Texts that were those of the
/// series become its new ones.
AgendaEvent Followed(const AgendaEvent &override, const AgendaEvent &former,
                     const AgendaEvent &series, const SeriesMove &move)
{
    AgendaEvent followed = override;
    followed.Override->Of = move.Moved(override.Override->Of);
    followed.Uid = series.Uid;
    followed.Calendar = series.Calendar;
    for (const auto text : {&AgendaEvent::Title, &AgendaEvent::Place, &AgendaEvent::Notes}) {
        if (override.*text == former.*text) {
            followed.*text = series.*text;
        }
    }
    followed.IsRemoved = series.Series == nullptr;
    followed.Sequence += followed == override ? 0 : 1;
    return followed;
}

std::variant<AgendaEdit, QString> ChangeSeries(const Agenda &agenda, int index, AgendaSeconds shift,
                                               const AgendaChange &change)
{
    AgendaEdit edit;
    const AgendaEvent &event = agenda.At(index);
    const AgendaTime from = *event.Start;
    AgendaEvent &moved = edit.Change(agenda, index);
    moved.Start = MovedStart(from, from.Wall + shift, change);
    ApplyTo(moved, change);
    const SeriesMove move(agenda, from, *moved.Start);
    AgendaSeries former = event.Series != nullptr ? *event.Series : AgendaSeries();
    if (change.Rule) {
        former.Rules.clear();
    }
    auto series = move.Moved(former);
    if (auto *reason = std::get_if<QString>(&series)) {
        return *reason;
    }
    moved.Series = std::get<std::shared_ptr<const AgendaSeries>>(series);
    if (change.Rule) {
        moved.Series = WithRule(*moved.Series, *change.Rule);
        StartOnRule(agenda, moved);
    }
    const AgendaEvent changed = moved; // more changes may move it
    for (std::size_t i = 0; i < agenda.Events.size(); ++i) {
        const AgendaEvent &other = agenda.Events[i];
        if (!IsOverrideOf(other, event)) {
            continue;
        }
        if (AgendaEvent followed = Followed(other, event, changed, move); followed != other) {
            edit.Change(agenda, static_cast<int>(i)) = std::move(followed);
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

/// Where single occurrences cannot be told from others.
QString NoUid()
{
    return PlannerText::tr("This series has no UID of its own, so that single occurrences cannot "
                           "be told from others. The whole series can be changed.");
}

AgendaEvent NewOverride(const Agenda &agenda, const AgendaOccurrence &occurrence)
{
    AgendaEvent event = CopyOf(agenda.At(occurrence.Event));
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
        , m_event(agenda.At(occurrence.Series))
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
        before->Rules[0] = RuleBefore(m_agenda, before->Rules[0], *m_event.Start, m_of);
        after.Rules[0] = RuleFrom(after.Rules[0], Place().Before);
        std::erase_if(before->ExceptDates, [this](const auto &date) { return !IsBefore(date); });
        std::erase_if(after.ExceptDates, [this](const auto &date) { return IsBefore(date); });
        std::erase_if(before->ExtraDates,
                      [this](const auto &date) { return !IsBefore(date.Start); });
        std::erase_if(after.ExtraDates, [this](const auto &date) { return IsBefore(date.Start); });

        AgendaEvent rest = CopyOf(m_event);
        rest.Uid = NewUid();
        rest.Start = MovedStart(m_of, m_of.Wall + shift, change);
        ApplyTo(rest, change);
        rest.Sequence = 0;
        const SeriesMove move(m_agenda, m_of, *rest.Start);
        if (change.Rule) {
            after.Rules.clear();
        }
        auto series = move.Moved(after);
        if (auto *reason = std::get_if<QString>(&series)) {
            return *reason;
        }
        rest.Series = std::get<std::shared_ptr<const AgendaSeries>>(series);
        if (change.Rule) {
            rest.Series = WithRule(*rest.Series, *change.Rule);
            StartOnRule(m_agenda, rest);
        }

        AgendaEdit edit;
        AgendaEvent &rump = edit.Change(m_agenda, m_index);
        rump.Series = std::move(before);
        ++rump.Sequence;
        for (std::size_t i = 0; i < m_agenda.Events.size(); ++i) {
            const AgendaEvent &other = m_agenda.Events[i];
            if (IsOverrideOf(other, m_event) && !IsBefore(other.Override->Of)) {
                edit.Change(m_agenda, static_cast<int>(i)) = Followed(other, m_event, rest, move);
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
    const AgendaEvent &event = agenda.At(occurrence.Event);
    const bool isOwn = !occurrence.Of || (event.Override && event.Override->Of == *occurrence.Of);
    if (!isOwn && !AgendaOccurrences(agenda).CanBeOverridden(occurrence.Series)) {
        return NoUid();
    }
    AgendaEvent moved = isOwn ? event : NewOverride(agenda, occurrence);
    if (!isOwn) {
        moved.Override->AndFollowing = andFollowing;
    }
    moved.Start = MovedStart(*moved.Start, wall, change);
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
    const AgendaEvent &event = agenda.At(occurrence.Event);
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
    if (change.Rule || change.Calendar) {
        return PlannerText::tr("This series cannot be cut in two here. It can be changed as a "
                               "whole.");
    }
    return ChangeSingle(agenda, occurrence, wall, change, true);
}

/// Nothing where what is meant can stand in the other calendar.
std::optional<QString> ObstacleToCalendar(const Agenda &agenda, const AgendaEvent &event,
                                          int calendar, AgendaScope scope)
{
    const bool isPart =
        event.Override || (event.Series != nullptr && scope == AgendaScope::Occurrence);
    if (isPart) {
        return PlannerText::tr("One occurrence stays in the calendar of its series. The whole "
                               "series can be moved to another one.");
    }
    if (scope == AgendaScope::Following) {
        return std::nullopt; // with a UID of their own
    }
    const bool isTaken = std::ranges::any_of(agenda.Events, [&](const AgendaEvent &other) {
        return other.Calendar == calendar && !other.IsRemoved && !other.Uid.isEmpty()
               && other.Uid == event.Uid;
    });
    return isTaken ? std::optional(PlannerText::tr("That calendar has this event already."))
                   : std::nullopt;
}

} // namespace

AgendaEvent &AgendaEdit::Change(const Agenda &agenda, int event)
{
    auto place = std::ranges::find(m_changes, event, &Place::Event);
    if (place == m_changes.end()) {
        place = m_changes.insert(place, {event, agenda.At(event)});
    }
    return *place->Value;
}

std::vector<int> AgendaEdit::Events() const
{
    std::vector<int> events;
    for (const Place &place : m_changes) {
        events.push_back(place.Event);
    }
    return events;
}

void AgendaEdit::Append(const Agenda &agenda, AgendaEvent event)
{
    const int end = static_cast<int>(agenda.Events.size());
    const auto before =
        std::ranges::count_if(m_changes, [end](const Place &place) { return place.Event >= end; });
    m_changes.push_back({end + static_cast<int>(before), std::move(event)});
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
    std::ranges::reverse(m_changes); // what came last goes first
}

std::vector<AgendaScope> ScopesOf(const Agenda &agenda, const AgendaOccurrence &occurrence)
{
    using enum AgendaScope;
    if (occurrence.Series < 0) {
        return {Occurrence};
    }
    const AgendaEvent &event = agenda.At(occurrence.Event);
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
    const AgendaEvent &event = agenda.At(occurrence.Event);
    AgendaChange wanted = change;
    const auto keepOnly = [](auto &value, const auto &former) {
        if (value == former) {
            value.reset();
        }
    };
    keepOnly(wanted.Place, event.Place);
    keepOnly(wanted.Calendar, event.Calendar);
    keepOnly(wanted.Title, event.Title);
    keepOnly(wanted.Notes, event.Notes);
    const bool becomesDate = occurrence.Start.IsDate != change.SwitchesAllDay;
    const AgendaSeconds wall = becomesDate ? DayOf(change.Start) * kSecondsPerDay : change.Start;
    if (wall == occurrence.Start.Wall && wanted.Length == occurrence.Length && !wanted.Place
        && !wanted.Calendar && !wanted.Title && !wanted.Notes && !wanted.Rule
        && !wanted.SwitchesAllDay) {
        return AgendaEdit();
    }
    const std::vector<AgendaScope> scopes = ScopesOf(agenda, occurrence);
    const bool isMeant = std::ranges::find(scopes, scope) != scopes.end();
    const AgendaScope meant = isMeant ? scope : AgendaScope::Occurrence;
    if (wanted.Calendar) {
        if (const auto obstacle = ObstacleToCalendar(agenda, event, *wanted.Calendar, meant)) {
            return *obstacle;
        }
    }
    if (meant == AgendaScope::Series) {
        return ChangeSeries(agenda, occurrence.Series, wall - occurrence.Start.Wall, wanted);
    }
    if (meant == AgendaScope::Following) {
        return ChangeFollowing(agenda, occurrence, wall, wanted);
    }
    if (wanted.Rule && occurrence.Series < 0 && !event.Override) {
        return ChangeSeries(agenda, occurrence.Event, wall - occurrence.Start.Wall, wanted);
    }
    return ChangeSingle(agenda, occurrence, wall, wanted, false);
}

AgendaEvent SingleEventLike(const Agenda &agenda, const AgendaOccurrence &occurrence)
{
    AgendaEvent copy = CopyOf(agenda.At(occurrence.Event));
    copy.Uid = NewUid();
    copy.Series = nullptr;
    copy.Override.reset();
    copy.Start = occurrence.Start;
    copy.Length = occurrence.Length;
    copy.Sequence = 0;
    return copy;
}

AgendaEdit CopyOccurrence(const Agenda &agenda, const AgendaOccurrence &occurrence,
                          const AgendaChange &change)
{
    AgendaEvent copy = SingleEventLike(agenda, occurrence);
    copy.Start->Wall = copy.IsAllDay() ? DayOf(change.Start) * kSecondsPerDay : change.Start;
    ApplyTo(copy, change);
    copy.Sequence = 0;
    AgendaEdit edit;
    edit.Append(agenda, std::move(copy));
    return edit;
}

QByteArray NewUid()
{
    return QUuid::createUuid().toByteArray(QUuid::WithoutBraces);
}

} // namespace korvane::planner
