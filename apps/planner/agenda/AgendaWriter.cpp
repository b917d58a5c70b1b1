#include "agenda/AgendaWriter.h"

#include "agenda/AgendaOccurrences.h"
#include "agenda/AgendaReader.h"
#include "agenda/AgendaRule.h"
#include "agenda/IcalText.h"
#include "plan/MspdiWriter.h"
#include "plan/PlanSaver.h"

#include <algorithm>

namespace korvane::planner {

namespace {

/// The text of one event while it is changed.
class EventText
{
public:
    EventText(QByteArray text, const Agenda &agenda, const AgendaEvent &event)
        : m_text(std::move(text))
        , m_agenda(agenda)
        , m_event(event)
        , m_lines(IcalLinesOf(m_text))
        , m_lineEnd(Raw(m_lines.front()).endsWith("\r\n") ? "\r\n" : "\n")
    {
    }

    void SetStart()
    {
        if (const IcalLine *line = Find("DTSTART")) {
            SetValue(*line, IcalText(*m_event.Start));
        }
    }

    /// `hasChanged`: not only moved.
    void SetEnd(bool hasChanged)
    {
        if (const IcalLine *line = Find("DTEND")) {
            const AgendaTime end = End();
            const QByteArray old = Unfolded(Raw(*line));
            const bool isDate = old.indexOf('T', ValueOf(old)) < 0;
            if (isDate == end.IsDate) {
                SetValue(*line, IcalText(end));
            } else {
                Replace(*line, HeadOf("DTEND", end) + IcalText(end));
            }
        } else if (const IcalLine *duration = Find("DURATION")) {
            if (hasChanged) {
                SetValue(*duration, Duration());
            }
        } else if (hasChanged) {
            const AgendaTime end = End();
            InsertBehind("DTSTART", HeadOf("DTEND", end) + IcalText(end));
        }
    }

    void SetRevision(const QDateTime &now)
    {
        const QByteArray stamp = IcalText({now.toSecsSinceEpoch(), kUtc, false});
        SetOrAdd("SEQUENCE", QByteArray::number(m_event.Sequence));
        SetOrAdd("DTSTAMP", stamp);
        if (const IcalLine *line = Find("LAST-MODIFIED")) {
            SetValue(*line, stamp);
        }
    }

    void SetRules(QByteArrayView name, const std::vector<QByteArray> &rules,
                  const std::vector<QByteArray> &former)
    {
        std::size_t index = 0;
        for (const IcalLine &line : m_lines) {
            if (line.Name != name || index >= rules.size()) {
                continue;
            }
            if (rules[index] != former[index]) {
                SetValue(line, rules[index]);
            }
            ++index;
        }
    }

    void SetExceptDates(const std::vector<AgendaTime> &dates)
    {
        QByteArrayList lines;
        for (const AgendaTime &date : dates) {
            lines.append(HeadOf("EXDATE", date) + IcalText(date));
        }
        ReplaceAll("EXDATE", lines);
    }

    void SetExtraDates(const std::vector<AgendaExtraDate> &dates)
    {
        QByteArrayList lines;
        for (const AgendaExtraDate &date : dates) {
            QByteArray head = HeadOf("RDATE", date.Start);
            QByteArray value = IcalText(date.Start);
            if (date.Length) {
                head.insert(5, ";VALUE=PERIOD");
                value += '/' + DurationOf(*date.Length);
            }
            lines.append(head + value);
        }
        ReplaceAll("RDATE", lines);
    }

    void SetOverride()
    {
        const AgendaTime &of = m_event.Override->Of;
        if (const IcalLine *line = Find("RECURRENCE-ID")) {
            SetValue(*line, IcalText(of));
            return;
        }
        InsertBehind("DTSTART", HeadOf("RECURRENCE-ID", of) + IcalText(of));
    }

    void Drop(std::initializer_list<QByteArrayView> names)
    {
        for (const IcalLine &line : m_lines) {
            if (std::ranges::find(names, QByteArrayView(line.Name)) != names.end()) {
                m_changes.push_back({line.Begin, line.End, {}});
            }
        }
    }

