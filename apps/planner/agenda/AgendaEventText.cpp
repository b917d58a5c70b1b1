#include "agenda/AgendaEventText.h"

#include "agenda/AgendaOccurrences.h"
#include "agenda/AgendaRule.h"
#include "agenda/IcalText.h"

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

    /// Lines that hold no rule stay as they are; nobody has read one from there.
    void SetRules(QByteArrayView name, const std::vector<QByteArray> &rules,
                  const std::vector<QByteArray> &former)
    {
        std::size_t index = 0;
        for (const IcalLine &line : m_lines) {
            if (index < former.size() && line.Name == name
                && RuleOfLine(Unfolded(Raw(line))) == former[index]) {
                if (rules[index] != former[index]) {
                    SetValue(line, rules[index]);
                }
                ++index;
            }
        }
    }

    void SetSeries(const AgendaSeries &series, const AgendaSeries &former)
    {
        SetRules("RRULE", series.Rules, former.Rules);
        SetRules("EXRULE", series.ExceptRules, former.ExceptRules);
        if (series.ExceptDates != former.ExceptDates) {
            SetExceptDates(series.ExceptDates);
        }
        if (series.ExtraDates != former.ExtraDates) {
            SetExtraDates(series.ExtraDates);
        }
    }

    /// What else a change may concern.
    void SetOthers(const AgendaEvent &former)
    {
        if (m_event.Uid != former.Uid) {
            SetOrAdd("UID", m_event.Uid);
        }
        if (m_event.Place != former.Place) {
            SetPlace();
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
        const AgendaOverride &override = *m_event.Override;
        QByteArray head = HeadOf("RECURRENCE-ID", override.Of);
        if (override.AndFollowing) {
            head.insert(13, ";RANGE=THISANDFUTURE"); // behind the name
        }
        if (const IcalLine *line = Find("RECURRENCE-ID")) {
            Replace(*line, head + IcalText(override.Of));
        } else {
            InsertBehind("DTSTART", head + IcalText(override.Of));
        }
    }

    /// Which one it is has changed, not how that is said.
    void SetOverridden()
    {
        if (const IcalLine *line = Find("RECURRENCE-ID")) {
            SetValue(*line, IcalText(m_event.Override->Of));
        }
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

    /// What the parameters say, an address perhaps, is about the former place.
    void SetPlace()
    {
        QByteArray text = m_event.Place.toUtf8();
        for (const char *special : {"\\", ";", ","}) {
            text.replace(special, QByteArray("\\") + special);
        }
        text = "LOCATION:" + text.replace("\n", "\\n");
        const IcalLine *line = Find("LOCATION");
        if (m_event.Place.isEmpty()) {
            Drop({"LOCATION"});
        } else if (line != nullptr) {
            Replace(*line, text);
        } else {
            InsertBehind("SUMMARY", text);
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

} // namespace

QByteArray ChangedEvent(const QByteArray &text, const Agenda &agenda, const AgendaEvent &event,
                        const AgendaEvent &former, const QDateTime &now)
{
    EventText changed(text, agenda, event);
    if (event.Start) {
        changed.SetStart();
        changed.SetEnd(event.Length != former.Length);
    }
    if (event.Series != nullptr && former.Series != nullptr) {
        changed.SetSeries(*event.Series, *former.Series);
    }
    if (event.Override && event.Override != former.Override) {
        changed.SetOverridden();
    }
    changed.SetOthers(former);
    changed.SetRevision(now);
    return changed.Result();
}

QByteArray NewEvent(const QByteArray &text, const Agenda &agenda, const AgendaEvent &event,
                    const AgendaEvent &model, const QDateTime &now)
{
    EventText copy(text, agenda, event);
    copy.SetStart();
    copy.SetEnd(event.Length != model.Length);
    if (event.Series != nullptr && model.Series != nullptr) {
        copy.SetSeries(*event.Series, *model.Series);
    } else {
        copy.Drop({"RRULE", "EXRULE", "RDATE", "EXDATE"});
        copy.SetOverride();
    }
    copy.SetOthers(model);
    copy.SetRevision(now);
    return copy.Result();
}

} // namespace korvane::planner
