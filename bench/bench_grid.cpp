// What the steps of a grid cost, each beside what it is to be measured by: sorting beside a plain
// stable sort of keys that are ready, painting and scrolling a million rows of twenty columns
// beside Qt's own table view, in windows of 1200x900 pixels drawn offscreen.
#include "grid/qt/zuGrid.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

#if __has_include(<malloc.h>)
#include <malloc.h>
#endif

#include <algorithm>
#include <benchmark/benchmark.h>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace korvane;

constexpr int kRows = 100'000;

std::string RandomText(std::mt19937 &random)
{
    std::string text;
    for (unsigned length = 4 + random() % 12; length > 0; --length) {
        text += static_cast<char>('a' + random() % 26);
    }
    return text;
}

struct TRows
{
    TBabGridCellForViewer Root;
    TzuGridCore Grid{Root, [] {}};

    TRows()
    {
        std::mt19937 random(1);
        Grid.Columns().Add();
        Grid.AddRows(kRows);
        for (int row = 0; row < kRows; ++row) {
            Grid.SetCellText(0, row, RandomText(random));
        }
        Grid.SetSortKeys({{Grid.Columns().GetColumn(0)}});
    }
    void Shuffle()
    {
        std::mt19937 random(2);
        auto items = Root.Rows().LoadedItems();
        items.erase(items.begin());
        std::shuffle(items.begin(), items.end(), random);
        Root.Rows().Reorder(items);
    }
};

TRows &Rows()
{
    static TRows rows;
    return rows;
}

void SortRows(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        Rows().Shuffle();
        state.ResumeTiming();
        Rows().Grid.DoInternalResortOfContent();
    }
}

void StableSortOfReadyKeys(benchmark::State &state)
{
    Rows().Shuffle();
    std::vector<std::string> ready;
    for (int row = 1; row <= kRows; ++row) {
        ready.push_back(Rows().Grid.GetSortString(*Rows().Root.Rows().getAxisContentItem(row)));
    }
    for (auto _ : state) {
        state.PauseTiming();
        auto keys = ready;
        state.ResumeTiming();
        std::stable_sort(keys.begin(), keys.end());
        benchmark::DoNotOptimize(keys.data());
    }
}

BENCHMARK(SortRows)->Unit(benchmark::kMillisecond)->MinTime(1);
BENCHMARK(StableSortOfReadyKeys)->Unit(benchmark::kMillisecond)->MinTime(1);

// --- views ---------------------------------------------------------------------------------------

constexpr int kManyRows = 1'000'000;
constexpr int kColumns = 20;

void AppendCell(std::string &text, int row, int column)
{
    text += "Cell ";
    text += std::to_string(row);
    text += ',';
    text += std::to_string(column);
}

class TTableModel : public QAbstractTableModel
{
public:
    int rowCount(const QModelIndex & /*parent*/) const override { return kManyRows; }
    int columnCount(const QModelIndex & /*parent*/) const override { return kColumns; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role != Qt::DisplayRole) {
            return {};
        }
        std::string text;
        AppendCell(text, index.row(), index.column());
        return QString::fromStdString(text);
    }
};

/// Qt's view, with rows and columns of the grid's sizes.
class TTable : public QTableView
{
public:
    TTable()
    {
        setModel(&m_model);
        verticalHeader()->setDefaultSectionSize(20);
        horizontalHeader()->setDefaultSectionSize(80);
        setVerticalScrollMode(ScrollPerPixel);
        resize(1200, 900);
        show();
        QCoreApplication::processEvents();
    }
    ~TTable() override { setModel(nullptr); }
    QScrollBar &Bar() { return *verticalScrollBar(); }
    QWidget &Area() { return *viewport(); }

private:
    TTableModel m_model;
};

class TGrid : public TzuGrid
{
public:
    TGrid() { Begin(0); }
    explicit TGrid(int virtualRows) { Begin(virtualRows); }
    QScrollBar &Bar() { return VertScrollBar(); }
    QWidget &Area() { return *this; }

private:
    void Begin(int virtualRows)
    {
        OnGetCellText = [](TBabGridCell *grid, TAxisContentItem *column, TAxisContentItem *row,
                           std::string &text) {
            AppendCell(text, grid->Rows().IndexOf(*row), grid->Columns().IndexOf(*column));
        };
        for (int column = 0; column < kColumns; ++column) {
            Columns().Add().SetWidth(80);
        }
        if (virtualRows > 0) {
            OnVirtualLoad = [](TObject *, TBabGridCell *, TAxisContentItem *) {};
            RootCell().Rows().AddUnloaded(virtualRows);
        } else {
            AddRows(kManyRows);
        }
        resize(1200, 900);
        show();
        QCoreApplication::processEvents();
    }
};

