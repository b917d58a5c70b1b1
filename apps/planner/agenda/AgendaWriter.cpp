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
           && a.Sequence == b.Sequence && a.Uid == b.Uid && a.Place == b.Place
           && a.Calendar == b.Calendar;
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
            if (event.Source < 0) {
                m_copies.at(static_cast<std::size_t>(event.CopyOf)).push_back(&event);
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
        std::ranges::stable_sort(m_pieces, {}, &Piece::Begin);
        QByteArray result;
        qsizetype at = 0;
        for (const Piece &piece : m_pieces) {
            result += m_source.mid(at, piece.Begin - at) + piece.Text;
            at = piece.End;
        }
        return result + m_source.mid(at);
    }

private:
    /// What stands in the place of a piece of the source.
    struct Piece
    {
        qsizetype Begin = 0;
        qsizetype End = 0;
        QByteArray Text;
    };

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
        QByteArray written =
            IsSame(event, former) ? text : ChangedEvent(text, m_agenda, event, former, m_now);
        for (const AgendaEvent *copy : m_copies[index]) {
            written += NewEvent(text, m_agenda, *copy, former, m_now);
        }
        const auto calendar = static_cast<std::size_t>(event.Calendar);
        if (event.Calendar != former.Calendar && calendar < m_arrivals.size()) {
            m_arrivals[calendar] += ZonesFor(event, former.Calendar) + written;
            written.clear();
        }
        if (written != text) {
            m_pieces.push_back({part.Begin, part.End, written});
        }
    }

    /// The definitions that an event refers to and that its new calendar lacks.
    QByteArray ZonesFor(const AgendaEvent &event, int from)
    {
        QByteArray zones;
        for (const IcalComponent &part : m_parts.Components) {
            const QByteArray id = IdOfZone(part);
            const auto isUsed = [&](int zone) {
                return zone > kUtc && m_agenda.Zones->At(zone).Id() == id;
            };
            const bool isNeeded = part.Calendar == from && !id.isEmpty() && event.Start
                                  && (isUsed(event.Start->Zone) || isUsed(event.EndZone));
            const bool isThere =
                std::ranges::any_of(m_parts.Components, [&](const IcalComponent &other) {
                    return other.Calendar == event.Calendar && IdOfZone(other) == id;
                });
            if (isNeeded && !isThere && m_brought.insert({id, event.Calendar}).second) {
                zones += TextOf(part);
            }
        }
        return zones;
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
    std::vector<Piece> m_pieces;
};

} // namespace

QByteArray WriteAgenda(const Agenda &agenda, const QByteArray &source, const QDateTime &now)
{
    return AgendaText(agenda, source, now).Write();
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
