#include "foundation/qt/zuGraphStuff.h"
#include "foundation/qt/zuSplitter.h"
#include "gantt/qt/zuGant.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTabBar>

#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <vector>

using namespace korvane;

namespace {

void Settle()
{
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::processEvents();
    }
}

struct GantParts : testing::Test
{
    std::unique_ptr<TzuGant> Chart = std::make_unique<TzuGant>();
    std::vector<TzuDataEntity_Tree *> Nodes;

    GantParts()
    {
        Chart->resize(700, 300);
        for (int i = 0; i < 30; ++i) {
            Nodes.push_back(Chart->AddRootDataEntityTree("Row " + std::to_string(i)));
        }
        Chart->show();
        Settle();
    }

    int TopOf(QWidget &part) const { return part.mapTo(Chart.get(), QPoint()).y(); }
    void DragSplitter(int by)
    {
        const auto send = [this](QEvent::Type type, int x, Qt::MouseButton button) {
            QMouseEvent event(type, QPointF(x, 5), QPointF(x, 5), button, Qt::LeftButton, {});
            QCoreApplication::sendEvent(&Chart->Splitter(), &event);
        };
        send(QEvent::MouseButtonPress, 0, Qt::LeftButton);
        send(QEvent::MouseMove, by, Qt::NoButton);
        send(QEvent::MouseButtonRelease, by, Qt::LeftButton);
    }
};

TEST_F(GantParts, OnlyTheUserAndTheAxisCallForAligning)
{
    std::vector<int> widths;
    Chart->OnAlignNeed = [&](TzuGant_ComBasic *, TDateTime, TDateTime, int width) {
        widths.push_back(width);
    };
    Chart->SetScaleAndTree(40000, 40010, 250);
    Settle();
    EXPECT_THAT(widths, testing::IsEmpty()) << "also when the axis reports it later";
    EXPECT_EQ(Chart->TreeWidth(), 250);
    DragSplitter(30);
    EXPECT_THAT(widths, testing::ElementsAre(280));
    Chart->SetStop(40011);
    Settle();
    EXPECT_THAT(widths, testing::ElementsAre(280, 280));
    Chart->resize(900, 300);
    Settle();
    EXPECT_EQ(Chart->TreeWidth(), 280) << "the area takes what the chart gains";
}

TEST_F(GantParts, AHandlerThatMovesTheStartStopsTheSteppingOneThatMovesTheStopDoesNot)
{
    for (const bool moveStart : {false, true}) {
        Chart->OnScalerChange = [moveStart](TzuGant_ComBasic *gant, TDateTime start,
                                            TDateTime stop) {
            moveStart ? gant->SetStart(start - 1) : gant->SetStop(stop + 1);
        };
        TzuDateScaler &scaler = Chart->DateScaler();
        scaler.StartStepUp();
        scaler.CallChange();
        Chart->OnScalerChange = nullptr;
        const TDateTime before = Chart->Start();
        scaler.ScrollButtonPressed(nullptr);
        EXPECT_EQ(Chart->Start() > before, !moveStart);
        scaler.StopStep();
    }
}

TEST_F(GantParts, RowsStayLevelWithTheTreeUnderTabs)
{
    EXPECT_FALSE(Chart->GetTabSheetsONOFF());
    EXPECT_EQ(Chart->PageControl().Tabs().tabText(0), "Gant");
    const auto expectLevel = [this] {
        Settle();
        EXPECT_EQ(TopOf(*Chart->Tree().viewport()), TopOf(Chart->GantArea()));
        EXPECT_EQ(TopOf(Chart->VertScrollBar()), TopOf(Chart->GantArea()));
        EXPECT_TRUE(Chart->VertScrollBar().isVisible());
        EXPECT_TRUE(Chart->GantArea().isVisible());
    };
    const int width = Chart->TreeWidth();
    Chart->SetTabSheetsONOFF(true);
    expectLevel();
    EXPECT_TRUE(Chart->PageControl().Tabs().isVisible());
    EXPECT_GT(TopOf(Chart->DateScaler()), 10);
    Chart->SetScalerHeight(60);
    expectLevel();
    EXPECT_EQ(Chart->DateScaler().height(), 60);
    QFont large = Chart->font();
    large.setPointSize(30);
    Chart->PageControl().Tabs().setFont(large);
    expectLevel();
    EXPECT_EQ(Chart->TreeWidth(), width);
    Chart->SetTabSheetsONOFF(false);
    expectLevel();
    EXPECT_EQ(TopOf(Chart->DateScaler()), 0);
    EXPECT_EQ(Chart->TreeSpacer().height(), 60);
    DragSplitter(20);
    EXPECT_EQ(Chart->TreeWidth(), width + 20);
}

/// A chart with two more sheets; what their handlers hear is written down.
struct GantSheets : GantParts
{
    QWidget *Sheets[2] = {new QWidget, new QWidget};
    std::string Heard;
    bool Allow = true;