    QByteArray Result()
    {
        // What is inserted before a line comes before what the line becomes.
        std::ranges::stable_sort(m_changes, {}, [](const Change &change) {
            return std::pair(change.Begin, change.End);
        });
        QByteArray result;
        qsizetype at = 0;
        for (const Change &change : m_changes) {
            result += m_text.mid(at, change.Begin - at) + change.Text;
            at = change.End;
        }
        return result + m_text.mid(at);
    }

private:
    struct Change
    {
        qsizetype Begin = 0;
        qsizetype End = 0;
        QByteArray Text;
    };

    QByteArrayView Raw(const IcalLine &line) const
    {
        return QByteArrayView(m_text).sliced(line.Begin, line.End - line.Begin);
    }

    const IcalLine *Find(QByteArrayView name) const
    {
        const auto line = std::ranges::find(m_lines, name, &IcalLine::Name);
        return line != m_lines.end() ? &*line : nullptr;
    }

    void Replace(const IcalLine &line, const QByteArray &text)
    {
        m_changes.push_back({line.Begin, line.End, Folded(text, m_lineEnd)});
    }

    void SetValue(const IcalLine &line, const QByteArray &value)
    {
        const QByteArray old = Unfolded(Raw(line));
        Replace(line, old.left(ValueOf(old)) + value);
    }

    void InsertBehind(QByteArrayView name, const QByteArray &text)
    {
        const IcalLine *line = Find(name);
        const qsizetype at = line != nullptr ? line->End : m_lines.front().End;
        m_changes.push_back({at, at, Folded(text, m_lineEnd)});
    }

    void SetOrAdd(const QByteArray &name, const QByteArray &value)
    {
        if (const IcalLine *line = Find(name)) {
            SetValue(*line, value);
        } else {
            InsertBehind("UID", name + ':' + value);
        }
    }

    void ReplaceAll(QByteArrayView name, const QByteArrayList &lines)
    {
        QByteArray text;
        for (const QByteArray &line : lines) {
            text += Folded(line, m_lineEnd);
        }
        for (const IcalLine &line : m_lines) {
            if (line.Name == name) {
                m_changes.push_back({line.Begin, line.End, std::exchange(text, {})});
            }
        }
    }

    /// The name and the parameters that say in which form the time is. Those of the start are taken
    /// over where they say the same; they may name a zone that is not known here.
    QByteArray HeadOf(const QByteArray &name, const AgendaTime &time) const
    {
        const IcalLine *start = Find("DTSTART");
        const AgendaTime &own = *m_event.Start;
        if (start != nullptr && time.Zone == own.Zone && time.IsDate == own.IsDate) {
            const QByteArray line = Unfolded(Raw(*start));
            return name + line.mid(start->Name.size(), ValueOf(line) - start->Name.size());
        }
        if (time.IsDate) {
            return name + ";VALUE=DATE:";
        }
        if (time.Zone <= kUtc) {
            return name + ':';
        }
        QByteArray id = m_agenda.Zones->At(time.Zone).Id();
        if (id.contains(':') || id.contains(';') || id.contains(',')) {
            id = '"' + id + '"';
        }
        return name + ";TZID=" + id + ':';
    }

    AgendaTime End() const
    {
        const AgendaTime &start = *m_event.Start;
        const AgendaSeconds end = EndOf(m_agenda, start, m_event.Length);
        if (start.IsDate) {
            return {end, kFloating, true};
        }
        if (m_event.EndForm != AgendaEndForm::End) {
            return {m_agenda.Zones->ToWall(end, start.Zone), start.Zone, false};
        }
        const int zone = m_event.EndZone == kFloating ? start.Zone : m_event.EndZone;
        return {m_agenda.Zones->ToWall(end, zone), m_event.EndZone, false};
    }

