#include "foundation/zuDateUtils.h"
#include "gantt/qt/zuGant.h"

#include <QApplication>
#include <QScrollBar>
#include <QWheelEvent>

#include <gmock/gmock.h>
#include <memory>

using namespace korvane;

namespace {

constexpr TColor kItemColor = 0x3366CC;
const QColor kItemFill(0xCC, 0x66, 0x33);

void Settle()
{
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::processEvents();
    }
}

void TurnWheel(QWidget &widget, int delta)
{
    const QPointF middle(5, 5);
    QWheelEvent event(middle, widget.mapToGlobal(middle), {}, {0, delta}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
    Settle();
}

/// A chart of 10 groups of 9 rows each, an item on every row, in a window that shows some of them.
struct GantControl : testing::Test
{
    TzuGant Chart;
    std::vector<TzuDataEntity_Tree *> Groups;
    std::vector<TzuDataEntity_Spanbar *> Items;

    GantControl()
    {
        Chart.resize(900, 400);
        Chart.SetTreeWidth(200);
        for (int group = 0; group < 10; ++group) {
            Groups.push_back(Chart.AddRootDataEntityTree("Group " + std::to_string(group)));
            AddItem(Groups.back());
            for (int row = 0; row < 9; ++row) {
                AddItem(Chart.AddDataEntityTree(Groups.back(), "Row " + std::to_string(row)));
            }
            Groups.back()->SetExpanded(true);
        }
        Chart.show();
        Settle();
    }

    void AddItem(TzuDataEntity_Tree *node)
    {
        TzuDataEntity_Spanbar *item = Chart.AddSpanbar(node, 0);
        item->SetStartDateTime(Chart.Start() + 5);
        item->SetStopDateTime(Chart.Start() + 10);
        item->SetColor(kItemColor);
        Items.push_back(item);
    }

    /// Compares every row of the area with its line of the tree, in the chart's coordinates, and
    /// with what is really painted there.
    void ExpectLevel()
    {
        Settle();
        const auto &rows = Chart.GantRows().RowsOnScreen();
        ASSERT_GT(rows.size(), 5U);
        const int treeTop = Chart.Tree().viewport()->mapTo(&Chart, QPoint()).y();
        const int areaTop = Chart.GantArea().mapTo(&Chart, QPoint()).y();
        EXPECT_EQ(treeTop, areaTop);
        const QImage picture = Chart.GantArea().grab().toImage();
        const int x = Chart.DateScaler().DateToPixel(Chart.Start() + 7);
        for (const TGantRow *row : rows) {
            const QModelIndex line =
                Chart.Tree().indexAt(QPoint(50, row->GetRect().Top - treeTop + areaTop));
            const QRect lineRect = Chart.Tree().visualRect(line);
            EXPECT_EQ(line.data().toString().toStdString(), row->TreeNode()->GetText());
            EXPECT_EQ(lineRect.top() + treeTop, row->GetRect().Top + areaTop);
            EXPECT_EQ(lineRect.height(), row->GetRect().Height());
            const int middle = (row->GetRect().Top + row->GetRect().Bottom) / 2;
            if (middle < picture.height()) {
                EXPECT_EQ(picture.pixelColor(x, middle), kItemFill) << row->TreeNode()->GetText();
            }
        }
    }
};

TEST(GantControlFresh, ShowsTheDaysAroundTodayWithTheDefaultSizes)
{
    TzuGant chart;
    EXPECT_EQ(chart.Start(), Today() - 15);
    EXPECT_EQ(chart.Stop(), Today() + 15);
    EXPECT_EQ(chart.size(), QSize(350, 250));
    EXPECT_EQ(chart.windowTitle(), "OffscreenPaint");
    EXPECT_EQ(chart.GetScalerHeight(), 45);
    EXPECT_EQ(chart.DateFormat(), "YYMMDD");
    EXPECT_EQ(chart.TimeFormat(), "HH:MM:SS");
    chart.show();
    Settle();
    EXPECT_EQ(chart.TreeWidth(), 100);
    EXPECT_FALSE(chart.VertScrollBar().isVisible()) << "nothing to scroll";
}

TEST_F(GantControl, KeepsRowsAndLinesLevel)
{
    QScrollBar &bar = Chart.VertScrollBar();
    ExpectLevel();
    ASSERT_TRUE(bar.isEnabled());
    bar.setValue(13);
    ExpectLevel();
    EXPECT_EQ(Chart.GantRows().RowsOnScreen().front()->TreeNode()->GetText(), "Row 2");
    Groups[1]->SetExpanded(false);
    ExpectLevel();
    Chart.Tree().SetRowHeight(27);
    ExpectLevel();
    Chart.SetScalerHeight(60);
    ExpectLevel();
    bar.setValue(bar.maximum());
    ExpectLevel();
    EXPECT_EQ(Chart.GantRows().RowsOnScreen().back()->TreeNode()->GetText(), "Row 8");
    Chart.resize(900, 300);
    ExpectLevel();
    Chart.Tree().RemoveDataEntity(Groups[4]);
    ExpectLevel();
    Chart.Tree().SetTopItem(Groups[2]);
    ExpectLevel();
    EXPECT_EQ(Chart.GantRows().RowsOnScreen().front()->TreeNode(), Groups[2]);
}

TEST_F(GantControl, TheWheelMovesTheCurrentNodeByOneWhateverItTurns)
{
    Chart.Tree().SetCurrentDataEntity(Groups[0]);
    Settle();
    TurnWheel(Chart.GantArea(), -120);
    EXPECT_EQ(Chart.Tree().GetCurrentDataEntity()->GetText(), "Row 0");
    TurnWheel(*Chart.Tree().viewport(), -600);
    EXPECT_EQ(Chart.Tree().GetCurrentDataEntity()->GetText(), "Row 1");
    for (int i = 0; i < 3; ++i) {
        TurnWheel(Chart.GantArea(), 15);
    }
    EXPECT_EQ(Chart.Tree().GetCurrentDataEntity(), Groups[0]) << "stops at the first node";
}

TEST_F(GantControl, TheScrollBarIsShownWhileThereIsSomethingToScroll)
{
    struct TState
    {
        int Max = -1;
        bool Enabled = false;
    } state;
    Chart.OnRealignScrollbar = [&](TzuGant_ComBasic *, int, int, int max, int, bool enabled) {
        state = {max, enabled};
    };
    for (TzuDataEntity_Tree *group : Groups) {
        group->SetExpanded(false);
    }
    Settle();
    EXPECT_EQ(state.Max, 0);
    EXPECT_FALSE(state.Enabled);
    EXPECT_FALSE(Chart.VertScrollBar().isVisible());
    Chart.Tree().FullExpand();
    Settle();
    EXPECT_TRUE(state.Enabled);
    EXPECT_EQ(Chart.VertScrollBar().maximum(), state.Max);
    EXPECT_TRUE(Chart.VertScrollBar().isVisible());
}

TEST_F(GantControl, TellsOfScaleChangesAndOfProportionsUnlessItSetsThemItself)
{
    int aligns = 0;
    std::vector<std::pair<TDateTime, TDateTime>> ranges;
    Chart.OnAlignNeed = [&](TzuGant_ComBasic *, TDateTime, TDateTime, int) { ++aligns; };
    Chart.OnScalerChange = [&](TzuGant_ComBasic *gant, TDateTime start, TDateTime stop) {
        EXPECT_EQ(gant, &Chart);
        ranges.emplace_back(start, stop);
    };
    Chart.SetScaleAndTree(40000, 40010, 250);
    EXPECT_EQ(aligns, 0);
    EXPECT_EQ(Chart.TreeWidth(), 250);
    Settle();
    EXPECT_THAT(ranges, testing::ElementsAre(std::pair(40000.0, 40010.0)));
    aligns = 0;
    Chart.SetTreeWidth(180);
    EXPECT_EQ(aligns, 1);
}

TEST(GantControlFactories, OfASubclassMakeTheParts)
{
    class TOwnScaler : public TzuDateScaler
    {
    public:
        using TzuDateScaler::TzuDateScaler;
    };
    class TOwnGant : public TzuGant
    {
    public:
        TOwnGant()
            : TzuGant(nullptr, TConstruction::WithoutParts)
        {
            InitializeInConstructor();
        }

        int Rows = 0;

    protected:
        TzuDateScaler *CreateDateScaler(QWidget *parent) override { return new TOwnScaler(parent); }
        TGantRow *CreateRow(TzuDataEntity_Tree *node, TzuDataEntity_GridTreeNode *gridNode) override
        {
            ++Rows;
            return TzuGant::CreateRow(node, gridNode);
        }
    };
    TOwnGant chart;
    EXPECT_NE(dynamic_cast<TOwnScaler *>(&chart.DateScaler()), nullptr);
    chart.AddRootDataEntityTree("row");
    EXPECT_EQ(chart.Rows, 1);
}

TEST(GantControlDestruction, HandlersSeeWholeChartsAndPendingCallsAreWithdrawn)
{
    int deleted = 0;
    {
        auto chart = std::make_unique<TzuGant>();
        TzuGant *observed = chart.get();
        chart->show();
        TzuDataEntity_Tree *node = chart->AddRootDataEntityTree("row");
        TzuDataEntity_Spanbar *item = chart->AddSpanbar(node, 0);
        TzuDataEntity_Link &link = chart->AddLink();
        link.SetFirst(item);
        link.SetSecond(chart->AddSpanbar(node, 1));
        chart->OnDeleteItem_Spanbar = [&, observed](TObject *, TzuDataEntity *) {
            ++deleted;
            observed->DateScaler().DateToPixel(1);
            observed->Tree().GetCurrentDataEntity();
        };
        chart->Tree().SetCurrentDataEntity(node);
        chart->SetScalerHeight(50);
    }
    EXPECT_EQ(deleted, 2);
    Settle();
}

TEST_F(GantControl, DrawsCrispEdgesAtTwiceTheResolution)
{
    QImage large(Chart.size() * 2, QImage::Format_ARGB32_Premultiplied);
    large.setDevicePixelRatio(2);
    Chart.render(&large);
    const TRect rect = Items[0]->GetRow()->RectFromDataEntity(*Items[0]).value();
    const QPoint corner = Chart.GantArea().mapTo(&Chart, QPoint(rect.Left, rect.Top)) * 2;
    // The one-pixel edge is two device pixels wide.
    EXPECT_EQ(large.pixelColor(corner + QPoint(2, 2)), kItemFill);
    EXPECT_NE(large.pixelColor(corner + QPoint(1, 1)), kItemFill);
    EXPECT_EQ(large.pixelColor(corner + QPoint(0, 6)), large.pixelColor(corner + QPoint(1, 6)));
}

} // namespace
