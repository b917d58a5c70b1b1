// The planner's own picture of a conference programme.
#pragma once

#include "agenda/AgendaZone.h"
#include "foundation/zuTypes.h"
#include "plan/PlanRemarks.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace korvane::planner {

/// Times are those of the clocks at the venue.
struct ProgrammeTalk
{
    QString Title;
    QString Subtitle;
    QString Abstract;
    QString Type;
    QString Language;
    QStringList Persons;
    int Day = 0;    ///< index; of the conference, so that the small hours belong to the day before
    int Room = 0;   ///< index
    int Track = -1; ///< index; -1 for none
    AgendaSeconds Start = 0;
    AgendaSeconds Length = 0;

    AgendaSeconds Stop() const { return Start + Length; }
};

struct ProgrammeDay
{
    AgendaSeconds Date = 0; ///< midnight
    /// When its talks begin and end; a day without talks has none.
    AgendaSeconds Start = 0;
    AgendaSeconds Stop = 0;
};

struct ProgrammeTrack
{
    QString Name;
    std::optional<TColor> Color;
};

struct Programme
{
    QString Name;
    std::vector<QString> Rooms; ///< in the order of the file
    std::vector<ProgrammeDay> Days;
    std::vector<ProgrammeTrack> Tracks;
    std::vector<ProgrammeTalk> Talks; ///< in the order of the file
    PlanRemarks Remarks;
};

} // namespace korvane::planner
