#include "PrintCommand.h"

#include "PictureFormat.h"
#include "PlanPrint.h"
#include "PlanView.h"
#include "ScheduleCommands.h"
#include "SchedulePages.h"
#include "SchedulePrint.h"
#include "foundation/qt/zuConvert.h"
#include "plan/PlanFile.h"
#include "printing/qt/zuPrintJob.h"

#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace korvane::planner {

namespace {

PrintOptions OptionsOf(const PrintRequest &request, const PrintJob &job)
{
    PrintOptions options = job.StandardOptions();
    options.Paper = request.Paper;
    options.Landscape = request.Landscape;
    if (request.Pages) {
        options.Scaling.PagesAcross = request.Pages->width();
        options.Scaling.PagesDown = request.Pages->height();
    }
    options.Scaling.Enlarge = request.Enlarge;
    if (request.Percent) {
        options.Scaling.Fit = TPrintFit::pfPercent;
        options.Scaling.Percent = *request.Percent;
    }
    return options;
}

ExitCode Save(TzuPrintDocument &document, const QString &fileName, const PrintRequest &request)
{
    constexpr int kDotsPerInch = 150;
    try {
        SavePages(document, request.File, kDotsPerInch);
    } catch (const std::runtime_error &error) {
        PrintError(ErrorLine(fileName, {0, ToQt(error.what())}));
        return ExitCode::UnusableFile;
    }
    return ExitCode::Ok;
}

/// Those that are asked for by a stretch of less than a day.
std::optional<std::pair<QTime, QTime>> HoursOf(const RenderRequest &range)
{
    if (!range.From || !range.To || *range.To - *range.From >= 1) {
        return std::nullopt;
    }
    return std::pair(ToQDateTime(*range.From).time(), ToQDateTime(*range.To).time());
}

/// The days of a programme that are asked for, or the page of a calendar.
std::vector<SchedulePage> PagesFor(const ISchedulePages &schedule, const RenderRequest &range)
{
    std::vector<SchedulePage> pages;
    const auto days = static_cast<int>(schedule.Tabs().size());
    if (range.From || range.To || days == 0) {
        pages.push_back(PageFor(schedule, range));
        return pages;
    }
    const AgendaSeconds first = schedule.Step(0, 0, -days);
    for (int day = 0; day < days; ++day) {
        pages.push_back(schedule.Page(0, schedule.Step(0, first, day)));
    }
    return pages;
}

} // namespace

bool SavePages(TzuPrintDocument &document, const QString &fileName, int dotsPerInch)
{
    switch (PictureFormatOf(fileName).value_or(PictureFormat::Pdf)) {
    case PictureFormat::Svg:
        return !document.SaveSvg(fileName).isEmpty();
    case PictureFormat::Png:
        return !document.SavePictures(fileName, dotsPerInch).isEmpty();
    case PictureFormat::Pdf:
        break;
    }
    return document.SavePdf(fileName);
}

ExitCode PrintPlan(const QString &fileName, const ReadOptions &options, const PrintRequest &request,
                   const RenderRequest &range)
{
    auto result = LoadOrPrintError(fileName, options);
    if (!result) {
        return ExitCode::UnusableFile;
    }
    const ViewKind view = range.View.value_or(
        result->Value.Kind == PlanKind::Intervals && !range.Table ? ViewKind::Resources
                                                                  : ViewKind::Tasks);
    PlanPrint print(std::move(result->Value), fileName, view);
    if (range.Table) {
        print.ShowTable();
    }
    print.Apply(OptionsOf(request, print));
    if (range.From || range.To) {
        const TDateTime from = range.From.value_or(print.Chart().Start());
        const TDateTime to = range.To.value_or(print.Chart().Stop());
        print.SetRange(from, to);
    }
    return Save(print.Printing(), fileName, request);
}

ExitCode PrintSchedule(const QString &fileName, const PrintRequest &request,
                       const RenderRequest &range)
{
    PlanError error;
    NoProgress progress;
    const auto schedule = PagesOf(ReadSchedule(fileName, progress), fileName, error);
    if (schedule == nullptr) {
        PrintError(ErrorLine(fileName, error));
        return ExitCode::UnusableFile;
    }
    std::vector<std::unique_ptr<SchedulePrint>> prints;
    TzuPrintJob job;
    job.SetTitle(schedule->Name());
    for (SchedulePage &page : PagesFor(*schedule, range)) {
        prints.push_back(
            std::make_unique<SchedulePrint>(std::move(page), schedule->Name(), fileName));
        PrintOptions options = OptionsOf(request, *prints.back());
        options.Hours = HoursOf(range);
        prints.back()->Apply(options);
        job.Add(prints.back()->Printing());
    }
    return Save(job, fileName, request);
}

} // namespace korvane::planner
