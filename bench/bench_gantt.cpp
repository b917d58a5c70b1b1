// What the steps of a Gantt chart cost, from a thousand to a million items: ten on a row, links on
// a tenth of them, in a window of 1400x900 pixels drawn offscreen.
#include "gantt/qt/zuGant.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <memory>

namespace {

using namespace korvane;

constexpr int kItemsPerRow = 10;
constexpr int kRowsPerGroup = 10;
constexpr int kItemsPerLink = 10;

class TPlan
{
public:
    explicit TPlan(int items)
        : m_first(m_chart.Start())
    {
        m_chart.resize(1400, 900);
        m_chart.SetTreeWidth(250);
        m_chart.BeginUpdate();
        m_items.reserve(static_cast<std::size_t>(items));
        TzuDataEntity_Tree *group = nullptr;
        for (int row = 0; row < items / kItemsPerRow; ++row) {
            const std::string name = "Row " + std::to_string(row);
            if (row % kRowsPerGroup == 0) {
                group = m_chart.AddRootDataEntityTree(name);
                group->SetExpanded(true);
                AddItems(group, row);
            } else {
                AddItems(m_chart.AddDataEntityTree(group, name), row);
            }
        }
        for (int i = 0; i + 13 < items; i += kItemsPerLink) {
            AddLink(i);
        }
        m_chart.EndUpdate();
        m_chart.show();
        Settle();
    }

    TzuGant &Chart() { return m_chart; }
    TzuDataEntity_Spanbar &Item(int index) { return *m_items[static_cast<std::size_t>(index)]; }
    int Count() const { return static_cast<int>(m_items.size()); }

    TzuDataEntity_Link &AddLink(int item)
    {
        TzuDataEntity_Link &link = m_chart.AddLink();
        link.SetFirst(&Item(item));
        link.SetSecond(&Item(item + 13));
        return link;
    }
    /// Handles everything that is due, paints included.
    static void Settle() { QCoreApplication::processEvents(); }

private:
    void AddItems(TzuDataEntity_Tree *node, int row)
    {
        for (int i = 0; i < kItemsPerRow; ++i) {
            TzuDataEntity_Spanbar *item = m_chart.AddSpanbar(node, 0);
            item->SetStartDateTime(m_first + 3 * i + row % 7 * 0.3);
            item->SetStopDateTime(item->GetStartDateTime() + 2);
            item->SetColor(Rgb(90, 140, 200));
            item->SetInsetTop(2);
            item->SetInsetBottom(2);
            m_items.push_back(item);
        }
    }

