// What long rows cost, zoomed in and with all of their items in view, and many rows whose sub-rows
// are worked out at once.
#include "BenchPlan.h"

namespace {

using namespace korvane;
using namespace korvane::bench;

/// All on one row, within ten years.
TPlan &OneRow(const benchmark::State &state)
{
    return PlanOf({.Items = SizeOf(state),
                   .ItemsPerRow = SizeOf(state),
                   .ItemsPerLink = SizeOf(state),
                   .Names = false,
                   .Days = 3650});
}

/// As many rows as are on screen.
TPlan &FortyRows(const benchmark::State &state)
{
    return PlanOf({.Items = SizeOf(state),
                   .ItemsPerRow = SizeOf(state) / 40,
                   .ItemsPerLink = SizeOf(state),
                   .Names = false,
                   .Days = 3650});
}

struct TView
{
    TDateTime From; ///< days after the first item
    TDateTime Days;
};
constexpr TView kAll{0, 3650};

/// About a hundred of a row's items.
TView Near(const TPlan &plan)
{
    return {1000, 100 * plan.Shape().Days / plan.Shape().ItemsPerRow};
}

void Show(TPlan &plan, const TView &view)
{
    TzuGant &chart = plan.Chart();
    const TDateTime start = plan.Item(0).GetStartDateTime() + view.From;
    chart.BeginUpdate();
    chart.SetStart(start);
    chart.SetStop(start + view.Days);
    chart.EndUpdate();
    Settle();
}

void Paint(benchmark::State &state, TPlan &plan, const TView &view)
{
    Show(plan, view);
    for (auto _ : state) {
        plan.Chart().RePaint();
        Settle();
    }
}

/// Hits columns all over the row in turn.
void Hit(benchmark::State &state, TPlan &plan, const TView &view)
{
    Show(plan, view);
    int x = 0;
    for (auto _ : state) {
        x = (x + 7) % 1000;
        benchmark::DoNotOptimize(plan.Chart().GetDataEntityFromXY(x, 9));
    }
}

/// One item gets another time and a repaint.
void Change(benchmark::State &state, TPlan &plan, const TView &view)
{
    Show(plan, view);
    TzuDataEntity_Spanbar &item = plan.Item(plan.Count() * 3 / 10);
    const TDateTime start = item.GetStartDateTime();
    int step = 0;
    for (auto _ : state) {
        item.SetStartDateTime(start - 0.001 * (++step & 1));
        item.DoInfoPush();
        Settle();
    }
    item.SetStartDateTime(start);
}

void PaintNear(benchmark::State &state)
{
    Paint(state, OneRow(state), Near(OneRow(state)));
}

void HitNear(benchmark::State &state)
{
    Hit(state, OneRow(state), Near(OneRow(state)));
}

void ChangeNear(benchmark::State &state)
{
    Change(state, OneRow(state), Near(OneRow(state)));
}

void PaintAll(benchmark::State &state)
{
    Paint(state, OneRow(state), kAll);
}

void HitAmongAll(benchmark::State &state)
{
    Hit(state, OneRow(state), kAll);
}

void ChangeAmongAll(benchmark::State &state)
{
    Change(state, OneRow(state), kAll);
}

void PaintFortyRows(benchmark::State &state)
{
    Paint(state, FortyRows(state), kAll);
}

/// From the change of every row, ten items each, to the last new sub-row.
void SeparateRows(benchmark::State &state)
{
    TPlan &plan = PlanOf({.Items = SizeOf(state), .Names = false});
    TGantRowList &rows = plan.Chart().GantRows();
    const auto settleAll = [&rows] {
        for (int i = 0; i < rows.Count(); ++i) {
            while (rows.GetGantRow(i)->IsSeparating()) {
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            }
        }
    };
    for (int i = 0; i < plan.Count(); ++i) { // each overlaps the next
        plan.Item(i).SetStopDateTime(plan.Item(i).GetStopDateTime() + 2);
    }
    for (int i = 0; i < rows.Count(); ++i) {
        rows.GetGantRow(i)->SetCollisionDetection(true);
    }
    Settle();
    settleAll();
    for (auto _ : state) {
        for (int i = 0; i < rows.Count(); ++i) {
            rows.GetGantRow(i)->UpdateSubColumns();
        }
        Settle();
        settleAll();
        Settle();
    }
    KeptPlan().reset();
}

} // namespace

int main(int argc, char **argv)
{
    return RunSteps(argc, argv,
                    {
                        {"OneRow/PaintNear", PaintNear},
                        {"OneRow/HitNear", HitNear},
                        {"OneRow/ChangeNear", ChangeNear},
                        {"OneRow/PaintAll", PaintAll},
                        {"OneRow/HitAmongAll", HitAmongAll},
                        {"OneRow/ChangeAmongAll", ChangeAmongAll},
                        {"FortyRows/PaintAll", PaintFortyRows},
                        {"SeparateRows", SeparateRows},
                    });
}
