// A chart without widgets, for tests: a tree of which a window of lines is shown, a linear time
// axis of one pixel per hour, and a canvas that records.
#pragma once

#include "gantt/zuGantKeys.h"
#include "scaler/zuScalerGestures.h"
#include "support/FakeScalerHost.h"
#include "support/RecordingCanvas.h"
#include "tree/zuTree.h"

#include <functional>
#include <map>
#include <memory>

namespace korvane::test {

inline constexpr TDateTime kDayZero = 40000; // 2009-07-06, a Monday
inline constexpr TDateTime kHourLength = 1.0 / 24;

/// A tree view of lines of 18 pixels that does nothing but show.
struct FakeTreeView : ITreeHost, ITreeNodeObserver
{
    TTreeGeometry Shown{0, 18, 100, 180};

    void InvalidateTree() override {}
    TTreeGeometry Geometry() const override { return Shown; }
    void SetTopRow(int row) override { Shown.TopRow = row; }
    void SelectNode(TTreeNode_zuSub *) override {}
    void ShowCurrent(TTreeNode_zuSub &) override {}
    void LoseCurrent() override {}
    void EditNode(TTreeNode_zuSub &) override {}
    void BeginNodes(int) override {}
    void BeforeChange(const TNodeChangeInfo &) override {}
    void AfterChange(const TNodeChangeInfo &) override {}
    void EndNodes() override {}
    void NodeChanged(TTreeNode_zuSub &, TNodeAspect) override {}
    void AllExpansionsChanged() override {}
    void BeforeRelease() override {}
};

/// Counts requests and answers with its fields.
struct FakeGantHost : IGantHost, IGantInputHost
{
    FakeGantHost(TTreeCore &tree, TDateScalerGestures &scaler)
        : Tree(tree)
        , Axis(scaler)
    {
    }

    TTreeCore &Tree;
    TDateScalerGestures &Axis;
    FakeTreeView *View = nullptr; ///< of the tree
    TRecordingCanvas Canvas{{0, 0, 480, 180}};
    TSize Size{480, 180};
    TPrintScale PrintScale;
    int Invalidations = 0;
    int ResizedFonts = 0;

    TDateScalerGestures &Scaler() override { return Axis; }
    const TDateScalerGestures &Scaler() const override { return Axis; }
    void CollectVisibleNodes(std::vector<TVisibleNode> &nodes) override
    {
        Lines().CollectVisible(nodes);
    }
    void InvalidateArea() override { ++Invalidations; }
    TSize AreaSize() const override { return Size; }
    TCanvas &AreaCanvas() override { return Canvas; }
    TPrintScale AreaPrintScale() const override { return PrintScale; }
    void PrintResizeAreaFont() override { ++ResizedFonts; }

    int Focusings = 0;
    TGantCursor Cursor = TGantCursor::Area;
    std::vector<TRect> OverlayRects;
    int RefreshesAround = 0;
    int ScrolledRows = 0;

    void FocusArea() override { ++Focusings; }
    void SetAreaCursor(TGantCursor cursor) override { Cursor = cursor; }
    void InvalidateOverlay(const TRect &rect) override { OverlayRects.push_back(rect); }
    void RefreshAroundArea() override { ++RefreshesAround; }
    TRect ChartRect() const override { return {-100, -45, Size.Width + 16, Size.Height}; }

    bool Timer = false;
    TGestureHint Hint;
    TPoint HintAt;
    std::vector<TItemDragData> Drags;

    void SetGestureTimer(bool on) override { Timer = on; }
    void ShowGestureHint(const TGestureHint &hint, TPoint at) override
    {
        Hint = hint;
        HintAt = at;
    }
    void HideGestureHint() override { Hint = {}; }
    void StartItemDrag(const TItemDragData &data) override { Drags.push_back(data); }
    std::unique_ptr<IGantLines> RowLines;
    IGantLines &Lines() const override { return *RowLines; }
};

/// The lines of the fake tree, which scrolls by counting.
struct FakeTreeLines : TGantTreeLines
{
    FakeTreeLines(FakeGantHost &host, const TGantRowList &rows)
        : TGantTreeLines(host.Tree, rows)
        , Host(host)
    {
    }