    TzuGant m_chart;
    TDateTime m_first;
    std::vector<TzuDataEntity_Spanbar *> m_items;
};

/// Plans are kept between benchmarks of one size, since a large one takes a while to build.
TPlan &PlanOf(int items)
{
    static std::unique_ptr<TPlan> plan;
    if (plan == nullptr || plan->Count() != items) {
        plan.reset();
        plan = std::make_unique<TPlan>(items);
    }
    return *plan;
}

int SizeOf(const benchmark::State &state)
{
    return static_cast<int>(state.range(0));
}

void LoadAndFirstPaint(benchmark::State &state)
{
    for (auto _ : state) {
        auto plan = std::make_unique<TPlan>(SizeOf(state));
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
    TPlan &plan = PlanOf(SizeOf(state));
    QScrollBar &bar = plan.Chart().VertScrollBar();
    const int middle = bar.maximum() / 2;
    bar.setValue(middle);
    TPlan::Settle();
    int step = 0;
    for (auto _ : state) {
        bar.setValue(middle + (++step & 1));
        TPlan::Settle();
    }
}

void ScrollAndRepaintAll(benchmark::State &state)
{
    TPlan &plan = PlanOf(SizeOf(state));
    QScrollBar &bar = plan.Chart().VertScrollBar();
    const int middle = bar.maximum() / 2;
    int step = 0;
    for (auto _ : state) {
        bar.setValue(middle + (++step & 1));
        plan.Chart().RePaint();
        TPlan::Settle();
    }
}

void ZoomStep(benchmark::State &state)
{
    TPlan &plan = PlanOf(SizeOf(state));
    TzuDateScaler &scaler = plan.Chart().DateScaler();
    const TDateTime middle = (scaler.GetStart() + scaler.GetStop()) / 2;
    const double scale = scaler.GetScale();
    int step = 0;
    for (auto _ : state) {
        scaler.SetCenterScale((++step & 1) != 0 ? scale * 0.9 : scale, middle,
                              scaler.GetScaleLen() / 2);
        TPlan::Settle();
    }
    scaler.SetCenterScale(scale, middle, scaler.GetScaleLen() / 2);
    TPlan::Settle();
}

void ChangeOneItem(benchmark::State &state)
{
    TPlan &plan = PlanOf(SizeOf(state));
    TzuDataEntity_Spanbar &item = plan.Item(plan.Count() / 2);
    const TDateTime start = item.GetStartDateTime();
    int step = 0;
    for (auto _ : state) {
        item.SetStartDateTime(start + (++step & 1));
        item.DoInfoPush();
        TPlan::Settle();
    }
}

void HitTest(benchmark::State &state)
{
    TPlan &plan = PlanOf(SizeOf(state));
    int x = 0;
    for (auto _ : state) {
        x = (x + 7) % 1000;
        benchmark::DoNotOptimize(plan.Chart().GetDataEntityFromXY(x, 300));
    }
}

std::size_t BytesInUse()
{
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// What an item takes by itself, and with its share of row, tree node and links.
void Memory(benchmark::State &state)
{
    TzuListController controller;
    TzuDataList_GantRow list;
    list.AfterCreate(&controller, EntityClass::Of<TzuDataEntity_Spanbar>());
    const std::size_t before = BytesInUse();
    for (int i = 0; i < SizeOf(state); ++i) {
        list.Add();
    }
    const std::size_t itemBytes = BytesInUse() - before;
    list.CleanForFree();

    PlanOf(1); // lets go of a plan that may stand
    const std::size_t withoutPlan = BytesInUse();
    for (auto _ : state) {
        benchmark::DoNotOptimize(PlanOf(SizeOf(state)));
    }
    const auto items = static_cast<double>(state.range(0));
    state.counters["bytes_per_item"] = static_cast<double>(itemBytes) / items;
    state.counters["bytes_per_item_in_chart"] =
        static_cast<double>(BytesInUse() - withoutPlan) / items;
}

/// One event of a mouse that drags what is selected, with the repaint that follows.
void DragBy(benchmark::State &state, TPlan &plan)
{
    TzuGant &chart = plan.Chart();
    TGantRow &row = *chart.GantRows().RowsOnScreen()[10];
    auto &item = TimeDataEntity(*row.Layers().GetDataList(0)->GetItems(5));
    const TRect rect = row.RectFromDataEntity(item).value();
    const QPoint press((rect.Left + rect.Right) / 2, (rect.Top + rect.Bottom) / 2);
    const auto send = [&](QEvent::Type type, QPoint at, Qt::MouseButton button) {
        QMouseEvent event(type, at, chart.GantArea().mapToGlobal(at), button, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&chart.GantArea(), &event);
    };
    item.SetSelected(true);
    send(QEvent::MouseButtonPress, press, Qt::LeftButton);
    int step = 0;
    for (auto _ : state) {
        send(QEvent::MouseMove, press + QPoint(20 + 10 * (++step % 10), 5), Qt::NoButton);
        TPlan::Settle();
    }
    chart.CancelGesture();
    chart.ClearSelection();
    TPlan::Settle();
}

void DragOneItem(benchmark::State &state)
{
    TPlan &plan = PlanOf(SizeOf(state));
    plan.Chart().ClearSelection();
    DragBy(state, plan);
}

void DragTenThousandItems(benchmark::State &state)
{
    TPlan &plan = PlanOf(SizeOf(state));
    plan.Chart().ClearSelection();
    QScrollBar &bar = plan.Chart().VertScrollBar();
    bar.setValue(bar.maximum() / 2);
    TPlan::Settle();
    // As many as are on screen, and others around them.
    const int first = std::max(0, plan.Count() / 2 - 5'000);
    for (int i = first; i < std::min(first + 10'000, plan.Count()); ++i) {
        plan.Item(i).SetSelected(true);
    }
    DragBy(state, plan);
}

/// A link more and a link less at items in the middle, whatever stands already.
void AddAndRemoveLink(benchmark::State &state)
{
    TPlan &plan = PlanOf(SizeOf(state));
    for (auto _ : state) {
        TzuDataEntity_Link &link = plan.AddLink(plan.Count() / 2);
        plan.Chart().GetLinks().Remove(&link);
    }
}

void Sizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    // By size, so that each plan is built once.
    for (const int size : {1'000, 10'000, 100'000, 1'000'000}) {
        const std::pair<const char *, void (*)(benchmark::State &)> steps[] = {
            {"Memory", Memory},
            {"ScrollByEvents", ScrollByEvents},
            {"ScrollAndRepaintAll", ScrollAndRepaintAll},
            {"ZoomStep", ZoomStep},
            {"ChangeOneItem", ChangeOneItem},
            {"HitTest", HitTest},
            {"AddAndRemoveLink", AddAndRemoveLink},
            {"DragOneItem", DragOneItem},
            {"DragTenThousandItems", DragTenThousandItems},
        };
        for (const auto &[name, step] : steps) {
            benchmark::RegisterBenchmark(name, step)->Arg(size)->Unit(benchmark::kMillisecond);
        }
    }
    benchmark::RegisterBenchmark("LoadAndFirstPaint", LoadAndFirstPaint)->Apply(Sizes);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
