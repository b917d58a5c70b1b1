#include "agenda/AgendaReader.h"

#include "agenda/IcalLibrary.h"
#include "agenda/IcalText.h"
#include "agenda/LoadAttempt.h"
#include "plan/FileText.h"
#include "plan/PlannerText.h"

#include <QDate>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <ranges>

namespace korvane::planner {

namespace {

constexpr int kLastYear = 4000;
constexpr AgendaSeconds kLongestLength = 100 * 366 * kSecondsPerDay;

using Component = icalcomponent *;
using Property = icalproperty *;

template <typename Function>
void ForEachProperty(Component component, icalproperty_kind kind, Function function)
{
    for (Property property = icalcomponent_get_first_property(component, kind); property != nullptr;
         property = icalcomponent_get_next_property(component, kind)) {
        function(property);
    }
}

QString TextOf(Component component, icalproperty_kind kind)
{
    Property property = icalcomponent_get_first_property(component, kind);
    const icalvalue *value = property != nullptr ? icalproperty_get_value(property) : nullptr;
    return value != nullptr ? QString::fromUtf8(icalvalue_get_text(value)) : QString();
}

AgendaLength LengthOf(const icaldurationtype &duration)
{
    if (duration.is_neg != 0) {
        return {};
    }
    return {duration.weeks * 7LL + duration.days,
            duration.hours * 3600LL + duration.minutes * 60LL + duration.seconds};
}

class EventReader
{
public:
    EventReader(Agenda &agenda, Component component, const IcalComponent &part)
        : m_agenda(agenda)
        , m_component(component)
        , m_part(part)
    {
    }

    AgendaEvent Read()
    {
        AgendaEvent event;
        event.Calendar = m_part.Calendar;
        event.Uid = TextOf(m_component, ICAL_UID_PROPERTY).toUtf8();
        event.Title = TextOf(m_component, ICAL_SUMMARY_PROPERTY);
        event.Place = TextOf(m_component, ICAL_LOCATION_PROPERTY);
        event.Notes = TextOf(m_component, ICAL_DESCRIPTION_PROPERTY);
        if (Property property = First(ICAL_SEQUENCE_PROPERTY)) {
            event.Sequence = std::max(0, icalproperty_get_sequence(property));
        }
        if (Property property = First(ICAL_STATUS_PROPERTY)) {
            event.IsCanceled = icalproperty_get_status(property) == ICAL_STATUS_CANCELLED;
        }
        ReadOverride(event);
        ReadStart(event);
        if (event.Start) {
            ReadEnd(event);
            ReadSeries(event);
        }
        ForEachProperty(m_component, ICAL_XLICERROR_PROPERTY, [this](Property property) {
            RemarkError(QString::fromUtf8(icalproperty_get_xlicerror(property)).simplified());
        });
        return event;
    }

private:
    Property First(icalproperty_kind kind) const
    {
        return icalcomponent_get_first_property(m_component, kind);
    }

    void Remark(const QString &text) { m_agenda.Remarks.Add(m_part.Line, text); }

    /// What the library could not use; where it is about what is not read here, that is of no
    /// interest.
    void RemarkError(const QString &text)
    {
        static const QRegularExpression property(QStringLiteral(" (?:in|for) ([A-Z-]+) property"));
        static const QRegularExpression times(
            QStringLiteral("^(?:DTSTART|DTEND|DURATION|RRULE|RDATE|EXRULE|EXDATE|RECURRENCE-ID)$"));
        const auto match = property.match(text);
        if (!text.contains(u"VALUE type for property")
            && (!match.hasMatch() || times.match(match.captured(1)).hasMatch())) {
            Remark(text);
        }
    }

    std::optional<AgendaTime> TimeOf(Property property, const icaltimetype &time)
    {
        const bool isValid = QDate::isValid(time.year, time.month, time.day) && time.year > 0
                             && time.year <= kLastYear && time.hour >= 0 && time.hour <= 24
                             && time.minute >= 0 && time.minute < 60 && time.second >= 0
                             && time.second <= 60;
        if (!isValid) {
            Remark(PlannerText::tr("%1 is not a date")
                       .arg(QString::fromUtf8(icalproperty_get_property_name(property))));
            return std::nullopt;
        }
        const bool isDate = time.is_date != 0;
        AgendaTime result{SecondsOf(time), kFloating, isDate};
        if (isDate) {
            result.Wall = DayOf(result.Wall) * kSecondsPerDay;
        } else if (icaltime_is_utc(time) != 0) {
            result.Zone = kUtc;
        } else {
            result.Zone = ZoneOf(property);
        }
        return result;
    }

