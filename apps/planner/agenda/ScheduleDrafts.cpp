// Events of calendars that come from a form or from the clipboard.
#include "agenda/IcalText.h"
#include "agenda/SchedulePage.h"
#include "agenda/SeriesMove.h"

#include <QHash>

#include <algorithm>

namespace korvane::planner {

AgendaChange AgendaPages::ChangeTo(const AgendaOccurrence &occurrence, const AgendaRange &times,
                                   bool isAllDay) const
{
    const AgendaTime &own = occurrence.Start;
    AgendaChange change;
    change.SwitchesAllDay = isAllDay != own.IsDate;
    change.Zone = m_zone;
    if (isAllDay) {
        const qint64 first = DayOf(times.From);
        change.Start = first * kSecondsPerDay;
        change.Length = {std::max<qint64>(1, DayOf(times.To - 1) - first + 1), 0};
        return change;
    }
    const int zone = change.SwitchesAllDay ? m_zone : own.Zone;
    if (zone == kFloating) {
        change.Start = times.From;
        change.Length = {0, times.To - times.From};
        return change;
    }
    const AgendaSeconds utc = m_agenda.Zones->ToUtc(times.From, m_zone);
    change.Start = m_agenda.Zones->ToWall(utc, zone);
    change.Length = {0, m_agenda.Zones->ToUtc(times.To, m_zone) - utc};
    return change;
}

ScheduleDraft AgendaPages::DraftOf(const AgendaOccurrence &occurrence) const
{
    const AgendaEvent &event = m_agenda.At(occurrence.Event);
    const Shown shown = ShownOf(occurrence);
    ScheduleDraft draft{event.Title, event.Place, event.Notes, {shown.Start, shown.Stop}};
    draft.Rule =
        SimpleRuleOf(m_agenda, occurrence.Series >= 0 ? m_agenda.At(occurrence.Series) : event);
    draft.Calendar = event.Calendar;
    draft.IsAllDay = event.IsAllDay();
    return draft;
}

std::variant<AgendaEdit, QString> AgendaPages::Edited(const AgendaOccurrence &occurrence,
                                                      const ScheduleDraft &draft,
                                                      AgendaScope scope) const
{
    const ScheduleDraft former = DraftOf(occurrence);
    AgendaChange change = ChangeTo(occurrence, draft.Times, draft.IsAllDay);
    if (draft.Times == former.Times && !change.SwitchesAllDay) {
        change.Start = occurrence.Start.Wall;
        change.Length = occurrence.Length;
    }
    change.Title = draft.Title;
    change.Place = draft.Place;
    change.Notes = draft.Notes;
    change.Calendar = draft.Calendar;
    if (draft.Rule != former.Rule && draft.Rule.Repeat != AgendaRepeat::Other) {
        const AgendaTime &own = occurrence.Start;
        const AgendaTime start{change.Start,
                               !change.SwitchesAllDay ? own.Zone
                               : draft.IsAllDay       ? kFloating
                                                      : m_zone,
                               draft.IsAllDay};
        change.Rule = RuleText(m_agenda, draft.Rule, start);
    }
    return ChangeOccurrence(m_agenda, occurrence, change, scope);
}

AgendaEdit AgendaPages::Added(const ScheduleDraft &draft) const
{
    AgendaEvent event;
    event.Uid = NewUid();
    event.Title = draft.Title;
    event.Place = draft.Place;
    event.Notes = draft.Notes;
    event.Calendar = draft.Calendar;
    event.EndForm = AgendaEndForm::End;
    event.EndZone = draft.IsAllDay ? kFloating : m_zone;
    AgendaOccurrence occurrence;
    occurrence.Start = {draft.Times.From, event.EndZone, draft.IsAllDay};
    const AgendaChange times = ChangeTo(occurrence, draft.Times, draft.IsAllDay);
    event.Start = {times.Start, event.EndZone, draft.IsAllDay};
    event.Length = times.Length;
    if (const QByteArray rule = RuleText(m_agenda, draft.Rule, *event.Start); !rule.isEmpty()) {
        AgendaSeries series;
        series.Rules = {rule};
        event.Series = std::make_shared<const AgendaSeries>(std::move(series));
        StartOnRule(m_agenda, event);
    }
    AgendaEdit edit;
    edit.Append(m_agenda, std::move(event));
    return edit;
}

namespace {

/// Gives times of another agenda the zones of this one.
class ZoneMap
{
public:
    ZoneMap(const Agenda &agenda, const Agenda &other, int calendar)
        : m_agenda(agenda)
        , m_other(other)
        , m_calendar(calendar)
    {
    }

