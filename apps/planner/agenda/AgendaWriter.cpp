#include "agenda/AgendaWriter.h"

#include "agenda/AgendaEventText.h"
#include "agenda/AgendaReader.h"
#include "agenda/IcalText.h"
#include "plan/MspdiWriter.h"
#include "plan/PlanSaver.h"

#include <algorithm>
#include <set>

namespace korvane::planner {

namespace {

/// What an event looks like in the file; a series may be held twice.
bool IsSame(const AgendaEvent &a, const AgendaEvent &b)
{
    const bool sameSeries = (a.Series == nullptr) == (b.Series == nullptr)
                            && (a.Series == nullptr || *a.Series == *b.Series);
    return sameSeries && a.Start == b.Start && a.Length == b.Length && a.Override == b.Override
           && a.Sequence == b.Sequence && a.Uid == b.Uid && a.Title == b.Title && a.Place == b.Place
           && a.Notes == b.Notes && a.Calendar == b.Calendar && a.IsRemoved == b.IsRemoved;
}

/// Puts the pieces of a file together again.
class AgendaText
{
public:
    AgendaText(const Agenda &agenda, const QByteArray &source, const QDateTime &now)
        : m_agenda(agenda)
        , m_source(source)
        , m_now(now)
    {
        NoProgress progress;
        PlanRemarks remarks;
        m_former = ReadAgenda(source, progress);
        m_parts = FindIcalParts(source, remarks);
        for (const IcalComponent &part : m_parts.Components) {
            if (part.Name == "VEVENT") {
                m_events.push_back(&part);
            }
        }
        m_copies.resize(m_events.size());
        m_arrivals.resize(m_parts.Calendars.size());
    }

    QByteArray Write()
    {
        for (const AgendaEvent &event : m_agenda.Events) {
            if (event.Source >= 0 || event.IsRemoved) {
                continue;
            }
            if (event.CopyOf >= 0) {
                m_copies.at(static_cast<std::size_t>(event.CopyOf)).push_back(&event);
            } else {
                Arrive(event, NewText(event));
            }
        }
        for (std::size_t i = 0; i < m_events.size(); ++i) {
            Put(i);
        }
        for (std::size_t calendar = 0; calendar < m_arrivals.size(); ++calendar) {
            if (!m_arrivals[calendar].isEmpty()) {
                m_pieces.push_back({EndMark(calendar), EndMark(calendar), m_arrivals[calendar]});
            }
        }
        return WithPieces(m_source, m_pieces);
    }

    /// A calendar of its own with copies of events, as CopyOccurrence makes them.
    QByteArray Clip(const std::vector<AgendaEvent> &events) const
    {
        std::set<int> zones;
        QByteArray texts;
        for (const AgendaEvent &event : events) {
            const auto index = static_cast<std::size_t>(event.CopyOf);
            texts += event.CopyOf < 0 ? NewText(event)
                                      : NewEvent(TextOf(*m_events[index]), m_agenda, event,
                                                 m_former.Events[index], m_now);
            zones.merge(ZonesOf(event));
        }
        QByteArray clip = "BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:-//Korvane//Planner//EN\n";
        for (const int zone : zones) {
            clip += ZoneText(zone, m_agenda.Zones->At(zone).Id());
        }
        clip += texts + "END:VCALENDAR\n";
        return clip.replace("\r\n", "\n").replace("\n", "\r\n");
    }

private:
    QByteArray TextOf(const IcalComponent &part) const
    {
        return m_source.mid(part.Begin, part.End - part.Begin);
    }

    void Put(std::size_t index)
    {
        const IcalComponent &part = *m_events[index];
        const AgendaEvent &event = m_agenda.Events[index];
        const AgendaEvent &former = m_former.Events[index];
        const QByteArray text = TextOf(part);
        QByteArray written = event.IsRemoved ? QByteArray()
                             : IsSame(event, former)
                                 ? text
                                 : ChangedEvent(text, m_agenda, event, former, m_now);
        if (HasCalendar(event) && event.Calendar != former.Calendar) {
            Arrive(event, std::exchange(written, {}));
        }
        for (const AgendaEvent *copy : m_copies[index]) {
            const QByteArray copied = NewEvent(text, m_agenda, *copy, former, m_now);
            if (HasCalendar(*copy) && copy->Calendar != former.Calendar) {
                Arrive(*copy, copied);
            } else {
                written += copied;
            }
        }
        if (written != text) {
            m_pieces.push_back({part.Begin, part.End, written});
        }
    }

