// A Gantt chart full of items, for benchmarks: drawn offscreen in a window of 1400x900 pixels.
#pragma once

#include "gantt/qt/zuGant.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <initializer_list>
#include <malloc.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace korvane::bench {

/// What a plan holds. Ten rows at a time are a group: a parent, expanded, and nine children.
struct TPlanShape
{
    int Items;
    int ItemsPerRow = 10;
    int ItemsPerLink = 10;
    bool Names = true;
    /// Days from the first item's start to the last one's stop on each row.
    double Days = 29;

    friend bool operator==(const TPlanShape &, const TPlanShape &) = default;
};

/// Handles everything that is due, paints included.
inline void Settle()
{
    QCoreApplication::processEvents();
}

class TPlan
{
public:
    explicit TPlan(const TPlanShape &shape)
        : m_shape(shape)
        , m_first(m_chart.Start())
    {
        m_chart.resize(1400, 900);
        m_chart.SetTreeWidth(250);
        m_chart.BeginUpdate();
        m_items.reserve(static_cast<std::size_t>(shape.Items));
        TzuDataEntity_Tree *group = nullptr;
        for (int row = 0; row < shape.Items / shape.ItemsPerRow; ++row) {
            constexpr int kRowsPerGroup = 10;
            const std::string name = "Row " + std::to_string(row);
            if (row % kRowsPerGroup == 0) {
                group = m_chart.AddRootDataEntityTree(name);
                group->SetExpanded(true);
                AddItems(group);
            } else {
                AddItems(m_chart.AddDataEntityTree(group, name));
            }
        }
        for (int i = 0; i + kLinkSpan < shape.Items; i += shape.ItemsPerLink) {
            AddLink(i);
        }
        m_chart.EndUpdate();
        m_chart.show();
        Settle();
    }

    TzuGant &Chart() { return m_chart; }
    const TPlanShape &Shape() const { return m_shape; }
    TzuDataEntity_Spanbar &Item(int index) { return *m_items[static_cast<std::size_t>(index)]; }
    int Count() const { return m_shape.Items; }

    /// From an item to another one, a row further on.
    TzuDataEntity_Link &AddLink(int item)
    {
        TzuDataEntity_Link &link = m_chart.AddLink();
        link.SetFirst(&Item(item));
        link.SetSecond(&Item(item + kLinkSpan));
        return link;
    }
    TzuDataEntity_Spanbar *AddItem(TzuDataEntity_Tree *node, TDateTime start, TDateTime stop)
    {
        TzuDataEntity_Spanbar *item = m_chart.AddSpanbar(node, 0);
        item->SetStartDateTime(start);
        item->SetStopDateTime(stop);
        item->SetColor(Rgb(90, 140, 200));
        item->SetInsetTop(2);
        item->SetInsetBottom(2);
        return item;
    }
    /// Selects as many items as there are, up to `count`, about the middle of the plan.
    void SelectAbout(int count)
    {
        const int first = std::max(0, (Count() - count) / 2);
        for (int i = first; i < std::min(first + count, Count()); ++i) {
            Item(i).SetSelected(true);
        }
    }
    /// Scrolls to the row in the middle, with some events' worth of work behind it.
    QScrollBar &ScrollToMiddle()
    {
        QScrollBar &bar = m_chart.VertScrollBar();
        bar.setValue(bar.maximum() / 2);
        Settle();
        return bar;
    }
    static constexpr int kLinkSpan = 13;

private:
    void AddItems(TzuDataEntity_Tree *node)
    {
        const double step = m_shape.Days / m_shape.ItemsPerRow;
        const int row = static_cast<int>(m_items.size()) / m_shape.ItemsPerRow;
        for (int i = 0; i < m_shape.ItemsPerRow; ++i) {
            const TDateTime start = m_first + step * (i + row % 7 * 0.05);
            m_items.push_back(AddItem(node, start, start + step * 0.66));
            if (m_shape.Names) {
                m_items.back()->Texts().AddText("Item " + std::to_string(m_items.size()), 3, 1, 1);
            }
        }
    }

    TPlanShape m_shape;
    TzuGant m_chart;
    TDateTime m_first;
    std::vector<TzuDataEntity_Spanbar *> m_items;
};

/// The plan that benchmarks of one shape share, since a large one takes a while to build.
inline std::unique_ptr<TPlan> &KeptPlan()
{
    static std::unique_ptr<TPlan> plan;
    return plan;
}

inline TPlan &PlanOf(const TPlanShape &shape)
{
    std::unique_ptr<TPlan> &plan = KeptPlan();
    if (plan == nullptr || plan->Shape() != shape) {
        plan.reset();
        plan = std::make_unique<TPlan>(shape);
    }
    return *plan;
}

inline int SizeOf(const benchmark::State &state)
{
    return static_cast<int>(state.range(0));
}

inline TPlan &PlanOf(const benchmark::State &state)
{
    return PlanOf(TPlanShape{.Items = SizeOf(state)});
}

/// Heap, as the allocator counts it.
inline std::size_t BytesInUse()
{
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// Sends the area a move of the mouse with a button held, or with none.
inline void MoveMouse(TzuGant &chart, QPoint at, Qt::MouseButtons buttons)
{
    QMouseEvent event(QEvent::MouseMove, at, chart.GantArea().mapToGlobal(at), Qt::NoButton,
                      buttons, {});
    QCoreApplication::sendEvent(&chart.GantArea(), &event);
}

struct TStep
{
    const char *Name;
    void (*Run)(benchmark::State &);
    int Iterations = 0; ///< 0: as many as give a steady figure
};

/// Runs every step at every size; by size, so that each plan is built once. In the end `release` is
/// to free what else needs the application.
inline int RunSteps(
    int argc, char **argv, std::initializer_list<TStep> steps,
    std::initializer_list<int> sizes = {1'000, 10'000, 100'000, 1'000'000},
    void (*release)() = [] {})
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    for (const int size : sizes) {
        for (const TStep &step : steps) {
            auto *registered = benchmark::RegisterBenchmark(step.Name, step.Run);
            registered->Arg(size)->Unit(benchmark::kMicrosecond);
            if (step.Iterations > 0) {
                registered->Iterations(step.Iterations);
            }
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    KeptPlan().reset(); // before the application
    release();
    return 0;
}

} // namespace korvane::bench
