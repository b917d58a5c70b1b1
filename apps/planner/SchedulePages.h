// What a schedule window turns the pages of.
#pragma once

#include "agenda/AgendaReader.h"
#include "agenda/ProgrammeReader.h"
#include "agenda/SchedulePage.h"

#include <memory>
#include <variant>

namespace korvane::planner {

class ScheduleDocument;

class ISchedulePages
{
public:
    ISchedulePages() = default;
    ISchedulePages(const ISchedulePages &) = delete;
    ISchedulePages &operator=(const ISchedulePages &) = delete;
    virtual ~ISchedulePages() = default;

    virtual QString Name() const = 0;
    virtual const PlanRemarks &Remarks() const = 0;
    /// "114 events"; for the status bar.
    virtual QString CountText() const = 0;
    /// The zone whose clock the times follow; empty where that goes without saying.
    virtual QString ZoneName() const { return {}; }
    /// Captions of the arrangements to choose from.
    virtual QStringList Arrangements() const = 0;
    /// Captions of all pages where they are few; none where a date chooses the page.
    virtual QStringList Tabs() const { return {}; }
    virtual SchedulePage Page(int arrangement, AgendaSeconds day) const = 0;
    /// So many days from a day on; where a page is a day, that one.
    virtual SchedulePage DaysFrom(AgendaSeconds day, int days) const = 0;
    /// The day to begin with when `day` is asked for.
    virtual AgendaSeconds FirstDay(AgendaSeconds day) const = 0;
    /// The day of a page so many pages on.
    virtual AgendaSeconds Step(int arrangement, AgendaSeconds day, int pages) const = 0;
    /// What can be changed; null for what is only looked at.
    virtual ScheduleDocument *Document() { return nullptr; }
};

/// A calendar or a programme as it comes from its file.
using ScheduleResult = std::variant<AgendaResult, ProgrammeResult>;

/// Reads a file, in any thread.
ScheduleResult ReadSchedule(const QString &fileName, IProgress &progress);
/// Null when the file cannot be used; `error` says why then.
std::unique_ptr<ISchedulePages> PagesOf(ScheduleResult result, const QString &fileName,
                                        PlanError &error);

} // namespace korvane::planner
