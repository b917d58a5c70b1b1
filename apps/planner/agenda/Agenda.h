// The planner's own picture of calendars with dates in them.
#pragma once

#include "agenda/AgendaZone.h"
#include "plan/PlanRemarks.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

namespace korvane::planner {

/// A moment as a calendar writes it: what the clock on the wall shows, and where that hangs.
struct AgendaTime
{
    AgendaSeconds Wall = 0;
    int Zone = kFloating; ///< kFloating, or index into the zones of the agenda
    bool IsDate = false;  ///< a day, not a moment in it; Wall is its midnight

    friend bool operator==(const AgendaTime &, const AgendaTime &) = default;
};

/// Days as the calendar counts them, however long they are, and seconds by the clock.
struct AgendaLength
{
    qint64 Days = 0;
    AgendaSeconds Seconds = 0;

    friend bool operator==(const AgendaLength &, const AgendaLength &) = default;
};

/// A date that a series has besides those that its rules give.
struct AgendaExtraDate
{
    AgendaTime Start;
    std::optional<AgendaLength> Length; ///< where it is not the event's

    friend bool operator==(const AgendaExtraDate &, const AgendaExtraDate &) = default;
};

/// What makes an event a series.
struct AgendaSeries
{
    std::vector<QByteArray> Rules; ///< RRULE values
    std::vector<QByteArray> ExceptRules;
    std::vector<AgendaExtraDate> ExtraDates; ///< RDATE
    std::vector<AgendaTime> ExceptDates;     ///< EXDATE

    friend bool operator==(const AgendaSeries &, const AgendaSeries &) = default;
};

/// Takes the place of one occurrence of the series with the same UID.
struct AgendaOverride
{
    AgendaTime Of; ///< when that would have started
    bool AndFollowing = false;

    friend bool operator==(const AgendaOverride &, const AgendaOverride &) = default;
};

struct AgendaOrigin;

enum class AgendaEndForm : std::uint8_t { None, End, Duration };

struct AgendaEvent
{
    QByteArray Uid;
    QString Title;
    QString Place;
    QString Notes;
    std::optional<AgendaTime> Start; ///< nothing when the file gives none that can be used
    AgendaLength Length;
    std::optional<AgendaOverride> Override;
    std::shared_ptr<const AgendaSeries> Series; ///< null for a single event
    std::shared_ptr<const AgendaOrigin> Origin; ///< of one that comes from another file
    int Calendar = 0;                           ///< index into Agenda::Calendars
    int Sequence = 0;                           ///< of its revision
    int EndZone = kFloating;                    ///< of the time that EndForm::End writes
    int Source = -1; ///< which event of the file it is, counted from 0; -1 when it is none
    int CopyOf = -1; ///< which event of the file a new one was copied from
    AgendaEndForm EndForm = AgendaEndForm::None;
    bool IsCanceled = false;
    bool IsRemoved = false; ///< keeps its place, so that the others keep theirs

    bool IsAllDay() const { return Start && Start->IsDate; }

    friend bool operator==(const AgendaEvent &, const AgendaEvent &) = default;
};

/// The text that an event was pasted from, and what it says.
struct AgendaOrigin
{
    QByteArray Text;
    AgendaEvent Event;
};

/// Whether an event stands for single occurrences of a series.
inline bool IsOverrideOf(const AgendaEvent &event, const AgendaEvent &series)
{
    return event.Override && event.Calendar == series.Calendar && event.Uid == series.Uid
           && !event.Uid.isEmpty() && !event.IsRemoved;
}

struct AgendaCalendar
{
    QString Name;
    QByteArray ZoneName;    ///< that its times are to be shown in; empty when it says nothing
    bool IsImplied = false; ///< not in the file, for events that stand in no calendar there
};

struct Agenda
{
    QString Name;
    std::vector<AgendaCalendar> Calendars;
    std::vector<AgendaEvent> Events; ///< in the order of the file, new ones last
    std::shared_ptr<AgendaZones> Zones;
    PlanRemarks Remarks;

    const AgendaEvent &At(int event) const { return Events[static_cast<std::size_t>(event)]; }
    /// Without those that the user has removed.
    std::size_t EventCount() const
    {
        return Events.size()
               - static_cast<std::size_t>(
                   std::ranges::count(Events, true, &AgendaEvent::IsRemoved));
    }
    /// Equal seconds are the same moment, as far as one of both is not floating.
    AgendaSeconds UtcOf(const AgendaTime &time) const { return Zones->ToUtc(time.Wall, time.Zone); }
};

} // namespace korvane::planner