    /// Of an event that stems from none of the file's.
    QByteArray NewText(const AgendaEvent &event) const
    {
        const bool hasReturns = m_source.contains("\r\n");
        if (event.Origin == nullptr) {
            return MadeEvent(m_agenda, event, hasReturns ? "\r\n" : "\n", m_now);
        }
        const QByteArray text =
            NewEvent(event.Origin->Text, m_agenda, event, event.Origin->Event, m_now);
        QByteArray plain = text;
        plain.replace("\r\n", "\n");
        return hasReturns ? plain.replace("\n", "\r\n") : plain;
    }

    bool HasCalendar(const AgendaEvent &event) const
    {
        return static_cast<std::size_t>(event.Calendar) < m_arrivals.size();
    }

    /// Puts an event at the end of its calendar.
    void Arrive(const AgendaEvent &event, const QByteArray &text)
    {
        if (!text.isEmpty()) {
            m_arrivals.at(static_cast<std::size_t>(event.Calendar)) += ZonesFor(event) + text;
        }
    }

    /// That an event refers to by name.
    static std::set<int> ZonesOf(const AgendaEvent &event)
    {
        std::set<int> zones{event.Start ? event.Start->Zone : kFloating, event.EndZone};
        std::erase_if(zones, [](int zone) { return zone <= kUtc; });
        return zones;
    }

    /// The definitions that an event refers to and that its calendar lacks.
    QByteArray ZonesFor(const AgendaEvent &event)
    {
        QByteArray zones;
        for (const int zone : ZonesOf(event)) {
            const QByteArray id = m_agenda.Zones->At(zone).Id();
            const auto isThere = [&](const IcalComponent &part) {
                return part.Calendar == event.Calendar && IdOfZone(part) == id;
            };
            if (std::ranges::none_of(m_parts.Components, isThere)
                && m_brought.insert({id, event.Calendar}).second) {
                zones += ZoneText(zone, id);
            }
        }
        return zones;
    }

    /// As the file has it elsewhere, or as the system knows it.
    QByteArray ZoneText(int zone, const QByteArray &id) const
    {
        const auto part = std::ranges::find_if(
            m_parts.Components, [&](const IcalComponent &one) { return IdOfZone(one) == id; });
        if (part != m_parts.Components.end()) {
            return TextOf(*part);
        }
        QByteArray text = m_agenda.Zones->At(zone).Definition();
        return m_source.contains("\r\n") ? text : text.replace("\r\n", "\n");
    }

    QByteArray IdOfZone(const IcalComponent &part) const
    {
        if (part.Name != "VTIMEZONE") {
            return {};
        }
        const QByteArray text = TextOf(part);
        for (const IcalLine &line : IcalLinesOf(text)) {
            if (line.Name == "TZID") {
                const QByteArray whole = Unfolded(text.sliced(line.Begin, line.End - line.Begin));
                return whole.mid(ValueOf(whole)).trimmed();
            }
        }
        return {};
    }

    /// Where the last line of a calendar begins.
    qsizetype EndMark(std::size_t calendar) const
    {
        const IcalComponent &part = m_parts.Calendars[calendar];
        const qsizetype mark = m_source.first(part.End).toUpper().lastIndexOf("END:VCALENDAR");
        return mark >= part.Begin ? mark : part.End;
    }

    const Agenda &m_agenda;
    const QByteArray &m_source;
    const QDateTime &m_now;
    Agenda m_former;
    IcalParts m_parts;
    std::vector<const IcalComponent *> m_events;
    std::vector<std::vector<const AgendaEvent *>> m_copies;
    std::vector<QByteArray> m_arrivals; ///< by calendar
    std::set<std::pair<QByteArray, int>> m_brought;
    std::vector<IcalPiece> m_pieces;
};

} // namespace

QByteArray WriteAgenda(const Agenda &agenda, const QByteArray &source, const QDateTime &now)
{
    return AgendaText(agenda, source, now).Write();
}

QByteArray WriteClip(const Agenda &agenda, const QByteArray &source,
                     const std::vector<AgendaEvent> &events)
{
    return AgendaText(agenda, source, QDateTime::currentDateTimeUtc()).Clip(events);
}

std::optional<QString> SaveAgenda(const Agenda &agenda, const QByteArray &source,
                                  const QString &fileName)
{
    return SaveFile(fileName, [&](QIODevice &file) -> std::optional<QString> {
        const QByteArray text = WriteAgenda(agenda, source, QDateTime::currentDateTimeUtc());
        return file.write(text) == text.size() ? std::nullopt : std::optional(WriteFailure());
    });
}

} // namespace korvane::planner