    GantSheets()
    {
        Chart->SetTabSheetsONOFF(true);
        for (int i = 0; i < 2; ++i) {
            const std::string name = i == 0 ? "A" : "B";
            Sheets[i]->setWindowTitle(QString::fromStdString(name));
            Chart->AddTabSheet(
                Sheets[i],
                [this, name](TGantRow *row) {
                    Heard += name + (row != nullptr ? row->TreeNode()->GetText() : "none") + ' ';
                },
                [this, name](QWidget *, bool &allow) {
                    Heard += name + "? ";
                    allow = Allow;
                },
                [this, name](QWidget *) { Heard += name + "! "; });
        }
        Settle();
        Heard.clear();
    }

    std::string Take() { return std::exchange(Heard, {}); }
};

TEST_F(GantSheets, TellOfRowsAndAskBeforeTheyAreLeft)
{
    Chart->Tree().SetCurrentDataEntity(Nodes[3]);
    Settle();
    EXPECT_EQ(Take(), "ARow 3 BRow 3 ");
    EXPECT_EQ(Chart->GetActiveGantRow()->TreeNode(), Nodes[3]);
    Chart->Tree().SetCurrentDataEntity(Nodes[3]);
    Settle();
    EXPECT_EQ(Take(), "") << "the same row";

    Chart->PageControl().Tabs().setCurrentIndex(1);
    EXPECT_EQ(Take(), "A! ARow 3 BRow 3 ");
    EXPECT_TRUE(Sheets[0]->isVisible());
    EXPECT_FALSE(Chart->GantArea().isVisible());
    Allow = false;
    Chart->PageControl().Tabs().setCurrentIndex(2);
    EXPECT_EQ(Take(), "A? A! ");
    EXPECT_EQ(Chart->PageControl().Tabs().currentIndex(), 1);
    EXPECT_EQ(Chart->PageControl().ActivePage(), Sheets[0]);
    Allow = true;
    Chart->PageControl().SetActivePage(Sheets[1]);
    EXPECT_EQ(Take(), "A? A! B! ARow 3 BRow 3 ");

    Chart->Tree().RemoveDataEntity(Nodes[3]);
    Settle();
    EXPECT_THAT(Take(), testing::StartsWith("A"));
    delete Sheets[1];
    EXPECT_EQ(Chart->PageControl().Tabs().count(), 2);
    EXPECT_EQ(Chart->PageControl().Containers().size(), 1U);
    EXPECT_EQ(Chart->PageControl().Tabs().currentIndex(), 1);
    Sheets[0]->setParent(nullptr);
    const std::unique_ptr<QWidget> taken(Sheets[0]);
    EXPECT_EQ(Chart->PageControl().ActivePage(), &Chart->PageControl().GantSheet());
}

TEST_F(GantSheets, HandlersMayDestroySheetsAndTheChart)
{
    auto *own = new QWidget;
    Chart->AddTabSheet(own, {}, [this](QWidget *sheet, bool &) { delete sheet; });
    Chart->PageControl().SetActivePage(own);
    Chart->PageControl().SetActivePage(Sheets[0]);
    EXPECT_EQ(Chart->PageControl().ActivePage(), Sheets[0]);
    auto *last = new QWidget;
    Chart->AddTabSheet(last, {}, {}, [this](QWidget *) { Chart.reset(); });
    Chart->PageControl().SetActivePage(last);
    EXPECT_EQ(Chart, nullptr);
}

TEST_F(GantParts, TheTreesEventsReachTheChart)
{
    std::string heard;
    Chart->OnInsertItem_Tree = [&](TObject *, TzuDataEntity *) { heard += "insert "; };
    Chart->OnDeleteItem_Tree = [&](TObject *, TzuDataEntity *) { heard += "delete "; };
    Chart->OnSelectionChanged_Tree = [&](TObject *, TzuDataList *, TzuDataEntity *) {
        heard += "select ";
    };
    Chart->OnValueChanged_Tree = [&](TObject *, TzuDataEntity *) { heard += "value "; };
    TzuDataEntity_Tree *node = Chart->AddRootDataEntityTree();
    node->SetSelected(true);
    node->DoInfoPush();
    Chart->Tree().RemoveDataEntity(node);
    EXPECT_THAT(heard, testing::StartsWith("insert select value "));
    EXPECT_THAT(heard, testing::EndsWith("delete "));
    Chart->OnInsertItem_Tree = [this](TObject *, TzuDataEntity *) { Chart.reset(); };
    Chart->AddRootDataEntityTree();
    EXPECT_EQ(Chart, nullptr);
}

TEST_F(GantParts, EveryLineIsShownOnRequest)
{
    TzuDataEntity_Tree *deep = Nodes[5];
    for (int i = 0; i < 4; ++i) {
        deep = Chart->AddDataEntityTree(deep, "deep");
    }
    EXPECT_EQ(Chart->CountVisibleTreeViewItems(), 30);
    Chart->MakeSureAllVisibleInTree();
    EXPECT_EQ(Chart->CountVisibleTreeViewItems(), 34);
    EXPECT_TRUE(deep->GetVisible());
}

} // namespace
