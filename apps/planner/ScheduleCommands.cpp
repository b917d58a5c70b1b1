#include "ScheduleCommands.h"

#include "agenda/AgendaDates.h"
#include "agenda/AgendaReader.h"
#include "agenda/AgendaSummary.h"
#include "agenda/ProgrammeReader.h"
#include "plan/PlanFile.h"

#include <QJsonDocument>

#include <cstdio>

namespace korvane::planner {

namespace {

std::optional<AgendaSeconds> SecondsOf(const std::optional<TDateTime> &date)
{
    return date ? std::optional(SecondsOfDate(*date)) : std::nullopt;
}

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

bool IsScheduleFile(const QString &fileName)
{
    return IsAgendaFile(fileName) || IsProgrammeFile(fileName);
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

} // namespace korvane::planner