    int ZoneOf(Property property)
    {
        const icalparameter *parameter =
            icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
        if (parameter == nullptr) {
            return kFloating;
        }
        const QByteArray id = icalparameter_get_tzid(parameter);
        const auto zone = m_agenda.Zones->Find(id, m_part.Calendar);
        if (!zone) {
            Remark(
                PlannerText::tr("the time zone \"%1\" is not known; its times are taken as local "
                                "ones")
                    .arg(QString::fromUtf8(id)));
        }
        return zone.value_or(kFloating);
    }

    void ReadOverride(AgendaEvent &event)
    {
        Property property = First(ICAL_RECURRENCEID_PROPERTY);
        if (property == nullptr) {
            return;
        }
        const icalparameter *range =
            icalproperty_get_first_parameter(property, ICAL_RANGE_PARAMETER);
        if (const auto time = TimeOf(property, icalproperty_get_recurrenceid(property))) {
            event.Override = {*time,
                              range != nullptr
                                  && icalparameter_get_range(range) == ICAL_RANGE_THISANDFUTURE};
        }
    }

    void ReadStart(AgendaEvent &event)
    {
        Property property = First(ICAL_DTSTART_PROPERTY);
        if (property == nullptr) {
            return; // as in the cancellation of an event
        }
        event.Start = TimeOf(property, icalproperty_get_dtstart(property));
        if (icalcomponent_count_properties(m_component, ICAL_DTSTART_PROPERTY) > 1) {
            Remark(PlannerText::tr("an event has more than one start; the first one holds"));
        }
    }

    void ReadEnd(AgendaEvent &event)
    {
        event.EndZone = event.Start->Zone;
        event.Length = {event.IsAllDay() ? 1 : 0, 0};
        if (Property end = First(ICAL_DTEND_PROPERTY)) {
            event.EndForm = AgendaEndForm::End;
            if (const auto time = TimeOf(end, icalproperty_get_dtend(end))) {
                event.EndZone = time->Zone;
                SetLengthTo(event, *time);
            }
        } else if (Property duration = First(ICAL_DURATION_PROPERTY)) {
            event.EndForm = AgendaEndForm::Duration;
            event.Length = LengthOf(icalproperty_get_duration(duration));
        }
        const AgendaSeconds length = event.Length.Days * kSecondsPerDay + event.Length.Seconds;
        if (length > kLongestLength) {
            Remark(PlannerText::tr("an event of more than 100 years is cut"));
            event.Length = {kLongestLength / kSecondsPerDay, 0};
        }
        if (event.IsAllDay()) {
            event.Length = {std::max<qint64>(1, (length + kSecondsPerDay - 1) / kSecondsPerDay), 0};
        }
    }

    void SetLengthTo(AgendaEvent &event, const AgendaTime &end)
    {
        const AgendaSeconds seconds = event.IsAllDay()
                                          ? end.Wall - event.Start->Wall
                                          : m_agenda.UtcOf(end) - m_agenda.UtcOf(*event.Start);
        if (seconds < 0) {
            Remark(PlannerText::tr("an event ends before it starts"));
        }
        event.Length = {0, std::max<AgendaSeconds>(0, seconds)};
    }

    void ReadSeries(AgendaEvent &event)
    {
        auto series = std::make_shared<AgendaSeries>();
        ReadRules(ICAL_RRULE_PROPERTY, series->Rules);
        ReadRules(ICAL_EXRULE_PROPERTY, series->ExceptRules);
        ForEachProperty(m_component, ICAL_EXDATE_PROPERTY, [&](Property property) {
            if (const auto time = TimeOf(property, icalproperty_get_exdate(property))) {
                series->ExceptDates.push_back(*time);
            }
        });
        ForEachProperty(m_component, ICAL_RDATE_PROPERTY,
                        [&](Property property) { ReadExtraDate(property, *series); });
        if (*series != AgendaSeries{}) {
            event.Series = std::move(series);
        }
    }

    void ReadRules(icalproperty_kind kind, std::vector<QByteArray> &rules)
    {
        ForEachProperty(m_component, kind, [&](Property property) {
            if (QByteArray text = ValueTextOf(property); !text.isEmpty()) {
                rules.push_back(std::move(text));
            }
        });
    }

    void ReadExtraDate(Property property, AgendaSeries &series)
    {
        const icaldatetimeperiodtype date = icalproperty_get_rdate(property);
        if (icaltime_is_null_time(date.time) == 0) {
            if (const auto time = TimeOf(property, date.time)) {
                series.ExtraDates.push_back({*time, {}});
            }
            return;
        }
        auto start = TimeOf(property, date.period.start);
        if (!start) {
            return;
        }
        AgendaLength length = LengthOf(date.period.duration);
        if (icaltime_is_null_time(date.period.end) == 0) {
            const auto end = TimeOf(property, date.period.end);
            length.Seconds =
                end ? std::max<AgendaSeconds>(0, m_agenda.UtcOf(*end) - m_agenda.UtcOf(*start)) : 0;
        }
        series.ExtraDates.push_back({*start, length});
    }