    FakeGantHost &Host;

    void ScrollBy(int lines) override
    {
        Host.ScrolledRows += lines;
        TTreeGeometry &shown = Host.View->Shown;
        const int last = std::max(0, Count() - shown.Height / shown.RowHeight);
        shown.TopRow = std::clamp(shown.TopRow + lines, 0, last);
    }
    TTreeGeometry Geometry() const override { return Host.View->Shown; }
    int Offset() const override { return 0; }
};

/// A tree whose entities get rows, as the control's row tree does it.
class FakeRowTree : public TTreeCore
{
public:
    explicit FakeRowTree(FakeTreeView &view)
        : TTreeCore(view, view)
    {
        SetLoadOnDemand(false);
    }
    ~FakeRowTree() override { DestroyContent(); }

    TGantCore *Gant = nullptr;

protected:
    void _InsertItem(TzuDataEntity_Tree *entity) override
    {
        TTreeCore::_InsertItem(entity);
        Gant->GantRows().AddRow(entity);
    }
    void _DeleteItem(TzuDataEntity_Tree *entity) override
    {
        if (!Destroying()) {
            Gant->GantRows().RemoveRow(entity);
        }
        TTreeCore::_DeleteItem(entity);
    }
};

class TestGant : public TGantKeys
{
public:
    explicit TestGant(FakeGantHost &host)
        : TGantKeys(host, host, nullptr)
    {
        InitializeData();
    }
    ~TestGant() override { FinalizeData(); }
};

/// Everything put together. The axis shows 20 days on 480 pixels: an hour is a pixel.
struct TestChart
{
    FakeTreeView View;
    FakeRowTree Tree{View};
    FakeScalerHost AxisHost;
    std::unique_ptr<TDateScalerGestures> Axis;
    std::unique_ptr<FakeGantHost> Host;
    std::unique_ptr<TestGant> Gant;

    TestChart()
    {
        AxisHost.Size = {480, 45};
        Axis = std::make_unique<TDateScalerGestures>(AxisHost, AxisHost);
        Axis->BeginUpdate();
        Axis->SetHorizontal(true);
        Axis->SetStart(kDayZero);
        Axis->SetStop(kDayZero + 20);
        Axis->EndUpdate();
        Host = std::make_unique<FakeGantHost>(Tree, *Axis);
        Host->View = &View;
        Gant = std::make_unique<TestGant>(*Host);
        Host->RowLines = std::make_unique<FakeTreeLines>(*Host, Gant->GantRows());
        Tree.Gant = Gant.get();
    }

    TzuDataEntity_Tree *AddNode(TzuDataEntity_Tree *parent = nullptr)
    {
        return Tree.AddDataEntity(parent);
    }
    TGantRow *AddRow() { return Gant->GantRows().FindRowFromTreeNode(AddNode()); }
    /// An item from one pixel to another while the axis starts at day zero.
    TzuDataEntity_Spanbar *AddItem(TGantRow *row, int fromPixel, int toPixel, int layer = 0)
    {
        TzuDataEntity_Spanbar *item = Gant->AddSpanbarToGantRow(row, layer);
        item->SetStartDateTime(kDayZero + fromPixel * kHourLength);
        item->SetStopDateTime(kDayZero + toPixel * kHourLength);
        return item;
    }
    TzuDataEntity_Link &Link(TzuDataEntity_Spanbar *first, TzuDataEntity_Spanbar *second)
    {
        TzuDataEntity_Link &link = Gant->AddLink();
        link.SetFirst(first);
        link.SetSecond(second);
        return link;
    }
    void Paint()
    {
        Host->Canvas.Clear();
        Gant->GantAreaPaint();
    }
};

} // namespace korvane::test
