// What the steps of a Gantt chart with a grid in place of its row tree cost, with ten thousand and
// with a million rows: each has a node of its own in one of three columns, an item and a text.
#include "BenchPlan.h"
#include "grid/qt/zuGrid.h"

namespace {

using namespace korvane;
using namespace korvane::bench;

/// Ten rows at a time are a group: a parent, expanded, and nine children.
class TGridPlan
{
public:
    explicit TGridPlan(int rows)
    {
        m_chart.resize(1400, 900);
        m_chart.SetTreeWidth(350);
        m_chart.SetUseGridNotTree(true);
        TzuGrid &grid = m_chart.Grid();
        for (int column = 1; column < 3; ++column) {
            grid.Columns().Add().SetHeaderText("Column " + std::to_string(column));
        }
        grid.OnGetCellText = [](auto *, TAxisContentItem *, TAxisContentItem *row,
                                std::string &text) {
            text = text.empty() ? "row " + std::to_string(row->ListIndex()) : text;
        };
        m_chart.BeginUpdate();
        TzuDataEntity_GridTreeNode *group = nullptr;
        for (int row = 0; row < rows; ++row) {
            constexpr int kRowsPerGroup = 10;
            TzuDataEntity_GridTreeNode *node =
                grid.GetTree()->AddDataEntity(row % kRowsPerGroup == 0 ? nullptr : group);
            if (row % kRowsPerGroup == 0) {
                group = node;
                group->SetExpanded(true);
            }
            TzuDataEntity_Spanbar *item = m_chart.GridNode_AddSpanbar(node, 0);
            const TDateTime start = m_chart.Start() + row % 25;
            item->SetStartDateTime(start);
            item->SetStopDateTime(start + 3);
            item->SetColor(Rgb(90, 140, 200));
        }
        m_chart.EndUpdate();
        m_chart.show();
        Settle();
        grid.VertScrollBar().setValue(grid.VertScrollBar().maximum() / 2);
        Settle();
    }
    TzuGant &Chart() { return m_chart; }

private:
    TzuGant m_chart;
};

/// The last one that was asked for, until the application goes.
std::unique_ptr<TGridPlan> kept;

TzuGant &ChartOf(const benchmark::State &state)
{
    static int rows = 0;
    if (rows != SizeOf(state)) {
        rows = SizeOf(state);
        kept.reset();
        kept = std::make_unique<TGridPlan>(rows);
    }
    return kept->Chart();
}

/// A row's height down, then up again, as the events of a scroll bar make it.
void ScrollByEvents(benchmark::State &state)
{
    QScrollBar &bar = ChartOf(state).Grid().VertScrollBar();
    const int middle = bar.value();
    int step = 0;
    for (auto _ : state) {
        bar.setValue(middle + (++step & 1) * bar.singleStep());
        Settle();
    }
}

void ScrollAndRepaintAll(benchmark::State &state)
{
    TzuGant &chart = ChartOf(state);
    QScrollBar &bar = chart.Grid().VertScrollBar();
    const int middle = bar.value();
    int step = 0;
    for (auto _ : state) {
        bar.setValue(middle + (++step & 1) * bar.singleStep());
        chart.RePaint();
        Settle();
    }
}

void ExpandAndCollapse(benchmark::State &state)
{
    TzuGant &chart = ChartOf(state);
    TzuDataEntity_GridTreeNode *node = chart.GantRows().RowsOnScreen()[10]->GridNode();
    TzuDataEntity_GridTreeNode &group = node->ParentNode() != nullptr ? *node->ParentNode() : *node;
    for (auto _ : state) {
        group.SetExpanded(!group.GetExpanded());
        Settle();
    }
    group.SetExpanded(true);
    Settle();
}

void ResizeRow(benchmark::State &state)
{
    TzuGant &chart = ChartOf(state);
    TAxisContentItem &row = *chart.GantRows().RowsOnScreen()[10]->GridNode()->Row();
    const int size = row.Size();
    row.SetUserSizeActive(true);
    int step = 0;
    for (auto _ : state) {
        row.SetUserSize(size + (++step & 1) * 15);
        Settle();
    }
    row.SetUserSizeActive(false);
    Settle();
}

void NextRow(benchmark::State &state)
{
    TzuGant &chart = ChartOf(state);
    const TGantRow *row = chart.GantRows().RowsOnScreen()[10];
    for (auto _ : state) {
        benchmark::DoNotOptimize(row = chart.NextShownRow(*row));
    }
}

} // namespace

int main(int argc, char **argv)
{
    return RunSteps(argc, argv,
                    {
                        {"ScrollByEvents", ScrollByEvents},
                        {"ScrollAndRepaintAll", ScrollAndRepaintAll},
                        {"ExpandAndCollapse", ExpandAndCollapse},
                        {"ResizeRow", ResizeRow},
                        {"NextRow", NextRow, 2000},
                    },
                    {10'000, 1'000'000}, [] { kept.reset(); });
}