template <typename View>
View &Shown()
{
    static View &view = *new View; // never freed: it would outlive the application
    return view;
}

template <typename View>
void Repaint(benchmark::State &state)
{
    View &view = Shown<View>();
    for (auto _ : state) {
        view.Area().update();
        if (auto *grid = qobject_cast<TzuGrid *>(&view.Area())) {
            grid->Invalidate();
        }
        QCoreApplication::processEvents();
    }
}

template <typename View>
void ScrollStep(benchmark::State &state)
{
    View &view = Shown<View>();
    view.Bar().setValue(0);
    for (auto _ : state) {
        view.Bar().setValue((view.Bar().value() + 60) % view.Bar().maximum());
        QCoreApplication::processEvents();
    }
}

void ResizeGridColumn(benchmark::State &state)
{
    TGrid &grid = Shown<TGrid>();
    int width = 80;
    for (auto _ : state) {
        width = 160 - width + 1;
        grid.Columns().At(3).SetWidth(width);
        QCoreApplication::processEvents();
    }
    grid.Columns().At(3).SetWidth(80);
}

void ResizeTableColumn(benchmark::State &state)
{
    TTable &table = Shown<TTable>();
    int width = 80;
    for (auto _ : state) {
        width = 160 - width + 1;
        table.setColumnWidth(3, width);
        QCoreApplication::processEvents();
    }
    table.setColumnWidth(3, 80);
}

void JumpAmongTenMillionVirtualRows(benchmark::State &state)
{
    static TGrid &grid = *new TGrid(10'000'000);
    std::mt19937 random(4);
    int loaded = 0;
    for (auto _ : state) {
        grid.Bar().setValue(static_cast<int>(random() % 190'000'000));
        QCoreApplication::processEvents();
        loaded = std::max(loaded, grid.RootCell().Rows().LoadedCount());
    }
    state.counters["loaded"] = loaded;
}

/// A view from its making to its first picture.
template <typename Make>
void FirstPaint(benchmark::State &state, Make make)
{
    for (auto _ : state) {
        auto view = make();
        state.PauseTiming();
        view.reset();
        state.ResumeTiming();
    }
}

// --- grids in cells, and trees -------------------------------------------------------------------

/// A thousand rows, each with an open grid of a thousand rows.
class TNestedGrid : public TzuGrid
{
public:
    TNestedGrid()
    {
        TzuGrid_SubGrid &lines = SubGrids().Add();
        lines.SetName("Lines");
        for (int column = 0; column < kColumns; ++column) {
            lines.Columns().Add().SetWidth(56);
        }
        TzuGrid_Column &column = Columns().Add();
        column.SetWidth(1150);
        column.SetSubGridName("Lines");
        column.SetKind(TColumnKind::tckSubGrid);
        OnGetCellText = [](TBabGridCell *grid, TAxisContentItem *at, TAxisContentItem *row,
                           std::string &text) {
            AppendCell(text, grid->Rows().IndexOf(*row), grid->Columns().IndexOf(*at));
        };
        OnInitSubGrid = [](TObject *, TBabSubGridCell *cell, TAxisContentItem *,
                           TAxisContentItem *) { cell->Rows().AddUnloaded(1000); };
        AddRows(1000);
        resize(1200, 900);
        show();
        for (int row = 1; row <= 1000; ++row) { // open all of them
            MakeVisible({&RootCell(), 1, row});
            EnsureLayout();
        }
        QCoreApplication::processEvents();
    }
    QScrollBar &Bar() { return VertScrollBar(); }
};

/// A thousand nodes of a thousand nodes each.
struct TTree
{
    TBabGridCellForViewer Root;
    TzuGridCore Grid{Root, [] {}};

    TTree()
    {
        Grid.SetUseTree(true);
        for (int i = 0; i < 1000; ++i) {
            TzuDataEntity_GridTreeNode *parent = Grid.GetTree()->AddDataEntity();
            for (int k = 0; k < 1000; ++k) {
                Grid.GetTree()->AddDataEntity(parent);
            }
        }
    }
};

/// What is taken from the heap; 0 where that is not told.
double HeapBytes()
{
#if defined(__GLIBC__) && (__GLIBC__ > 2 || __GLIBC_MINOR__ >= 33)
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
#else
    return 0;
#endif
}

