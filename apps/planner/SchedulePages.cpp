#include "SchedulePages.h"

#include "ScheduleDocument.h"
#include "foundation/qt/zuConvert.h"
#include "foundation/zuTranslate.h"
#include "plan/PlannerText.h"

#include <QDateTime>
#include <QLocale>

#include <algorithm>

namespace korvane::planner {

namespace {

QDate DateOf(AgendaSeconds day)
{
    return QDateTime::fromSecsSinceEpoch(day, Qt::UTC).date();
}

QString EventsText(int count)
{
    return ToQt(Translate("Planner", "%Ln event(s)", nullptr, count));
}

/// A calendar file: weeks, days and single days by place or calendar.
class AgendaSchedule final : public ISchedulePages
{
public:
    AgendaSchedule(AgendaResult calendar, const QString &fileName)
        : m_document(std::move(calendar), fileName)
    {
    }

    QString Name() const override { return m_document.GetAgenda().Name; }
    const PlanRemarks &Remarks() const override { return m_document.GetAgenda().Remarks; }
    QString CountText() const override
    {
        return EventsText(static_cast<int>(m_document.GetAgenda().EventCount()));
    }
    QString ZoneName() const override { return m_document.Pages().ZoneName(); }
    ScheduleDocument *Document() override { return &m_document; }
    QStringList Arrangements() const override
    {
        QStringList texts;
        for (const Arrangement &one : kArrangements) {
            texts.append(PlannerText::tr(one.Caption));
        }
        return texts;
    }
    SchedulePage Page(int arrangement, AgendaSeconds day) const override
    {
        const Arrangement &one = kArrangements[arrangement];
        return m_document.Pages().Page(one.Columns, BeginOf(one, day), one.Days);
    }
    SchedulePage DaysFrom(AgendaSeconds day, int days) const override
    {
        return m_document.Pages().Page(AgendaColumns::Days, day, days);
    }
    AgendaSeconds FirstDay(AgendaSeconds day) const override
    {
        return m_document.Pages().DayNear(day);
    }
    AgendaSeconds Step(int arrangement, AgendaSeconds day, int pages) const override
    {
        const Arrangement &one = kArrangements[arrangement];
        const int days = one.FromMonday ? 7 : one.Days;
        return BeginOf(one, day) + pages * days * kSecondsPerDay;
    }

private:
    struct Arrangement
    {
        const char *Caption;
        AgendaColumns Columns;
        int Days;
        bool FromMonday;
    };
    static constexpr Arrangement kArrangements[] = {
        {QT_TRANSLATE_NOOP("Planner", "Week"), AgendaColumns::Days, 7, true},
        {QT_TRANSLATE_NOOP("Planner", "Work week"), AgendaColumns::Days, 5, true},
        {QT_TRANSLATE_NOOP("Planner", "Day"), AgendaColumns::Days, 1, false},
        {QT_TRANSLATE_NOOP("Planner", "Day by place"), AgendaColumns::Places, 1, false},
        {QT_TRANSLATE_NOOP("Planner", "Day by calendar"), AgendaColumns::Calendars, 1, false},
    };

    static AgendaSeconds BeginOf(const Arrangement &arrangement, AgendaSeconds day)
    {
        const int behind = arrangement.FromMonday ? DateOf(day).dayOfWeek() - 1 : 0;
        return (DayOf(day) - behind) * kSecondsPerDay;
    }

    ScheduleDocument m_document;
};

/// A conference programme: a page for every day.
class ProgrammeSchedule final : public ISchedulePages
{
public:
    ProgrammeSchedule(ProgrammeResult programme, const QString & /*fileName*/)
        : m_programme(std::move(programme.Value))
    {
    }

    QString Name() const override { return m_programme.Name; }
    const PlanRemarks &Remarks() const override { return m_programme.Remarks; }
    QString CountText() const override
    {
        const auto rooms = static_cast<int>(m_programme.Rooms.size());
        return EventsText(static_cast<int>(m_programme.Talks.size())) + QStringLiteral("   ")
               + ToQt(Translate("Planner", "%Ln room(s)", nullptr, rooms));
    }
    QStringList Arrangements() const override { return {}; }
    QStringList Tabs() const override
    {
        QStringList texts;
        for (const ProgrammeDay &day : m_programme.Days) {
            texts.append(QLocale().toString(DateOf(day.Date), PlannerText::tr("ddd d MMM")));
        }
        return texts;
    }
    SchedulePage Page(int /*arrangement*/, AgendaSeconds day) const override
    {
        return PageOf(m_programme, IndexOf(day));
    }
    SchedulePage DaysFrom(AgendaSeconds day, int /*days*/) const override { return Page(0, day); }
    AgendaSeconds FirstDay(AgendaSeconds day) const override { return DateAt(IndexOf(day)); }
    AgendaSeconds Step(int /*arrangement*/, AgendaSeconds day, int pages) const override
    {
        const int last = static_cast<int>(m_programme.Days.size()) - 1;
        return DateAt(std::clamp(IndexOf(day) + pages, 0, last));
    }

private:
    AgendaSeconds DateAt(int index) const
    {
        return m_programme.Days[static_cast<std::size_t>(index)].Date;
    }
    /// The day of the conference that is it, or else the first one.
    int IndexOf(AgendaSeconds day) const
    {
        const auto found =
            std::ranges::find(m_programme.Days, DayOf(day) * kSecondsPerDay, &ProgrammeDay::Date);
        return found != m_programme.Days.end() ? static_cast<int>(found - m_programme.Days.begin())
                                               : 0;
    }

    Programme m_programme;
};

template <typename Schedule, typename Result>
std::unique_ptr<ISchedulePages> Opened(Result result, const QString &fileName, PlanError &error)
{
    if (result.Status != PlanStatus::Loaded) {
        error = result.Error;
        return nullptr;
    }
    return std::make_unique<Schedule>(std::move(result), fileName);
}

} // namespace

ScheduleResult ReadSchedule(const QString &fileName, IProgress &progress)
{
    if (IsProgrammeFile(fileName)) {
        return LoadProgramme(fileName, progress);
    }
    return LoadAgenda(fileName, progress);
}

std::unique_ptr<ISchedulePages> PagesOf(ScheduleResult result, const QString &fileName,
                                        PlanError &error)
{
    if (auto *programme = std::get_if<ProgrammeResult>(&result)) {
        return Opened<ProgrammeSchedule>(std::move(*programme), fileName, error);
    }
    return Opened<AgendaSchedule>(std::move(std::get<AgendaResult>(result)), fileName, error);
}

} // namespace korvane::planner
