#include "ScheduleCommands.h"

#include "Picture.h"
#include "SchedulePages.h"
#include "ScheduleStrip.h"
#include "ScheduleView.h"
#include "agenda/AgendaDates.h"
#include "agenda/AgendaReader.h"
#include "agenda/AgendaSummary.h"
#include "agenda/ProgrammeReader.h"
#include "plan/PlanFile.h"
#include "plan/PlannerText.h"

#include <QApplication>
#include <QDateTime>
#include <QJsonDocument>

#include <algorithm>
#include <cstdio>

namespace korvane::planner {

namespace {

std::optional<AgendaSeconds> SecondsOf(const std::optional<TDateTime> &date)
{
    return date ? std::optional(SecondsOfDate(*date)) : std::nullopt;
}

constexpr int kMostDays = 31;

template <typename Result>
ExitCode Print(const QString &fileName, const Result &result, const QJsonObject &summary)
{
    if (result.Status != PlanStatus::Loaded) {
        PrintError(ErrorLine(fileName, result.Error));
        return ExitCode::UnusableFile;
    }
    std::puts(QJsonDocument(summary).toJson(QJsonDocument::Compact).constData());
    return ExitCode::Ok;
}

} // namespace

SchedulePage PageFor(const ISchedulePages &pages, const RenderRequest &request)
{
    const AgendaSeconds now = QDateTime::currentSecsSinceEpoch();
    if (!request.From) {
        return pages.Page(0, pages.FirstDay(SecondsOf(request.To).value_or(now)));
    }
    const AgendaSeconds from = *SecondsOf(request.From);
    const AgendaSeconds to = SecondsOf(request.To).value_or(from + 7 * kSecondsPerDay);
    const auto days = (to - from + kSecondsPerDay - 1) / kSecondsPerDay;
    return pages.DaysFrom(from, static_cast<int>(std::clamp<AgendaSeconds>(days, 1, kMostDays)));
}

bool IsScheduleFile(const QString &fileName)
{
    return IsAgendaFile(fileName) || IsProgrammeFile(fileName);
}

QString ScheduleDialogFilter()
{
    return PlannerText::tr("Calendars (*.ics *.ics.gz);;Conference programmes (*.xml *.json)");
}

ExitCode PrintScheduleSummary(const QString &fileName, const RenderRequest &request)
{
    NoProgress progress;
    if (IsProgrammeFile(fileName)) {
        const ProgrammeResult result = LoadProgramme(fileName, progress);
        return Print(fileName, result, Summarize(result.Value));
    }
    const AgendaResult result = LoadAgenda(fileName, progress);
    return Print(fileName, result,
                 result.Status == PlanStatus::Loaded
                     ? Summarize(result.Value, SecondsOf(request.From), SecondsOf(request.To))
                     : QJsonObject());
}

ExitCode RenderSchedule(const QString &fileName, const RenderRequest &request)
{
    PlanError error;
    NoProgress progress;
    const auto pages = PagesOf(ReadSchedule(fileName, progress), fileName, error);
    if (pages == nullptr) {
        PrintError(ErrorLine(fileName, error));
        return ExitCode::UnusableFile;
    }
    ScheduleView view;
    view.resize(request.Size);
    view.SetScrollVisibility(TScrollVisibility::svNever);
    view.setAttribute(Qt::WA_DontShowOnScreen);
    view.SetStrip(true);
    view.show();
    view.Show(PageFor(*pages, request));
    QApplication::processEvents();
    QWidgetList parts{&view.SchemaArea(), &view.DateScaler(), &view.Header()};
    if (view.Strip().isVisible()) {
        parts.append({&view.Strip().SchemaArea(), &view.Strip().FlippedHeader()});
    }
    const PictureSubject subject{view, pages->Name(), parts};
    if (const auto reason = SavePicture(subject, request.Picture, request.Ratio)) {
        PrintError(ErrorLine(request.Picture, {0, *reason}));
        return ExitCode::UnusableFile;
    }
    return ExitCode::Ok;
}

} // namespace korvane::planner