void FillTreeWithAMillion(benchmark::State &state)
{
    for (auto _ : state) {
        const double before = HeapBytes();
        const auto tree = std::make_unique<TTree>();
        benchmark::DoNotOptimize(tree.get());
        state.counters["bytes_per_node"] = (HeapBytes() - before) / 1'001'000;
    }
}

/// Two nodes of a million children that are only counted, both expanded.
class TCountedTree : public TzuGrid
{
public:
    TCountedTree()
    {
        Columns().Add().SetTreeButton(true);
        SetUseTree(true);
        OnVirtualLoad = [](TObject *, TBabGridCell *, TAxisContentItem *row) {
            auto *node = TzuGridTree::NodeOf(row);
            node->SetText("Node " + std::to_string(node->ListIndex()));
        };
        for (int i = 0; i < 2; ++i) {
            TzuDataEntity_GridTreeNode *parent = GetTree()->AddDataEntity();
            parent->ChildList()->AddUnloaded(kManyRows);
            parent->SetExpanded(true);
        }
        resize(1200, 900);
        show();
        QCoreApplication::processEvents();
    }
    QScrollBar &Bar() { return VertScrollBar(); }
};

void JumpAmongTwoMillionCountedNodes(benchmark::State &state)
{
    static TCountedTree &grid = *new TCountedTree;
    std::mt19937 random(4);
    const double before = HeapBytes();
    double most = 0;
    int loaded = 0;
    for (auto _ : state) {
        grid.Bar().setValue(static_cast<int>(random() % 39'000'000));
        QCoreApplication::processEvents();
        loaded = std::max(loaded, grid.RootCell().Rows().LoadedCount());
        most = std::max(most, HeapBytes() - before);
    }
    state.counters["loaded"] = loaded;
    state.counters["bytes"] = most;
}

/// By steps of three rows.
void ScrollThroughCountedNodes(benchmark::State &state)
{
    static TCountedTree &grid = *new TCountedTree;
    int loaded = 0;
    for (auto _ : state) {
        grid.Bar().setValue((grid.Bar().value() + 60) % grid.Bar().maximum());
        QCoreApplication::processEvents();
        loaded = std::max(loaded, grid.RootCell().Rows().LoadedCount());
    }
    state.counters["loaded"] = loaded;
}

TTree &Tree()
{
    static TTree &tree = *new TTree;
    return tree;
}

void ExpandAndCollapseAThousand(benchmark::State &state)
{
    TzuDataEntity_GridTreeNode *node = Tree().Grid.GetTree()->DataList()->Node(500);
    for (auto _ : state) {
        node->SetExpanded(true);
        node->SetExpanded(false);
    }
}

void InsertAndRemoveInTheMiddle(benchmark::State &state)
{
    TzuGridTree &tree = *Tree().Grid.GetTree();
    for (auto _ : state) {
        tree.RemoveDataEntity(tree.InsertDataEntity(*tree.DataList()->Node(500)->ChildList(), 500));
    }
}

void RowOfANode(benchmark::State &state)
{
    TzuGridTree &tree = *Tree().Grid.GetTree();
    std::mt19937 random(5);
    for (auto _ : state) {
        const auto row = static_cast<int>(random() % 1'000'000U) + 1;
        benchmark::DoNotOptimize(tree.GetRow(*tree.GetDataEntityFromRow(row)));
    }
}

BENCHMARK_CAPTURE(FirstPaint, Grid, [] {
    return std::make_unique<TGrid>(kManyRows);
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FirstPaint, Table, [] {
    return std::make_unique<TTable>();
})->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollStep<TNestedGrid>)->Unit(benchmark::kMillisecond);
BENCHMARK(FillTreeWithAMillion)->Unit(benchmark::kMillisecond);
BENCHMARK(JumpAmongTwoMillionCountedNodes)->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollThroughCountedNodes)->Unit(benchmark::kMillisecond);
BENCHMARK(ExpandAndCollapseAThousand)->Unit(benchmark::kMicrosecond);
BENCHMARK(InsertAndRemoveInTheMiddle)->Unit(benchmark::kMicrosecond);
BENCHMARK(RowOfANode)->Unit(benchmark::kMicrosecond);
BENCHMARK(Repaint<TGrid>)->Unit(benchmark::kMillisecond);
BENCHMARK(Repaint<TTable>)->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollStep<TGrid>)->Unit(benchmark::kMillisecond);
BENCHMARK(ScrollStep<TTable>)->Unit(benchmark::kMillisecond);
BENCHMARK(ResizeGridColumn)->Unit(benchmark::kMillisecond);
BENCHMARK(ResizeTableColumn)->Unit(benchmark::kMillisecond);
BENCHMARK(JumpAmongTenMillionVirtualRows)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