    int Of(int zone) const
    {
        if (zone <= kUtc) {
            return zone;
        }
        const AgendaZone &its = m_other.Zones->At(zone);
        auto found = m_agenda.Zones->Find(its.Id(), m_calendar);
        if (!found && m_agenda.Zones->Define(its.Definition(), m_calendar)) {
            found = m_agenda.Zones->Find(its.Id(), m_calendar);
        }
        return found.value_or(kFloating);
    }

    AgendaEvent Of(AgendaEvent event) const
    {
        event.Start->Zone = Of(event.Start->Zone);
        event.EndZone = Of(event.EndZone);
        if (event.Override) {
            event.Override->Of.Zone = Of(event.Override->Of.Zone);
        }
        if (event.Series != nullptr) {
            AgendaSeries series = *event.Series;
            for (AgendaTime &time : series.ExceptDates) {
                time.Zone = Of(time.Zone);
            }
            for (AgendaExtraDate &date : series.ExtraDates) {
                date.Start.Zone = Of(date.Start.Zone);
            }
            event.Series = std::make_shared<const AgendaSeries>(std::move(series));
        }
        event.Calendar = m_calendar;
        return event;
    }

private:
    const Agenda &m_agenda;
    const Agenda &m_other;
    int m_calendar = 0;
};

/// The text of every event, in their order.
QByteArrayList EventTexts(const QByteArray &text)
{
    PlanRemarks remarks;
    QByteArrayList texts;
    for (const IcalComponent &part : FindIcalParts(text, remarks).Components) {
        if (part.Name == "VEVENT") {
            texts.append(text.mid(part.Begin, part.End - part.Begin));
        }
    }
    return texts;
}

} // namespace

AgendaEdit AgendaPages::Pasted(const QByteArray &text, const Agenda &other,
                               const ScheduleColumn &target, int calendar) const
{
    const ZoneMap zones(m_agenda, other, calendar);
    const QByteArrayList texts = EventTexts(text);
    QHash<QByteArray, QByteArray> uids;
    std::vector<AgendaEvent> events;
    for (const AgendaEvent &its : other.Events) {
        if (!its.Start) {
            continue;
        }
        AgendaEvent event = zones.Of(its);
        event.Origin =
            std::make_shared<const AgendaOrigin>(AgendaOrigin{texts.value(its.Source), event});
        event.Source = -1;
        QByteArray &uid = uids[its.Uid];
        uid = uid.isEmpty() ? NewUid() : uid;
        event.Uid = uid;
        event.Sequence = 0;
        event.Place = target.Place.value_or(event.Place);
        events.push_back(std::move(event));
    }
    std::optional<qint64> firstDay;
    for (AgendaEvent &event : events) {
        const bool hasSeries = std::ranges::any_of(events, [&](const AgendaEvent &series) {
            return series.Series != nullptr && IsOverrideOf(event, series);
        });
        if (!hasSeries) {
            event.Override.reset();
            const qint64 day = DayOf(ShownWall(*event.Start));
            firstDay = std::min(firstDay.value_or(day), day);
        }
    }
    MoveByDays(m_agenda, events, DayOf(target.BaseDate) - firstDay.value_or(0));
    AgendaEdit edit;
    for (AgendaEvent &event : events) {
        edit.Append(m_agenda, std::move(event));
    }
    return edit;
}

} // namespace korvane::planner
