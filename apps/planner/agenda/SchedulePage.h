// What a schedule view shows of calendars and programmes: columns with blocks of time in them.
#pragma once

#include "agenda/AgendaEdit.h"
#include "agenda/AgendaRule.h"
#include "agenda/Programme.h"
#include "foundation/zuTypes.h"

#include <QString>

#include <optional>
#include <vector>

namespace korvane::planner {

struct ScheduleColumn
{
    QString Caption;
    /// The day that it stands for; 0 where all columns stand for the same one.
    AgendaSeconds BaseDate = 0;
    // What an event takes on that is moved here; nothing where the column stands for a day.
    std::optional<QString> Place = {};
    std::optional<int> Calendar = {};
};

/// A block from Start up to Stop. One that lasts over midnight has a block in every day's column.
struct ScheduleBlock
{
    int Column = 0;
    AgendaSeconds Start = 0;
    AgendaSeconds Stop = 0;
    QString Title;
    QString Detail;
    QString ToolTip;
    std::optional<TColor> Color;
    unsigned Hue = 0;    ///< chooses a colour where there is none; equal for what belongs together
    int Occurrence = -1; ///< index into SchedulePage::Occurrences; -1 for what is not edited
    bool IsAllDay = false;
    bool IsCanceled = false;
};

struct SchedulePage
{
    QString Title;
    std::vector<ScheduleColumn> Columns;
    std::vector<ScheduleBlock> Blocks;
    std::vector<AgendaOccurrence> Occurrences;
    /// What the time axis shows, less the base dates of the columns.
    AgendaRange Axis;
    bool HasDays = false; ///< columns are days that follow each other

    const AgendaOccurrence &OccurrenceOf(int block) const
    {
        const int index = Blocks.at(static_cast<std::size_t>(block)).Occurrence;
        return Occurrences.at(static_cast<std::size_t>(index));
    }
};

/// Where the user has put a block: times as the page shows them, and a column.
struct ScheduleMove
{
    int Block = 0;
    AgendaRange Times;
    int Column = 0;
};

/// An event as a form shows it.
struct ScheduleDraft
{
    QString Title;
    QString Place;
    QString Notes;
    /// As the page shows them; of an all-day event from the midnight of its first day to that after
    /// its last one.
    AgendaRange Times;
    AgendaSimpleRule Rule = {};
    int Calendar = 0;
    bool IsAllDay = false;

    friend bool operator==(const ScheduleDraft &, const ScheduleDraft &) = default;
};

enum class AgendaColumns : std::uint8_t { Days, Places, Calendars };

/// Pages of calendars. Times are shown by the clock of one zone: the one that the first calendar
/// asks for, else the one that most events are written in, else that of the system.
class AgendaPages
{
public:
    /// The agenda is observed.
    explicit AgendaPages(const Agenda &agenda);

    /// So many days from a day on, each a column; or one day, with a column for each place or
    /// calendar in which something takes place then.
    SchedulePage Page(AgendaColumns columns, AgendaSeconds day, int days) const;
    /// The edit that puts a block of one of these pages elsewhere: a block that moves takes along
    /// what belongs to it on other days. Ends that lie on other days stay. Or why that cannot be
    /// done.
    std::variant<AgendaEdit, QString> Moved(const SchedulePage &page, const ScheduleMove &move,
                                            AgendaScope scope) const;
    ScheduleDraft DraftOf(const AgendaOccurrence &occurrence) const;
    /// The edit that makes an occurrence what a form says; or why that cannot be done.
    std::variant<AgendaEdit, QString> Edited(const AgendaOccurrence &occurrence,
                                             const ScheduleDraft &draft, AgendaScope scope) const;
    /// The edit that adds an event.
    AgendaEdit Added(const ScheduleDraft &draft) const;
    /// The edit that puts a copy of a block there.
    AgendaEdit Copied(const SchedulePage &page, const ScheduleMove &move) const;
    /// The edit that adds the events of another agenda, in a calendar, and at the column's place if
    /// it has one. The first one comes to the column's day and the others as much later as they
    /// were, series as MoveByDays has them.
    AgendaEdit Pasted(const QByteArray &text, const Agenda &other, const ScheduleColumn &target,
                      int calendar) const;
    /// The name of the zone by whose clock times are shown; empty for that of the system.
    QString ZoneName() const;
    /// Midnight of the day nearest to `near` on which something takes place; `near` without any.
    AgendaSeconds DayNear(AgendaSeconds near) const;

private:
    struct Shown
    {
        AgendaOccurrence Occurrence;
        AgendaSeconds Start = 0;
        AgendaSeconds Stop = 0;
    };

    int ChosenZone() const;
    AgendaSeconds ShownWall(const AgendaTime &time) const;
    Shown ShownOf(const AgendaOccurrence &occurrence) const;
    std::vector<Shown> ShownIn(const AgendaRange &range) const;
    void AddBlocks(SchedulePage &page, const Shown &shown, AgendaColumns columns) const;
    /// A column for each calendar, also for those that have nothing on the page.
    void AddCalendars(SchedulePage &page) const;
    int ColumnOf(SchedulePage &page, const AgendaEvent &event, AgendaColumns columns) const;
    AgendaChange ChangeTo(const AgendaOccurrence &occurrence, const AgendaRange &times,
                          bool isAllDay) const;
    AgendaChange MoveOf(const SchedulePage &page, const ScheduleMove &move) const;
    AgendaChange TimesOf(const SchedulePage &page, const ScheduleMove &move) const;

    const Agenda &m_agenda;
    int m_zone = kFloating;
};

/// "13:00 – 14:30"; one time when both are the same.
QString TimesText(AgendaSeconds start, AgendaSeconds stop);

/// Gives a page of places or calendars the columns, in their order, that the same page had before a
/// change; new ones come last. So nothing moves under the user's hand, and the last event can leave
/// a place without the place going as well.
void KeepColumns(SchedulePage &page, const SchedulePage &former);

/// The talks of one day of a conference, in the rooms that are used on it.
SchedulePage PageOf(const Programme &programme, int day);

} // namespace korvane::planner
