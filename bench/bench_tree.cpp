// What the steps of a tree cost, from a thousand to a million entities: nine below each root, all
// expanded, in a window of 400x900 pixels drawn offscreen.
#include "tree/qt/zuTree.h"

#include <QApplication>
#include <QScrollBar>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <memory>
#include <string>

namespace {

using namespace korvane;

constexpr int kGroup = 10;

void Settle()
{
    QCoreApplication::processEvents();
}

void Fill(TTreeCore &tree, int entities)
{
    TzuDataEntity_Tree *group = nullptr;
    for (int i = 0; i < entities; ++i) {
        TzuDataEntity_Tree *entity = tree.AddDataEntity(i % kGroup == 0 ? nullptr : group);
        entity->SetText("Entity " + std::to_string(i));
        if (i % kGroup == 0) {
            group = entity;
            group->SetExpanded(true);
        }
    }
}

class TWindow
{
public:
    explicit TWindow(int entities)
        : m_entities(entities)
    {
        Tree.SetLoadOnDemand(false);
        Tree.resize(400, 900);
        Fill(Tree, entities);
        Tree.show();
        Settle();
    }

    TzuTree Tree;

    int Entities() const { return m_entities; }
    TzuDataEntity_Tree &MiddleRoot() { return *Tree.DataList()->Entity(m_entities / kGroup / 2); }

private:
    int m_entities;
};

/// Windows are kept between benchmarks of one size.
std::unique_ptr<TWindow> &Kept()
{
    static std::unique_ptr<TWindow> window;
    return window;
}

TWindow &WindowOf(const benchmark::State &state)
{
    std::unique_ptr<TWindow> &window = Kept();
    const int entities = static_cast<int>(state.range(0));
    if (window == nullptr || window->Entities() != entities) {
        window.reset();
        window = std::make_unique<TWindow>(entities);
        window->Tree.SetTopItem(&window->MiddleRoot());
        Settle();
    }
    return *window;
}

void LoadAndFirstPaint(benchmark::State &state)
{
    for (auto _ : state) {
        auto window = std::make_unique<TWindow>(static_cast<int>(state.range(0)));
        state.PauseTiming();
        window.reset();
        state.ResumeTiming();
    }
    state.counters["per_entity"] = benchmark::Counter(static_cast<double>(state.range(0)),
                                                      benchmark::Counter::kIsIterationInvariantRate
                                                          | benchmark::Counter::kInvert);
}

void ScrollOneRow(benchmark::State &state)
{
    QScrollBar &bar = *WindowOf(state).Tree.verticalScrollBar();
    const int middle = bar.maximum() / 2;
    int step = 0;
    for (auto _ : state) {
        bar.setValue(middle + (++step & 1));
        Settle();
    }
}

void InsertAndRemoveOne(benchmark::State &state)
{
    TWindow &window = WindowOf(state);
    for (auto _ : state) {
        TzuDataEntity_Tree *entity =
            window.Tree.InsertDataEntity(*window.MiddleRoot().ChildList(), 3);
        Settle();
        window.Tree.RemoveDataEntity(entity);
        Settle();
    }
}

/// A root, with all that is below it, to another place among the roots and back.
void MoveOne(benchmark::State &state)
{
    TWindow &window = WindowOf(state);
    TzuDataEntity_Tree &root = window.MiddleRoot();
    const int from = window.Entities() / kGroup / 2;
    for (auto _ : state) {
        root.Move(from + from / 2);
        Settle();
        root.Move(from);
        Settle();
    }
}

/// All roots the other way round, and back.
void SortRoots(benchmark::State &state)
{
    TWindow &window = WindowOf(state);
    for (auto _ : state) {
        window.Tree.Sort({nullptr, TSortDirection::Descending});
        Settle();
        window.Tree.Sort({nullptr, TSortDirection::Ascending});
        Settle();
    }
}

/// The same without the view: what the rules of the tree cost by themselves.
void InsertAndRemoveOneUnseen(benchmark::State &state)
{
    TWindow &window = WindowOf(state);
    window.Tree.hide();
    for (auto _ : state) {
        TzuDataEntity_Tree *entity =
            window.Tree.InsertDataEntity(*window.MiddleRoot().ChildList(), 3);
        benchmark::DoNotOptimize(window.Tree.GetRow(*entity));
        window.Tree.RemoveDataEntity(entity);
        benchmark::DoNotOptimize(window.Tree.CountVisible());
    }
    window.Tree.show();
    Settle();
}

void ChangeOneCaption(benchmark::State &state)
{
    TWindow &window = WindowOf(state);
    int step = 0;
    for (auto _ : state) {
        window.MiddleRoot().SetText(std::to_string(++step));
        Settle();
    }
}

void CollapseAndExpandOne(benchmark::State &state)
{
    TWindow &window = WindowOf(state);
    for (auto _ : state) {
        window.MiddleRoot().SetExpanded(false);
        Settle();
        window.MiddleRoot().SetExpanded(true);
        Settle();
    }
}

void CollapseAndExpandAll(benchmark::State &state)
{
    TWindow &window = WindowOf(state);
    for (auto _ : state) {
        window.Tree.FullCollapse();
        Settle();
        window.Tree.FullExpand();
        Settle();
    }
}

void RowsInView(benchmark::State &state)
{
    TWindow &window = WindowOf(state);
    for (auto _ : state) {
        benchmark::DoNotOptimize(window.Tree.VisibleRowEntities());
    }
}

std::size_t BytesInUse()
{
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void Memory(benchmark::State &state)
{
    const auto entities = static_cast<double>(state.range(0));
    for (auto _ : state) {
        TzuTree tree;
        tree.SetLoadOnDemand(false);
        const std::size_t before = BytesInUse();
        for (int i = 0; i < static_cast<int>(entities); ++i) {
            tree.AddDataEntity();
        }
        const std::size_t content = BytesInUse();
        tree.EnsureDisplayUpToDate();
        const std::size_t nodes = BytesInUse();
        tree.EnsureLayout();
        state.counters["bytes_per_entity"] = static_cast<double>(content - before) / entities;
        state.counters["bytes_per_node"] = static_cast<double>(nodes - content) / entities;
        state.counters["bytes_per_row_of_view"] =
            static_cast<double>(BytesInUse() - nodes) / entities;
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    // By size, so that each window is built once.
    for (const int entities : {1'000, 10'000, 100'000, 1'000'000}) {
        const auto add = [entities](const char *name, void (*function)(benchmark::State &)) {
            benchmark::RegisterBenchmark(name, function)
                ->Arg(entities)
                ->Unit(benchmark::kMillisecond);
        };
        add("LoadAndFirstPaint", LoadAndFirstPaint);
        add("ScrollOneRow", ScrollOneRow);
        add("InsertAndRemoveOne", InsertAndRemoveOne);
        add("InsertAndRemoveOneUnseen", InsertAndRemoveOneUnseen);
        add("MoveOne", MoveOne);
        add("ChangeOneCaption", ChangeOneCaption);
        add("CollapseAndExpandOne", CollapseAndExpandOne);
        add("CollapseAndExpandAll", CollapseAndExpandAll);
        add("RowsInView", RowsInView);
        add("SortRoots", SortRoots);
    }
    benchmark::RegisterBenchmark("Memory", Memory)->Arg(1'000'000)->Iterations(1);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    Kept().reset(); // before the application
    return 0;
}
