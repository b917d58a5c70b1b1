#include "RenderCommand.h"

#include "Picture.h"
#include "PlanChart.h"
#include "PlanDocument.h"
#include "ResourceChart.h"
#include "plan/PlanFile.h"

#include <QApplication>

#include <memory>

namespace korvane::planner {

namespace {

void ShowRange(PlanView &chart, const RenderRequest &request)
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
    auto result = LoadOrPrintError(fileName, options);
    if (!result) {
        return ExitCode::UnusableFile;
    }
    const bool byResource = request.View
                                ? *request.View == ViewKind::Resources
                                : result->Value.Kind == PlanKind::Intervals && !request.Table;
    PlanDocument document;
    const auto chart = byResource ? std::unique_ptr<PlanView>(new ResourceChart(document))
                                  : std::make_unique<PlanChart>(document);
    chart->resize(request.Size);
    if (auto *tasks = qobject_cast<PlanChart *>(chart.get()); tasks != nullptr && request.Table) {
        tasks->SetTableShown(true);
    }
    chart->SetScrollBarShown(false);
    document.SetPlan(std::move(result->Value));
    ShowRange(*chart, request);
    // Parts find their places only when they are shown; nothing comes to a screen.
    chart->setAttribute(Qt::WA_DontShowOnScreen);
    chart->show();
    QApplication::processEvents();
    while (!chart->IsSeparated()) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    if (const auto error = SavePicture(*chart, request.Picture, request.Ratio)) {
        PrintError(ErrorLine(request.Picture, {0, *error}));
        return ExitCode::UnusableFile;
    }
    return ExitCode::Ok;
}

} // namespace korvane::planner