    Agenda &m_agenda;
    Component m_component;
    const IcalComponent &m_part;
};

void ReadCalendar(Agenda &agenda, const QByteArray &text, const IcalComponent &part)
{
    AgendaCalendar calendar;
    const auto lines = IcalLinesOf(QByteArrayView(text).sliced(part.Begin, part.End - part.Begin));
    for (const IcalLine &line : lines) {
        const bool isName = line.Name == "X-WR-CALNAME" || line.Name == "NAME";
        if (!isName && line.Name != "X-WR-TIMEZONE") {
            continue;
        }
        const QByteArray whole =
            Unfolded(QByteArrayView(text).sliced(part.Begin + line.Begin, line.End - line.Begin));
        const QByteArray value = whole.mid(ValueOf(whole)).trimmed();
        if (!isName) {
            calendar.ZoneName = value;
        } else if (calendar.Name.isEmpty()) {
            calendar.Name = QString::fromUtf8(value).remove(u'\\');
        }
    }
    agenda.Calendars.push_back(std::move(calendar));
}

void ReadEvent(Agenda &agenda, const QByteArray &text, const IcalComponent &part)
{
    const auto lock = LockIcal();
    const IcalComponentPtr component(icalcomponent_new_from_string(text.constData()));
    const int source = static_cast<int>(agenda.Events.size());
    AgendaEvent event;
    event.Calendar = part.Calendar;
    if (component != nullptr && icalcomponent_isa(component.get()) == ICAL_VEVENT_COMPONENT) {
        event = EventReader(agenda, component.get(), part).Read();
    } else {
        agenda.Remarks.Add(part.Line, PlannerText::tr("an event that cannot be read"));
    }
    event.Source = source;
    agenda.Events.push_back(std::move(event));
}

} // namespace

Agenda ReadAgenda(const QByteArray &text, IProgress &progress)
{
    if (text.contains('\0')) {
        throw PlanRefusal(text.left(text.indexOf('\0')).count('\n') + 1,
                          PlannerText::tr("a calendar is text, and this is none"));
    }
    Agenda agenda;
    agenda.Zones = std::make_shared<AgendaZones>();
    IcalParts parts = FindIcalParts(text, agenda.Remarks);
    for (const IcalComponent &part : parts.Calendars) {
        ReadCalendar(agenda, text, part);
    }
    if (std::ranges::count(parts.Components, kNoIndex, &IcalComponent::Calendar) > 0) {
        const int implied = static_cast<int>(agenda.Calendars.size());
        std::ranges::replace(parts.Components | std::views::transform(&IcalComponent::Calendar),
                             kNoIndex, implied);
        agenda.Calendars.push_back({{}, {}, true});
    }
    const auto textOf = [&](const IcalComponent &part) {
        return text.mid(part.Begin, part.End - part.Begin);
    };
    for (const IcalComponent &part : parts.Components) {
        if (part.Name == "VTIMEZONE" && !agenda.Zones->Define(textOf(part), part.Calendar)) {
            agenda.Remarks.Add(part.Line, PlannerText::tr("a time zone that cannot be read"));
        }
    }
    for (const IcalComponent &part : parts.Components) {
        if (progress.IsCanceled()) {
            throw PlanCanceled();
        }
        if (part.Name == "VEVENT") {
            ReadEvent(agenda, textOf(part), part);
        }
    }
    agenda.Name = agenda.Calendars.front().Name;
    return agenda;
}

bool IsAgendaFile(const QString &fileName)
{
    const QByteArray head = HeadOfFile(fileName);
    if (head.trimmed().isEmpty()) {
        return QFileInfo(fileName).fileName().contains(u".ics", Qt::CaseInsensitive);
    }
    QByteArrayView text(head);
    if (text.startsWith("\xEF\xBB\xBF")) {
        text = text.sliced(3);
    }
    return text.trimmed().toByteArray().toUpper().startsWith("BEGIN:VCALENDAR")
           || QFileInfo(fileName).suffix().compare(u"ics", Qt::CaseInsensitive) == 0;
}

AgendaResult LoadAgenda(const QString &fileName, IProgress &progress)
{
    return AttemptLoad<AgendaResult>([&](AgendaResult &result) {
        result.Text = TextOfFile(fileName, progress);
        result.Value = ReadAgenda(result.Text, progress);
        if (result.Value.Name.trimmed().isEmpty()) {
            result.Value.Name = QFileInfo(fileName).completeBaseName();
        }
    });
}

} // namespace korvane::planner
