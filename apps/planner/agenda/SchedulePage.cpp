#include "agenda/SchedulePage.h"

#include "plan/PlannerText.h"

#include <QDateTime>
#include <QHash>
#include <QLocale>
#include <QTimeZone>

#include <algorithm>

namespace korvane::planner {

namespace {

constexpr AgendaSeconds kHour = 3600;
/// Shown at least, of a page whose columns are days.
constexpr AgendaRange kUsualHours{8 * kHour, 18 * kHour};

QDateTime Clock(AgendaSeconds wall)
{
    return QDateTime::fromSecsSinceEpoch(wall, Qt::UTC);
}

QString TextOf(AgendaSeconds wall, const QString &format)
{
    return QLocale().toString(Clock(wall), format);
}

AgendaSeconds Midnight(AgendaSeconds wall)
{
    return DayOf(wall) * kSecondsPerDay;
}

/// Whole hours around what is shown.
void FitAxis(SchedulePage &page, std::optional<AgendaRange> least)
{
    std::optional<AgendaRange> range = least;
    for (const ScheduleBlock &block : page.Blocks) {
        if (block.IsAllDay) {
            continue;
        }
        const AgendaSeconds base = page.Columns[static_cast<std::size_t>(block.Column)].BaseDate;
        const AgendaRange own{(block.Start - base) / kHour * kHour,
                              (block.Stop - base + kHour - 1) / kHour * kHour};
        range =
            range ? AgendaRange{std::min(range->From, own.From), std::max(range->To, own.To)} : own;
    }
    page.Axis = range.value_or(kUsualHours);
    page.Axis.To = std::max(page.Axis.To, page.Axis.From + kHour);
}

QString JoinedLines(const QStringList &lines)
{
    QStringList filled = lines;
    filled.removeAll(QString());
    return filled.join(u'\n');
}

} // namespace

QString TimesText(AgendaSeconds start, AgendaSeconds stop)
{
    const QString time = QStringLiteral("HH:mm");
    return stop > start ? TextOf(start, time) + QStringLiteral(" – ") + TextOf(stop, time)
                        : TextOf(start, time);
}

AgendaPages::AgendaPages(const Agenda &agenda)
    : m_agenda(agenda)
    , m_zone(ChosenZone())
{
}

int AgendaPages::ChosenZone() const
{
    for (const AgendaCalendar &calendar : m_agenda.Calendars) {
        if (!calendar.ZoneName.isEmpty()) {
            if (const auto zone = m_agenda.Zones->Find(calendar.ZoneName, 0)) {
                return *zone;
            }
        }
    }
    QHash<int, int> counts;
    int best = kUtc;
    for (const AgendaEvent &event : m_agenda.Events) {
        if (event.Start && event.Start->Zone > kUtc) {
            const int count = ++counts[event.Start->Zone];
            best = best == kUtc || count > counts.value(best) ? event.Start->Zone : best;
        }
    }
    const QByteArray system = QTimeZone::systemTimeZoneId();
    return best != kUtc || system == "Etc/UTC" ? best
                                               : m_agenda.Zones->Find(system, 0).value_or(kUtc);
}

AgendaSeconds AgendaPages::ShownWall(const AgendaTime &time) const
{
    return time.IsDate || time.Zone == kFloating || time.Zone == m_zone
               ? time.Wall
               : m_agenda.Zones->ToWall(m_agenda.UtcOf(time), m_zone);
}

AgendaPages::Shown AgendaPages::ShownOf(const AgendaOccurrence &occurrence) const
{
    const AgendaTime &start = occurrence.Start;
    const AgendaSeconds end = EndOf(m_agenda, start, occurrence.Length);
    const bool isLocal = start.IsDate || start.Zone == kFloating;
    return {occurrence, ShownWall(start), isLocal ? end : m_agenda.Zones->ToWall(end, m_zone)};
}

AgendaChange AgendaPages::TimesOf(const SchedulePage &page, const ScheduleMove &move) const
{
    const ScheduleBlock &former = page.Blocks.at(static_cast<std::size_t>(move.Block));
    const AgendaOccurrence &occurrence = page.OccurrenceOf(move.Block);
    const Shown shown = ShownOf(occurrence);
    const AgendaSeconds startShift = move.Times.From - former.Start;
    const AgendaSeconds stopShift = move.Times.To - former.Stop;
    const bool isMove = startShift == stopShift;
    const bool movesStart = isMove || former.Start == shown.Start;
    const bool movesStop = isMove || former.Stop == shown.Stop;
    const AgendaSeconds start = shown.Start + (movesStart ? startShift : 0);
    const AgendaSeconds stop = std::max(start, shown.Stop + (movesStop ? stopShift : 0));
    AgendaChange change = ChangeTo(occurrence, {start, stop}, occurrence.Start.IsDate);
    if (isMove) {
        change.Length = occurrence.Length;
    }
    return change;
}

AgendaChange AgendaPages::MoveOf(const SchedulePage &page, const ScheduleMove &move) const
{
    const ScheduleBlock &former = page.Blocks.at(static_cast<std::size_t>(move.Block));
    AgendaChange change = TimesOf(page, move);
    if (move.Column != former.Column) {
        const ScheduleColumn &column = page.Columns.at(static_cast<std::size_t>(move.Column));
        change.Place = column.Place;
        change.Calendar = column.Calendar;
    }
    return change;
}

std::variant<AgendaEdit, QString>
AgendaPages::Moved(const SchedulePage &page, const ScheduleMove &move, AgendaScope scope) const
{
    return ChangeOccurrence(m_agenda, page.OccurrenceOf(move.Block), MoveOf(page, move), scope);
}

AgendaEdit AgendaPages::Copied(const SchedulePage &page, const ScheduleMove &move) const
{
    return CopyOccurrence(m_agenda, page.OccurrenceOf(move.Block), MoveOf(page, move));
}

QString AgendaPages::ZoneName() const
{
    return m_zone > kUtc    ? QString::fromUtf8(m_agenda.Zones->At(m_zone).Id())
           : m_zone == kUtc ? QStringLiteral("UTC")
                            : QString();
}

std::vector<AgendaPages::Shown> AgendaPages::ShownIn(const AgendaRange &range) const
{
    const AgendaOccurrences occurrences(m_agenda);
    std::vector<Shown> shown;
    for (int event = 0; event < static_cast<int>(m_agenda.Events.size()); ++event) {
        const AgendaEvent &one = m_agenda.Events[static_cast<std::size_t>(event)];
        const AgendaSeconds length = (one.Length.Days + 1) * kSecondsPerDay + one.Length.Seconds;
        const AgendaRange reach{range.From - length, range.To + kSecondsPerDay};
        for (const AgendaOccurrence &found : occurrences.StartingIn(reach, event)) {
            const Shown item = ShownOf(found);
            if (item.Start < range.To && std::max(item.Stop, item.Start + 1) > range.From) {
                shown.push_back(item);
            }
        }
    }
    std::ranges::stable_sort(shown, {}, [](const Shown &item) { return item.Start; });
    return shown;
}

void AgendaPages::AddCalendars(SchedulePage &page) const
{
    for (const AgendaCalendar &calendar : m_agenda.Calendars) {
        const int index = static_cast<int>(page.Columns.size());
        page.Columns.push_back({calendar.Name.isEmpty()
                                    ? PlannerText::tr("Calendar %1").arg(index + 1)
                                    : calendar.Name,
                                page.Axis.From,
                                {},
                                index});
    }
}

int AgendaPages::ColumnOf(SchedulePage &page, const AgendaEvent &event, AgendaColumns columns) const
{
    if (columns == AgendaColumns::Calendars) {
        return event.Calendar;
    }
    const QString place = event.Place.simplified();
    const QString caption = place.isEmpty() ? PlannerText::tr("(no place)") : place;
    const auto found = std::ranges::find(page.Columns, caption, &ScheduleColumn::Caption);
    if (found != page.Columns.end()) {
        return static_cast<int>(found - page.Columns.begin());
    }
    page.Columns.push_back({caption, page.Axis.From, place});
    return static_cast<int>(page.Columns.size()) - 1;
}

void AgendaPages::AddBlocks(SchedulePage &page, const Shown &shown, AgendaColumns columns) const
{
    const AgendaEvent &event = m_agenda.Events[static_cast<std::size_t>(shown.Occurrence.Event)];
    ScheduleBlock block;
    block.Occurrence = static_cast<int>(page.Occurrences.size());
    page.Occurrences.push_back(shown.Occurrence);
    block.Title = event.Title.simplified();
    block.Detail = columns == AgendaColumns::Places ? QString() : event.Place.simplified();
    block.Hue = m_agenda.Calendars.size() > 1 && columns != AgendaColumns::Calendars
                    ? static_cast<unsigned>(event.Calendar)
                    : static_cast<unsigned>(qHash(block.Title, 0));
    block.IsAllDay = event.IsAllDay();
    block.IsCanceled = event.IsCanceled;
    const QString when = event.IsAllDay()
                             ? TextOf(shown.Start, PlannerText::tr("dddd, d MMMM yyyy"))
                             : TextOf(shown.Start, PlannerText::tr("dddd, d MMMM yyyy, "))
                                   + TimesText(shown.Start, shown.Stop);
    block.ToolTip =
        JoinedLines({block.Title, when, event.Place.simplified(), event.Notes.trimmed().left(400)});
    const AgendaSeconds first = std::max(Midnight(shown.Start), page.Axis.From);
    for (AgendaSeconds day = first; day < page.Axis.To && (day < shown.Stop || day == first);
         day += kSecondsPerDay) {
        block.Start = std::max(shown.Start, day);
        block.Stop = std::min(shown.Stop, day + kSecondsPerDay);
        block.Column = columns == AgendaColumns::Days
                           ? static_cast<int>((day - page.Axis.From) / kSecondsPerDay)
                           : ColumnOf(page, event, columns);
        page.Blocks.push_back(block);
    }
}

SchedulePage AgendaPages::Page(AgendaColumns columns, AgendaSeconds day, int days) const
{
    const AgendaSeconds first = Midnight(day);
    SchedulePage page;
    page.Axis = {first, first + (columns == AgendaColumns::Days ? days : 1) * kSecondsPerDay};
    const AgendaSeconds last = page.Axis.To - kSecondsPerDay;
    page.Title = TextOf(first, PlannerText::tr("d MMMM yyyy"));
    if (last > first) {
        page.Title += QStringLiteral(" – ") + TextOf(last, PlannerText::tr("d MMMM yyyy"));
    }
    page.HasDays = columns == AgendaColumns::Days;
    if (page.HasDays) {
        for (AgendaSeconds date = first; date <= last; date += kSecondsPerDay) {
            page.Columns.push_back({TextOf(date, PlannerText::tr("ddd d MMM")), date});
        }
    }
    if (columns == AgendaColumns::Calendars) {
        AddCalendars(page);
    }
    for (const Shown &shown : ShownIn(page.Axis)) {
        AddBlocks(page, shown, columns);
    }
    if (page.Columns.empty()) {
        page.Columns.push_back({PlannerText::tr("(nothing)"), first});
    }
    FitAxis(page, kUsualHours);
    return page;
}

AgendaSeconds AgendaPages::DayNear(AgendaSeconds near) const
{
    constexpr AgendaSeconds kReach = 400 * kSecondsPerDay;
    std::optional<AgendaSeconds> best;
    const auto offer = [&](AgendaSeconds start) {
        if (!best || std::abs(start - near) < std::abs(*best - near)) {
            best = start;
        }
    };
    for (const Shown &shown : ShownIn({near - kReach, near + kReach})) {
        offer(shown.Start);
    }
    if (!best) {
        for (const AgendaEvent &event : m_agenda.Events) {
            if (event.Start && !event.IsRemoved) {
                offer(ShownWall(*event.Start));
            }
        }
    }
    return Midnight(best.value_or(near));
}

void KeepColumns(SchedulePage &page, const SchedulePage &former)
{
    const auto isNamed = [](const ScheduleColumn &column) {
        return column.Place || column.Calendar;
    };
    if (page.HasDays || former.HasDays || !std::ranges::all_of(former.Columns, isNamed)) {
        return;
    }
    std::vector<ScheduleColumn> columns = former.Columns;
    std::vector<int> places;
    for (const ScheduleColumn &column : page.Columns) {
        auto found = std::ranges::find(columns, column.Caption, &ScheduleColumn::Caption);
        if (found == columns.end() && isNamed(column)) {
            found = columns.insert(found, column);
        }
        places.push_back(static_cast<int>(found - columns.begin()));
    }
    page.Columns = std::move(columns);
    for (ScheduleBlock &block : page.Blocks) {
        block.Column = places[static_cast<std::size_t>(block.Column)];
    }
}

SchedulePage PageOf(const Programme &programme, int day)
{
    SchedulePage page;
    const ProgrammeDay &date = programme.Days.at(static_cast<std::size_t>(day));
    page.Title = TextOf(date.Date, PlannerText::tr("dddd, d MMMM yyyy"));
    std::vector<int> columns(programme.Rooms.size(), -1);
    for (const ProgrammeTalk &talk : programme.Talks) {
        if (talk.Day == day) {
            columns[static_cast<std::size_t>(talk.Room)] = 0;
        }
    }
    for (std::size_t room = 0; room < columns.size(); ++room) {
        if (columns[room] == 0) {
            columns[room] = static_cast<int>(page.Columns.size());
            page.Columns.push_back({programme.Rooms[room], date.Date});
        }
    }
    for (const ProgrammeTalk &talk : programme.Talks) {
        if (talk.Day != day) {
            continue;
        }
        ScheduleBlock block;
        block.Column = columns[static_cast<std::size_t>(talk.Room)];
        block.Start = talk.Start;
        block.Stop = talk.Stop();
        block.Title = talk.Title.simplified();
        block.Detail = talk.Persons.join(QStringLiteral(", "));
        QString track;
        if (talk.Track >= 0) {
            const ProgrammeTrack &its = programme.Tracks[static_cast<std::size_t>(talk.Track)];
            track = its.Name;
            block.Color = its.Color;
            block.Hue = static_cast<unsigned>(talk.Track);
        }
        block.ToolTip = JoinedLines({block.Title, talk.Subtitle.simplified(),
                                     TimesText(talk.Start, talk.Stop()) + QStringLiteral(", ")
                                         + programme.Rooms[static_cast<std::size_t>(talk.Room)],
                                     track, block.Detail, talk.Abstract.simplified().left(400)});
        page.Blocks.push_back(std::move(block));
    }
    // Room by room, and the earlier of two that overlap before the later.
    std::ranges::stable_sort(page.Blocks, {}, [](const ScheduleBlock &block) {
        return std::pair(block.Column, block.Start);
    });
    FitAxis(page, {});
    return page;
}

} // namespace korvane::planner
