#include "RenderCommand.h"

#include "Picture.h"
#include "PlanChart.h"
#include "PlanDocument.h"
#include "plan/PlanFile.h"

#include <QApplication>

#include <cstdio>

namespace korvane::planner {

namespace {

void ShowRange(PlanChart &chart, const RenderRequest &request)
{
    chart.FitPlan();
    const TDateTime length = chart.Stop() - chart.Start();
    TDateTime from = request.From.value_or(chart.Start());
    TDateTime to = request.To.value_or(chart.Stop());
    if (from >= to) { // only one end is given, and the plan lies on its other side
        (request.From ? to : from) = request.From ? from + length : to - length;
    }
    chart.DateScaler().SetRange(from, to);
}

} // namespace

ExitCode RenderPlan(const QString &fileName, const ReadOptions &options,
                    const RenderRequest &request)
{
    NoProgress progress;
    PlanResult result = LoadPlan(fileName, PlanReaders::Builtin(options), progress);
    if (result.Status != PlanStatus::Loaded) {
        PrintError(ErrorLine(fileName, result.Error));
        return ExitCode::UnusableFile;
    }
    PlanDocument document;
    PlanChart chart(document);
    chart.resize(request.Size);
    chart.SetScrollBarShown(false);
    document.SetPlan(std::move(result.Value));
    ShowRange(chart, request);
    // Parts find their places only when they are shown; nothing comes to a screen.
    chart.setAttribute(Qt::WA_DontShowOnScreen);
    chart.show();
    QApplication::processEvents();
    if (const auto error = SavePicture(chart, request.Picture, request.Ratio)) {
        PrintError(ErrorLine(request.Picture, {0, *error}));
        return ExitCode::UnusableFile;
    }
    return ExitCode::Ok;
}

} // namespace korvane::planner
