// What the steps of a Gantt chart cost, from a thousand to a million items: ten on a row, each with
// a name, links on a tenth of them.
#include "BenchPlan.h"

namespace {

using namespace korvane;
using namespace korvane::bench;

void LoadAndFirstPaint(benchmark::State &state)
{
    for (auto _ : state) {
        auto plan = std::make_unique<TPlan>(TPlanShape{.Items = SizeOf(state)});
        state.PauseTiming();
        plan.reset();
        state.ResumeTiming();
    }
    state.counters["per_item"] = benchmark::Counter(static_cast<double>(state.range(0)),
                                                    benchmark::Counter::kIsIterationInvariantRate
                                                        | benchmark::Counter::kInvert);
}

/// One line down, then up again, as the events of a scroll bar make it.
void ScrollByEvents(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    QScrollBar &bar = plan.ScrollToMiddle();
    const int middle = bar.value();
    int step = 0;
    for (auto _ : state) {
        bar.setValue(middle + (++step & 1));
        Settle();
    }
}

void ScrollAndRepaintAll(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    QScrollBar &bar = plan.ScrollToMiddle();
    const int middle = bar.value();
    int step = 0;
    for (auto _ : state) {
        bar.setValue(middle + (++step & 1));
        plan.Chart().RePaint();
        Settle();
    }
}

void ZoomStep(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    TzuDateScaler &scaler = plan.Chart().DateScaler();
    const TDateTime middle = (scaler.GetStart() + scaler.GetStop()) / 2;
    const double scale = scaler.GetScale();
    int step = 0;
    for (auto _ : state) {
        scaler.SetCenterScale((++step & 1) != 0 ? scale * 0.9 : scale, middle,
                              scaler.GetScaleLen() / 2);
        Settle();
    }
    scaler.SetCenterScale(scale, middle, scaler.GetScaleLen() / 2);
    Settle();
}

/// A change by the program, with the repaint that follows.
void ChangeOneItem(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    TzuDataEntity_Spanbar &item = plan.Item(plan.Count() / 2);
    const TDateTime start = item.GetStartDateTime();
    int step = 0;
    for (auto _ : state) {
        item.SetStartDateTime(start + (++step & 1));
        item.DoInfoPush();
        Settle();
    }
    item.SetStartDateTime(start);
}

void HitTest(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    int x = 0;
    for (auto _ : state) {
        x = (x + 7) % 1000;
        benchmark::DoNotOptimize(plan.Chart().GetDataEntityFromXY(x, 300));
    }
}

/// One event of a mouse that is over items and gaps, no button held.
void Hover(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    int x = 0;
    for (auto _ : state) {
        x = (x + 7) % 1000;
        MoveMouse(plan.Chart(), {x, 300}, Qt::NoButton);
        Settle();
    }
}

/// What an item takes by itself, and with its share of row, tree node and links.
void Memory(benchmark::State &state)
{
    KeptPlan().reset();
    const auto items = static_cast<double>(state.range(0));
    const auto bytesOf = [&](const auto &make) {
        const std::size_t before = BytesInUse();
        make();
        return static_cast<double>(BytesInUse() - before) / items;
    };
    const auto bytesOfPlan = [&](const TPlanShape &shape) {
        const double bytes = bytesOf([&] { PlanOf(shape); });
        KeptPlan().reset();
        return bytes;
    };
    // Neither the window nor the benchmark's own list of items counts.
    const auto bytesInChart = [&](bool names) {
        return bytesOfPlan({.Items = SizeOf(state), .Names = names}) - bytesOfPlan({.Items = 0})
               - sizeof(void *);
    };
    for (auto _ : state) {
        TzuListController controller;
        TzuDataList_GantRow list;
        list.AfterCreate(&controller, EntityClass::Of<TzuDataEntity_Spanbar>());
        state.counters["bytes_per_item"] = bytesOf([&] {
            for (int i = 0; i < SizeOf(state); ++i) {
                list.Add();
            }
        });
        list.CleanForFree();
        state.counters["bytes_per_item_in_chart"] = bytesInChart(false);
        state.counters["bytes_per_named_item_in_chart"] = bytesInChart(true);
    }
}

/// Counts the paints of a widget.
class TPaintCounter : public QObject
{
public:
    explicit TPaintCounter(QWidget &widget) { widget.installEventFilter(this); }

    int Paints = 0;

protected:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        Paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

/// One event of a mouse that drags what is selected, with the repaint that follows. A step that
/// draws nothing is an error.
void DragBy(benchmark::State &state, TPlan &plan)
{
    TzuGant &chart = plan.Chart();
    TGantRow &row = *chart.GantRows().RowsOnScreen()[10];
    auto &item = TimeDataEntity(*row.Layers().GetDataList(0)->GetItems(5));
    const TRect rect = row.RectFromDataEntity(item).value();
    const QPoint press((rect.Left + rect.Right) / 2, (rect.Top + rect.Bottom) / 2);
    item.SetSelected(true);
    QMouseEvent event(QEvent::MouseButtonPress, press, chart.GantArea().mapToGlobal(press),
                      Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&chart.GantArea(), &event);
    Settle();
    TPaintCounter area(chart.GantArea());
    int step = 0;
    for (auto _ : state) {
        MoveMouse(chart, press + QPoint(20 + 10 * (++step % 10), 5), Qt::LeftButton);
        Settle();
        if (area.Paints < step || !chart.GestureRunning()) {
            state.SkipWithError("a step of the drag was not drawn");
            break;
        }
    }
    state.counters["paints_per_step"] = static_cast<double>(area.Paints) / std::max(step, 1);
    chart.CancelGesture();
    chart.ClearSelection();
    Settle();
}

void DragOneItem(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    plan.Chart().ClearSelection();
    DragBy(state, plan);
}

void DragTenThousandItems(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    plan.Chart().ClearSelection();
    plan.ScrollToMiddle();
    plan.SelectAbout(10'000); // as many as are on screen, and others around them
    DragBy(state, plan);
}

/// A link more and a link less at items in the middle, whatever stands already.
void AddAndRemoveLink(benchmark::State &state)
{
    TPlan &plan = PlanOf(state);
    for (auto _ : state) {
        TzuDataEntity_Link &link = plan.AddLink(plan.Count() / 2);
        plan.Chart().GetLinks().Remove(&link);
    }
}

} // namespace

int main(int argc, char **argv)
{
    return RunSteps(argc, argv,
                    {
                        {"Memory", Memory, 1},
                        {"LoadAndFirstPaint", LoadAndFirstPaint},
                        {"ScrollByEvents", ScrollByEvents},
                        {"ScrollAndRepaintAll", ScrollAndRepaintAll},
                        {"ZoomStep", ZoomStep},
                        {"ChangeOneItem", ChangeOneItem},
                        {"HitTest", HitTest},
                        {"Hover", Hover},
                        {"AddAndRemoveLink", AddAndRemoveLink},
                        {"DragOneItem", DragOneItem},
                        {"DragTenThousandItems", DragTenThousandItems},
                    });
}