    static QByteArray DurationOf(const AgendaLength &length)
    {
        if (length.Days > 0 && length.Seconds == 0) {
            return 'P' + QByteArray::number(length.Days) + 'D';
        }
        QByteArray text = length.Days > 0 ? 'P' + QByteArray::number(length.Days) + 'D' : "P";
        text += 'T';
        const std::pair<AgendaSeconds, char> units[] = {{length.Seconds / 3600, 'H'},
                                                        {length.Seconds / 60 % 60, 'M'},
                                                        {length.Seconds % 60, 'S'}};
        for (const auto &[count, unit] : units) {
            if (count > 0) {
                text += QByteArray::number(count) + unit;
            }
        }
        return text.endsWith('T') ? text + "0S" : text;
    }
    QByteArray Duration() const { return DurationOf(m_event.Length); }

    QByteArray m_text;
    const Agenda &m_agenda;
    const AgendaEvent &m_event;
    std::vector<IcalLine> m_lines;
    QByteArray m_lineEnd;
    std::vector<Change> m_changes;
};

QByteArray ChangedEvent(const QByteArray &text, const Agenda &agenda, const AgendaEvent &event,
                        const AgendaEvent &former, const QDateTime &now)
{
    EventText changed(text, agenda, event);
    if (event.Start) {
        changed.SetStart();
        changed.SetEnd(event.Length != former.Length);
    }
    if (event.Series != nullptr && former.Series != nullptr) {
        changed.SetRules("RRULE", event.Series->Rules, former.Series->Rules);
        changed.SetRules("EXRULE", event.Series->ExceptRules, former.Series->ExceptRules);
        if (event.Series->ExceptDates != former.Series->ExceptDates) {
            changed.SetExceptDates(event.Series->ExceptDates);
        }
        if (event.Series->ExtraDates != former.Series->ExtraDates) {
            changed.SetExtraDates(event.Series->ExtraDates);
        }
    }
    if (event.Override && event.Override != former.Override) {
        changed.SetOverride();
    }
    changed.SetRevision(now);
    return changed.Result();
}

QByteArray NewOverride(const QByteArray &text, const Agenda &agenda, const AgendaEvent &event,
                       const AgendaEvent &model, const QDateTime &now)
{
    EventText copy(text, agenda, event);
    copy.Drop({"RRULE", "EXRULE", "RDATE", "EXDATE", "RECURRENCE-ID"});
    copy.SetStart();
    copy.SetEnd(event.Length != model.Length);
    copy.SetOverride();
    copy.SetRevision(now);
    return copy.Result();
}

/// What an event looks like in the file; a series may be held twice.
bool IsSame(const AgendaEvent &a, const AgendaEvent &b)
{
    const bool sameSeries = (a.Series == nullptr) == (b.Series == nullptr)
                            && (a.Series == nullptr || *a.Series == *b.Series);
    return sameSeries && a.Start == b.Start && a.Length == b.Length && a.Override == b.Override
           && a.Sequence == b.Sequence;
}

} // namespace

QByteArray WriteAgenda(const Agenda &agenda, const QByteArray &source, const QDateTime &now)
{
    NoProgress progress;
    const Agenda former = ReadAgenda(source, progress);
    PlanRemarks remarks;
    IcalParts parts = FindIcalParts(source, remarks);
    std::erase_if(parts.Components, [](const auto &part) { return part.Name != "VEVENT"; });
    std::vector<std::vector<const AgendaEvent *>> copies(parts.Components.size());
    for (const AgendaEvent &event : agenda.Events) {
        if (event.Source < 0) {
            copies.at(static_cast<std::size_t>(event.CopyOf)).push_back(&event);
        }
    }
    QByteArray result;
    qsizetype at = 0;
    for (std::size_t i = 0; i < parts.Components.size(); ++i) {
        const IcalComponent &part = parts.Components[i];
        const QByteArray text = source.mid(part.Begin, part.End - part.Begin);
        result += source.mid(at, part.Begin - at);
        result += IsSame(agenda.Events[i], former.Events[i])
                      ? text
                      : ChangedEvent(text, agenda, agenda.Events[i], former.Events[i], now);
        for (const AgendaEvent *copy : copies[i]) {
            result += NewOverride(text, agenda, *copy, former.Events[i], now);
        }
        at = part.End;
    }
    return result + source.mid(at);
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
