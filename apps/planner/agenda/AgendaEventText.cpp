#include "agenda/AgendaEventText.h"

#include "agenda/AgendaOccurrences.h"
#include "agenda/AgendaRule.h"
#include "agenda/IcalText.h"

#include <algorithm>
#include <span>

namespace korvane::planner {

namespace {

/// The text of one event while it is changed.
class EventText
{
public:
    /// `former` is what was read from the text.
    EventText(QByteArray text, const Agenda &agenda, const AgendaEvent &event,
              const AgendaEvent &former)
        : m_text(std::move(text))
        , m_agenda(agenda)
        , m_event(event)
        , m_former(former)
        , m_lines(IcalLinesOf(m_text))
        , m_lineEnd(Raw(m_lines.front()).endsWith("\r\n") ? "\r\n" : "\n")
    {
    }

    void SetStart()
    {
        const IcalLine *line = Find("DTSTART");
        if (line != nullptr && KeepsForm()) {
            SetValue(*line, IcalText(*m_event.Start));
        } else if (line != nullptr) {
            Replace(*line, HeadOf("DTSTART", *m_event.Start) + IcalText(*m_event.Start));
        } else {
            InsertBehind("UID", HeadOf("DTSTART", *m_event.Start) + IcalText(*m_event.Start));
        }
    }

    /// `hasChanged`: not only moved.
    void SetEnd(bool hasChanged)
    {
        if (const IcalLine *line = Find("DTEND")) {
            const AgendaTime end = End();
            const QByteArray old = Unfolded(Raw(*line));
            const bool isDate = old.indexOf('T', ValueOf(old)) < 0;
            if (isDate == end.IsDate && KeepsForm()) {
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

    void SetSeries()
    {
        const AgendaSeries none;
        const AgendaSeries &former = m_former.Series != nullptr ? *m_former.Series : none;
        if (m_event.Series == nullptr) {
            Drop({"RRULE", "EXRULE", "RDATE", "EXDATE"});
            return;
        }
        const AgendaSeries &series = *m_event.Series;
        if (former.Rules.empty()) {
            for (const QByteArray &rule : series.Rules) {
                InsertBehind("DTSTART", "RRULE:" + rule);
            }
        } else {
            SetRules("RRULE", series.Rules, former.Rules);
        }
        SetRules("EXRULE", series.ExceptRules, former.ExceptRules);
        if (series.ExceptDates != former.ExceptDates) {
            SetExceptDates(series.ExceptDates, former.ExceptDates);
        }
        if (series.ExtraDates != former.ExtraDates) {
            SetExtraDates(series.ExtraDates);
        }
    }

    /// What else a change may concern.
    void SetOthers()
    {
        if (m_event.Uid != m_former.Uid) {
            SetOrAdd("UID", m_event.Uid);
        }
        if (m_event.Title != m_former.Title) {
            SetText("SUMMARY", m_event.Title, "UID");
        }
        if (m_event.Place != m_former.Place) {
            SetText("LOCATION", m_event.Place, "SUMMARY");
        }
        if (m_event.Notes != m_former.Notes) {
            SetText("DESCRIPTION", m_event.Notes, "SUMMARY");
            Drop({"X-ALT-DESC"}); // the same once more, as it was
        }
    }

    /// Dates that were there before stay as they were written, when there are only more of them.
    void SetExceptDates(const std::vector<AgendaTime> &dates, const std::vector<AgendaTime> &former)
    {
        const bool areMore =
            dates.size() > former.size() && std::equal(former.begin(), former.end(), dates.begin());
        const auto lineOf = [this](const AgendaTime &date) {
            return HeadOf("EXDATE", date) + IcalText(date);
        };
        if (areMore) {
            for (const AgendaTime &date : std::span(dates).subspan(former.size())) {
                InsertBehind(Find("EXDATE") != nullptr  ? "EXDATE"
                             : Find("RRULE") != nullptr ? "RRULE"
                                                        : "DTSTART",
                             lineOf(date));
            }
            return;
        }
        QByteArrayList lines;
        for (const AgendaTime &date : dates) {
            lines.append(lineOf(date));
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

    QByteArray Result() const { return WithPieces(m_text, m_changes); }

private:
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
        line = line != nullptr ? line : Find("UID");
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

    /// What the parameters say, a language or an address perhaps, is about the former text.
    void SetText(const QByteArray &name, const QString &value, QByteArrayView behind)
    {
        QByteArray text = value.toUtf8();
        for (const char *special : {"\\", ";", ","}) {
            text.replace(special, QByteArray("\\") + special);
        }
        text = name + ':' + text.replace("\r", "").replace("\n", "\\n");
        const IcalLine *line = Find(name);
        if (value.isEmpty()) {
            Drop({name});
        } else if (line != nullptr) {
            Replace(*line, text);
        } else {
            InsertBehind(behind, text);
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

    /// Whether the start is written as before, but for its value.
    bool KeepsForm() const
    {
        return m_former.Start && m_former.Start->IsDate == m_event.Start->IsDate
               && m_former.Start->Zone == m_event.Start->Zone;
    }

    /// The name and the parameters that say in which form the time is. Those of the start are taken
    /// over where they say the same; they may name a zone that is not known here.
    QByteArray HeadOf(const QByteArray &name, const AgendaTime &time) const
    {
        const IcalLine *start = Find("DTSTART");
        const AgendaTime &own = *m_event.Start;
        if (start != nullptr && KeepsForm() && time.Zone == own.Zone && time.IsDate == own.IsDate) {
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
    const AgendaEvent &m_former;
    std::vector<IcalLine> m_lines;
    QByteArray m_lineEnd;
    std::vector<IcalPiece> m_changes;
};

} // namespace

QByteArray ChangedEvent(const QByteArray &text, const Agenda &agenda, const AgendaEvent &event,
                        const AgendaEvent &former, const QDateTime &now)
{
    EventText changed(text, agenda, event, former);
    if (event.Start) {
        changed.SetStart();
        changed.SetEnd(event.Length != former.Length);
    }
    if (event.Series != nullptr || former.Series != nullptr) { // else there may be unread ones
        changed.SetSeries();
    }
    if (event.Override && event.Override != former.Override) {
        changed.SetOverridden();
    }
    changed.SetOthers();
    changed.SetRevision(now);
    return changed.Result();
}

QByteArray NewEvent(const QByteArray &text, const Agenda &agenda, const AgendaEvent &event,
                    const AgendaEvent &model, const QDateTime &now)
{
    EventText copy(text, agenda, event, model);
    copy.SetStart();
    copy.SetEnd(event.Length != model.Length);
    copy.SetSeries();
    if (event.Override) {
        copy.SetOverride();
    } else {
        copy.Drop({"RECURRENCE-ID"});
    }
    copy.SetOthers();
    copy.SetRevision(now);
    return copy.Result();
}

QByteArray MadeEvent(const Agenda &agenda, const AgendaEvent &event, const QByteArray &lineEnd,
                     const QDateTime &now)
{
    const QByteArray frame = QByteArrayList({"BEGIN:VEVENT", "UID:", "END:VEVENT"}).join(lineEnd);
    return NewEvent(frame + lineEnd, agenda, event, AgendaEvent(), now);
}

} // namespace korvane::planner
