// What changes of many items, rows and links at once cost in a Gantt chart, repaints included.
#include "BenchPlan.h"

#include <cstdint>

namespace {

using namespace korvane;
using namespace korvane::bench;

constexpr int kMany = 10'000;

void SelectAll(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    for (auto _ : state) {
        plan.Chart().SelectAll();
        Settle();
        state.PauseTiming();
        plan.Chart().ClearSelection();
        Settle();
        state.ResumeTiming();
    }
}

void Move(benchmark::State &state, int count)
{
    TPlan &plan = PlanOf(state);
    plan.Chart().ClearSelection();
    plan.ScrollToMiddle();
    plan.SelectAbout(count);
    Settle();
    int step = 0;
    for (auto _ : state) {
        plan.Chart().PerformGantAreaKeyfunction(
            (++step & 1) != 0 ? TGantKeyFunction::kfMoveLater : TGantKeyFunction::kfMoveEarlier);
        Settle();
    }
    plan.Chart().ClearSelection();
    Settle();
}

void MoveOne(benchmark::State &state)
{
    Move(state, 1);
}

void MoveTenThousand(benchmark::State &state)
{
    Move(state, kMany);
}

/// Ten thousand items come, ten on a row about the middle of the plan; timed is how they go.
void DeleteTenThousand(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    TzuGant &chart = plan.Chart();
    plan.ScrollToMiddle();
    chart.OnAskDelete = [](TzuGant_ComBasic *, const auto &, const auto &, bool &allow) {
        allow = true;
    };
    const int rows = chart.GantRows().Count();
    for (auto _ : state) {
        state.PauseTiming();
        chart.ClearSelection();
        chart.BeginUpdate();
        for (int i = 0; i < kMany; ++i) {
            const int row = (rows / 2 + i / 10) % rows;
            const TDateTime start = chart.Start() + i % 25;
            TGantRow *line = chart.GantRows().GetGantRow(row);
            plan.AddItem(line->TreeNode(), start, start + 2)->SetSelected(true);
        }
        chart.EndUpdate();
        Settle();
        state.ResumeTiming();
        chart.PerformGantAreaKeyfunction(TGantKeyFunction::kfDelete);
        Settle();
    }
    chart.OnAskDelete = nullptr;
}

/// Three hundred items get other times and another colour in one update bracket.
void EditThreeHundred(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    plan.ScrollToMiddle();
    const int first = plan.Count() / 2 - 150;
    int step = 0;
    for (auto _ : state) {
        const int shift = (++step & 1) != 0 ? 1 : -1;
        plan.Chart().BeginUpdate();
        for (int i = first; i < first + 300; ++i) {
            TzuDataEntity_Spanbar &item = plan.Item(i);
            item.SetStartDateTime(item.GetStartDateTime() + shift);
            item.SetStopDateTime(item.GetStopDateTime() + shift);
            item.SetColor(shift > 0 ? clGreen : clBlue);
            item.DoInfoPush();
        }
        plan.Chart().EndUpdate();
        Settle();
    }
}

void CollapseAll(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    for (auto _ : state) {
        plan.Chart().Tree().FullCollapse();
        Settle();
        state.PauseTiming();
        plan.Chart().Tree().FullExpand();
        Settle();
        state.ResumeTiming();
    }
}

void ExpandAll(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    for (auto _ : state) {
        state.PauseTiming();
        plan.Chart().Tree().FullCollapse();
        Settle();
        state.ResumeTiming();
        plan.Chart().Tree().FullExpand();
        Settle();
    }
}

/// Rows by caption on every level, up and down in turn.
void SortRows(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    int step = 0;
    for (auto _ : state) {
        plan.Chart().Tree().Sort({.Direction = (++step & 1) != 0 ? TSortDirection::Descending
                                                                 : TSortDirection::Ascending,
                                  .AllLevels = true});
        Settle();
    }
}

/// The reference of the last item; every item has one.
void FindByUserReference(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    for (int i = 0; i < plan.Count(); ++i) {
        plan.Item(i).SetUserReference(reinterpret_cast<void *>(static_cast<std::uintptr_t>(i) + 1));
    }
    const void *last = plan.Item(plan.Count() - 1).GetUserReference();
    for (auto _ : state) {
        benchmark::DoNotOptimize(plan.Chart().FindSpanbarObjectFromUserReference(last));
    }
}

/// A hundred thousand links on top of those that are there, with the repaint.
void AddLinks(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    TzuGant &chart = plan.Chart();
    const int before = chart.GetLinks().Count();
    for (auto _ : state) {
        chart.BeginUpdate();
        for (int i = 0; i < 100'000; ++i) {
            plan.AddLink(i % (plan.Count() - TPlan::kLinkSpan));
        }
        chart.EndUpdate();
        Settle();
        state.PauseTiming();
        while (chart.GetLinks().Count() > before) {
            chart.GetLinks().Delete(chart.GetLinks().Count() - 1);
        }
        Settle();
        state.ResumeTiming();
    }
}

/// A repaint of everything with as many links as items.
template <TLinkShow Show>
void PaintLinks(benchmark::State &state)
{
    TPlan &plan = PlanOf({.Items = SizeOf(state), .ItemsPerLink = 1});
    plan.ScrollToMiddle();
    plan.Chart().SetLinkShow(Show);
    Settle();
    for (auto _ : state) {
        plan.Chart().RePaint();
        Settle();
    }
    plan.Chart().SetLinkShow(TLinkShow::lsOneEndVisible);
}

} // namespace

int main(int argc, char **argv)
{
    return RunSteps(argc, argv,
                    {
                        {"SelectAll", SelectAll},
                        {"MoveOne", MoveOne},
                        {"MoveTenThousand", MoveTenThousand},
                        {"DeleteTenThousand", DeleteTenThousand},
                        {"EditThreeHundred", EditThreeHundred},
                        {"CollapseAll", CollapseAll},
                        {"ExpandAll", ExpandAll},
                        {"SortRows", SortRows},
                        {"FindByUserReference", FindByUserReference},
                        {"AddHundredThousandLinks", AddLinks},
                        {"PaintLinks/OneEndVisible", PaintLinks<TLinkShow::lsOneEndVisible>},
                        {"PaintLinks/BothEndsVisible", PaintLinks<TLinkShow::lsBothEndsVisible>},
                        {"PaintLinks/Always", PaintLinks<TLinkShow::lsAlways>},
                    });
}
