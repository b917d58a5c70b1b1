// The signals of the five components: one behind each published event that is a notification.
#include "foundation/qt/zuSplitter.h"
#include "foundation/zuDateUtils.h"
#include "gantt/qt/zuGant.h"
#include "grid/qt/zuGrid.h"
#include "schema/qt/zuSchema.h"
#include "tree/qt/zuTree.h"

#include <QDrag>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace korvane::test {
namespace {

constexpr auto kLeft = TMouseButton::mbLeft;

template <typename Component>
using TRows = std::vector<std::pair<const char *, std::function<void(Component &)>>>;

/// Each row makes its signal heard, and no signal of the class and its bases is without a row.
template <typename Component>
void ExpectHeard(const TRows<Component> &rows)
{
    Component component;
    QStringList expected;
    for (const auto &[name, fire] : rows) {
        const QMetaObject *meta = component.metaObject();
        QMetaMethod signal;
        for (int i = 0; i < meta->methodCount(); ++i) {
            if (meta->method(i).methodType() == QMetaMethod::Signal
                && meta->method(i).name() == name) {
                signal = meta->method(i);
            }
        }
        ASSERT_TRUE(signal.isValid()) << name;
        const QSignalSpy spy(&component, signal);
        fire(component);
        EXPECT_EQ(spy.count(), 1) << name;
        expected.append(QString::fromLatin1(name));
    }
    QStringList declared;
    for (const QMetaObject *meta = component.metaObject();
         QByteArray(meta->className()).startsWith("korvane::"); meta = meta->superClass()) {
        for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
            if (meta->method(i).methodType() == QMetaMethod::Signal) {
                declared.append(QString::fromLatin1(meta->method(i).name()));
            }
        }
    }
    expected.sort();
    declared.sort();
    EXPECT_EQ(declared.join(u' ').toStdString(), expected.join(u' ').toStdString());
}

void WithDrop(const auto &use)
{
    const QMimeData data;
    QDragMoveEvent event(QPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    use(event);
}

/// Those of the painted control, which is the base of two components.
template <typename Component>
TRows<Component> PaintedRows()
{
    return {
        {"clicked", [](auto &c) { c.OnClick(&c); }},
        {"doubleClicked", [](auto &c) { c.OnDblClick(&c); }},
        {"mousePressed", [](auto &c) { c.OnMouseDown(&c, kLeft, {}, 1, 2); }},
        {"mouseMoved", [](auto &c) { c.OnMouseMove(&c, {}, 1, 2); }},
        {"mouseReleased", [](auto &c) { c.OnMouseUp(&c, kLeft, {}, 1, 2); }},
        {"focusEntered", [](auto &c) { c.OnEnter(&c); }},
        {"focusLeft", [](auto &c) { c.OnExit(&c); }},
        {"resized", [](auto &c) { c.TzuOffscreenPaint::OnResize(&c); }},
        {"draggedOver", [](auto &c) { WithDrop([&](auto &event) { c.OnDragOver(&c, event); }); }},
        {"dropped", [](auto &c) { WithDrop([&](auto &event) { c.OnDragDrop(&c, event); }); }},
    };
}

template <typename Component>
TRows<Component> Joined(TRows<Component> rows, const TRows<Component> &others)
{
    rows.insert(rows.end(), others.begin(), others.end());
    return rows;
}

TEST(Signals, OfTheTimeAxis)
{
    ExpectHeard(
        Joined(PaintedRows<TzuDateScaler>(), {{"changed", [](auto &c) { c.CallChange(); }}}));
}

TEST(Signals, OfTheGrid)
{
    using C = TzuGrid;
    TCellEdit edit;
    TGridFind find;
    QMenu menu;
    ExpectHeard(Joined(
        PaintedRows<C>(),
        {
            {"topLeftChanged", [](C &c) { c.OnTopLeftChanged(nullptr); }},
            {"selectionChanged", [](C &c) { c.OnSelectionChanged(nullptr); }},
            {"focusCellChanged", [](C &c) { c.OnFocusCellChanged(nullptr); }},
            {"userSized", [](C &c) { c.OnAfterUserSize(nullptr); }},
            {"columnResized", [](C &c) { c.OnColumnResized(nullptr, nullptr, 9); }},
            {"rowResized", [](C &c) { c.OnRowResized(nullptr, nullptr, 9); }},
            {"columnSorted", [](C &c) { c.OnColumnSort(nullptr, nullptr); }},
            {"editStopping", [&](C &c) { c.OnEditStop(nullptr, edit); }},
            {"cellEdited", [&](C &c) { c.OnCellEdited(nullptr, edit); }},
            {"comboEditStarting", [](C &c) { c.OnBeforeEditWithCombo(nullptr, nullptr); }},
            {"rowsForPasteWanted", [](C &c) { c.OnAddRowsForPaste(nullptr, nullptr, 3); }},
            {"findStarting", [&](C &c) { c.OnFind(nullptr, find); }},
            {"userChangeBegun", [](C &c) { c.OnBeginUserChange(nullptr, {}); }},
            {"userChangeEnded", [](C &c) { c.OnEndUserChange(nullptr, {}, true); }},
            {"rowWanted", [](C &c) { c.OnVirtualLoad(nullptr, nullptr, nullptr); }},
            {"rowUnloading", [](C &c) { c.OnVirtualUnLoad(nullptr, nullptr, nullptr); }},
            {"subGridWanted", [](C &c) { c.OnInitSubGrid(nullptr, nullptr, nullptr, nullptr); }},
            {"childrenWanted", [](C &c) { c.OnInitTreeSubDataList(nullptr, nullptr, nullptr); }},
            {"columnMenuOpening", [&](C &c) { c.OnColumnMenu(nullptr, nullptr, menu); }},
        }));
}

TEST(Signals, OfTheTree)
{
    using C = TzuTree;
    TTreeDrag drag;
    TzuDataEntity_Tree *node = nullptr;
    ExpectHeard<C>({
        {"entityInserted", [&](C &c) { node = c.AddDataEntity(); }},
        {"contentChanged", [](C &c) { c.AddDataEntity(); }},
        {"entityLoaded", [](C &c) { c.OnLoadItem(nullptr, nullptr); }},
        {"entityExpanded", [](C &c) { c.FullExpand(); }},
        {"entityCollapsed", [&](C &c) { c.OnCollapsed(nullptr, node); }},
        {"currentEntityChanged", [&](C &c) { c.OnCurrentChanged(nullptr); }},
        {"topItemChanged", [](C &c) { c.OnTopItemChanged(nullptr); }},
        {"entityChanged", [&](C &) { node->DoInfoPush(); }},
        {"entitySelectionChanged", [&](C &) { node->SetSelected(true); }},
        {"entityVisibleChanged", [&](C &) { node->SetVisible(false); }},
        {"entityEditAsked", [&](C &) { (void)node->GetCanEdit(); }},
        {"entityEdited", [&](C &c) { c.OnValueChanged(nullptr, node); }},
        {"entitiesMoved", [](C &c) { c.OnMoved(nullptr, {}); }},
        {"dragStarted", [&](C &c) { c.OnStartDrag(nullptr, drag); }},
        {"draggedOver", [&](C &c) { c.OnDragOver(nullptr, drag); }},
        {"dropped", [&](C &c) { c.OnDragDrop(nullptr, drag); }},
        {"dragEnded", [&](C &c) { c.OnEndDrag(nullptr, drag); }},
        {"entityDeleted", [&](C &c) { c.RemoveDataEntity(node); }},
    });
}

TEST(Signals, OfTheSchedule)
{
    using C = TzuSchema;
    QDrag drag(qApp);
    TzuDataEntity_SchemaTime *time = nullptr;
    TzuDataEntity_SchemaColumn *column = nullptr;
    ExpectHeard<C>({
        {"columnInserted", [&](C &c) { column = c.AddColumn(); }},
        {"columnsChanged", [](C &c) { c.OnContentChanged_Column(nullptr, nullptr); }},
        {"columnChanged", [&](C &) { column->DoInfoPush(); }},
        {"columnSelectionChanged", [&](C &) { column->SetSelected(true); }},
        {"columnEditAsked", [&](C &) { (void)column->GetCanEdit(); }},
        {"timeInserted", [&](C &c) { time = c.AddSchemaTime(0); }},
        {"timesChanged", [](C &c) { c.AddSchemaTime(0); }},
        {"timeChanged", [&](C &) { time->DoInfoPush(); }},
        {"timeSelectionChanged", [&](C &) { time->SetSelected(true); }},
        {"timeEditAsked", [&](C &) { (void)time->GetCanEdit(); }},
        {"timeColumnChanged", [&](C &c) { c.OnSwitchCol(&c, time, 0, 1); }},
        {"timeCopyWanted", [&](C &c) { c.OnTimeCopy(&c, time, 0, 1, 2); }},
        {"timeEditWanted", [&](C &c) { c.OnEditDataEntity_SchemaTime(&c, time); }},
        {"selectedTimesChanged", [](C &c) { c.OnAfterSelectionChanged(&c); }},
        {"scalerChanged", [](C &c) { c.DateScaler().CallChange(); }},
        {"hintInfo", [&](C &c) { c.OnSchemaHintInfo(&c, time, 1, 2, 3, 4); }},
        {"userChangeBegun", [](C &c) { c.OnBeginUserChange(&c, {}); }},
        {"userChangeEnded", [](C &c) { c.OnEndUserChange(&c, {}, true); }},
        {"areaDoubleClicked", [](C &c) { c.OnSchemaDblClick(&c, nullptr); }},
        {"areaMousePressed", [](C &c) { c.OnSchemaMouseDown(&c, kLeft, {}, 1, 2); }},
        {"areaMouseMoved", [](C &c) { c.OnSchemaMouseMove(&c, {}, 1, 2); }},
        {"areaMouseReleased", [](C &c) { c.OnSchemaMouseUp(&c, kLeft, {}, 1, 2); }},
        {"areaDragStarted", [&](C &c) { c.OnSchemaStartDrag(&c, drag); }},
        {"areaDragEnded", [](C &c) { c.OnSchemaEndDrag(&c, Qt::CopyAction); }},
        {"areaDraggedOver",
         [](C &c) { WithDrop([&](auto &event) { c.OnSchemaDragOver(&c, event); }); }},
        {"areaDropped",
         [](C &c) { WithDrop([&](auto &event) { c.OnSchemaDragDrop(&c, event); }); }},
        {"headerClicked", [](C &c) { c.OnHeaderClick(&c, 0); }},
        {"headerDragStarted", [&](C &c) { c.OnHeaderStartDrag(&c, 0, drag); }},
        {"headerDragEnded", [](C &c) { c.OnHeaderEndDrag(&c, 0, Qt::CopyAction); }},
        {"headerDraggedOver",
         [](C &c) { WithDrop([&](auto &event) { c.OnHeaderDragOver(&c, 0, event); }); }},
        {"headerDropped",
         [](C &c) { WithDrop([&](auto &event) { c.OnHeaderDragDrop(&c, 0, event); }); }},
        {"timeDeleted", [&](C &c) { c.RemoveSchemaTime(time); }},
        {"columnDeleted", [&](C &c) { c.RemoveColumn(column); }},
    });
}

TEST(Signals, OfTheChart)
{
    using C = TzuGant;
    QDrag drag(qApp);
    TTreeDrag treeDrag;
    TGestureHint hint;
    TzuDataEntity_Tree *node = nullptr;
    TzuDataEntity_Spanbar *item = nullptr;
    TzuDataEntity_Link *link = nullptr;
    ExpectHeard<C>({
        {"rowAdded", [](C &c) { c.AddRootDataEntityTree("first"); }},
        {"nodesChanged", [](C &c) { c.AddRootDataEntityTree(); }},
        {"nodeInserted", [&](C &c) { node = c.AddRootDataEntityTree(); }},
        {"nodeChanged", [&](C &) { node->DoInfoPush(); }},
        {"nodeSelectionChanged", [&](C &) { node->SetSelected(true); }},
        {"nodeEditAsked", [&](C &) { (void)node->GetCanEdit(); }},
        {"activeRowChanged", [&](C &c) { c.SetUseGridNotTree(true); }},
        {"timeItemInserted", [&](C &c) { item = c.AddSpanbar(node, 0); }},
        {"timeItemsChanged", [&](C &c) { c.AddSpanbar(node, 0); }},
        {"timeItemChanged", [&](C &) { item->DoInfoPush(); }},
        {"timeItemSelectionChanged", [&](C &) { item->SetSelected(true); }},
        {"timeItemEditAsked", [&](C &) { (void)item->GetCanEdit(); }},
        {"timeItemEditWanted", [&](C &c) { c.OnEditDataEntity_Spanbar(&c, item); }},
        {"timeItemWanted", [&](C &c) { c.OnVirtualLoad_Spanbar(&c, item); }},
        {"timeItemMoveWanted", [&](C &c) { c.OnTimeChangeRow(&c, item, nullptr, nullptr, 1, 2); }},
        {"timeItemCopyWanted", [&](C &c) { c.OnTimeCopy(&c, item, nullptr, nullptr, 1, 2); }},
        {"timeItemSubRowChanged", [&](C &c) { c.OnCollisionDetected(&c, item, 2); }},
        {"selectedItemsChanged", [](C &c) { c.OnAfterSelectionChanged(&c); }},
        {"linkSelectionChanged",
         [&](C &c) {
             link = &c.AddLink();
             link->SetSelected(true);
         }},
        {"linkEditWanted", [&](C &c) { c.OnEditDataEntity_Link(&c, link); }},
        {"linkDrawn", [&](C &c) { c.OnDependencyAction(item, item); }},
        {"linkHintWanted", [&](C &c) { c.OnDependencyHint(&c, item, item, hint); }},
        {"hintInfo", [&](C &c) { c.OnHintInfo(item, 1, 2, 1); }},
        {"userChangeBegun", [](C &c) { c.OnBeginUserChange(&c, {}); }},
        {"userChangeEnded", [](C &c) { c.OnEndUserChange(&c, {}, true); }},
        {"treeDragStarted", [&](C &c) { c.Tree().OnStartDrag(&c.Tree(), treeDrag); }},
        {"treeDraggedOver", [&](C &c) { c.Tree().OnDragOver(&c.Tree(), treeDrag); }},
        {"treeDropped", [&](C &c) { c.Tree().OnDragDrop(&c.Tree(), treeDrag); }},
        {"areaClicked", [](C &c) { c.GantAreaMouseDown(kLeft, {}, 5, 5); }},
        {"areaMouseReleased", [](C &c) { c.GantAreaMouseUp(kLeft, {}, 5, 5); }},
        {"areaMousePressed", [](C &c) { c.GantAreaMouseDown(kLeft, {}, 5, 5); }},
        {"areaMouseMoved", [](C &c) { c.GantAreaMouseMove({}, 6, 5); }},
        {"areaRightClicked", [](C &c) { c.OnRightClickGantArea(&c, nullptr); }},
        {"areaDoubleClicked", [](C &c) { c.OnGADblClick(); }},
        {"areaDragStarted", [&](C &c) { c.OnGantAreaStartDrag(&c, drag); }},
        {"areaDragEnded", [](C &c) { c.OnGantAreaEndDrag(&c, Qt::CopyAction); }},
        {"areaDraggedOver",
         [](C &c) { WithDrop([&](auto &event) { c.OnGantAreaDragOver(&c, event); }); }},
        {"areaDropped",
         [](C &c) { WithDrop([&](auto &event) { c.OnGantAreaDragDrop(&c, event); }); }},
        {"scalerChanged", [](C &c) { c.DateScaler().CallChange(); }},
        {"splitterMoved", [](C &c) { c.Splitter().OnMoved(&c.Splitter()); }},
        {"alignNeeded", [](C &c) { c.OnAlignNeed(&c, 1, 2, 3); }},
        {"scrollbarRealigned", [](C &c) { c.OnRealignScrollbar(&c, 1, 2, 3, 4, true); }},
        {"resized", [](C &c) { c.OnResize(&c); }},
        {"gridTopLeftChanged", [](C &c) { c.Grid().OnTopLeftChanged(nullptr); }},
        {"gridColumnSorted", [](C &c) { c.Grid().OnColumnSort(nullptr, nullptr); }},
        {"gridRowWanted", [](C &c) { c.Grid().OnVirtualLoad(nullptr, nullptr, nullptr); }},
        {"gridRowUnloading", [](C &c) { c.Grid().OnVirtualUnLoad(nullptr, nullptr, nullptr); }},
        {"timeItemDeleted", [&](C &c) { c.RemoveSpanbar(item); }},
        {"nodeDeleted", [&](C &c) { c.Tree().RemoveDataEntity(node); }},
        {"rowRemoved",
         [](C &c) { c.Tree().RemoveDataEntity(c.GantRows().GetGantRow(0)->TreeNode()); }},
    });
}

TEST(Signals, ComeBehindTheHandlerWithItsLastArgumentsAsQtsOwn)
{
    TzuGant chart;
    std::vector<std::string> told;
    QObject::connect(&chart, &TzuGant::areaMousePressed, &chart,
                     [&](Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint at) {
                         EXPECT_EQ(button, Qt::RightButton);
                         EXPECT_EQ(modifiers, Qt::ShiftModifier | Qt::AltModifier);
                         EXPECT_EQ(at, QPoint(3, 4));
                         told.emplace_back("signal");
                     });
    chart.OnGantAreaMouseDown = [&](auto &&...) { told.emplace_back("handler"); };
    chart.OnGantAreaMouseDown(&chart, TMouseButton::mbRight, {true, false, true}, 3, 4);
    EXPECT_EQ(told, (std::vector<std::string>{"handler", "signal"}));

    TzuDataEntity_Spanbar *item = chart.AddSpanbar(chart.AddRootDataEntityTree(), 0);
    QObject::connect(&chart, &TzuGant::hintInfo, &chart,
                     [&](auto *shown, const QDateTime &start, const QDateTime &stop, double days) {
                         EXPECT_EQ(shown, item);
                         EXPECT_EQ(start, QDateTime({2026, 3, 2}, {6, 0}));
                         EXPECT_EQ(stop, QDateTime({2026, 3, 2}, {18, 0}));
                         EXPECT_EQ(days, 0.5);
                         told.clear();
                     });
    const TDateTime day = EncodeDate(2026, 3, 2);
    chart.OnHintInfo(item, day + 0.25, day + 0.75, 0.5);
    EXPECT_TRUE(told.empty());
}

TEST(Signals, AnswerWhereTheHandlerWouldThroughAnObject)
{
    TzuGrid grid;
    QObject::connect(&grid, &TzuGrid::editStopping, &grid,
                     [](TCellEdit *edit) { edit->Allow = edit->Text != "no"; });
    TCellEdit edit;
    edit.Text = "no";
    grid.OnEditStop(nullptr, edit);
    EXPECT_FALSE(edit.Allow);

    // Who listens counts as somebody who deals with it.
    TzuGant chart;
    EXPECT_FALSE(chart.OnEditDataEntity_Spanbar);
    const auto connection =
        QObject::connect(&chart, &TzuGant::timeItemEditWanted, &chart, [](auto *) {});
    EXPECT_TRUE(chart.OnEditDataEntity_Spanbar);
    QObject::disconnect(connection);
    EXPECT_FALSE(chart.OnEditDataEntity_Spanbar);
}

TEST(Signals, TellNothingOfWhatAHandlerHasReleased)
{
    int heard = 0;
    const auto count = [&heard] { ++heard; };
    auto grid = std::make_unique<TzuGrid>();
    grid->Columns().Add();
    TAxisContentItem *row = grid->AddRows(2);
    QObject::connect(grid.get(), &TzuGrid::rowResized, count);
    QObject::connect(grid.get(), &TzuGrid::editStopping, count);
    QObject::connect(grid.get(), &TzuGrid::focusCellChanged, count);
    const auto removeRow = [&](auto &&...) { grid->RootCell().Rows().ClearKeepFixedItems(); };
    grid->OnRowResized = removeRow;
    grid->OnRowResized(nullptr, row, 5);
    TCellEdit edit;
    edit.Row = grid->AddRows(1);
    grid->OnEditStop = removeRow;
    grid->OnEditStop(nullptr, edit);
    grid->OnFocusCellChanged = [&](auto &&...) { grid.reset(); };
    grid->OnFocusCellChanged(nullptr);
    EXPECT_EQ(heard, 0);

    auto tree = std::make_unique<TzuTree>();
    QObject::connect(tree.get(), &TzuTree::entityInserted, count);
    QObject::connect(tree.get(), &TzuTree::contentChanged, count);
    tree->OnInsertItem = [&](TObject *, TzuDataEntity *entity) {
        tree->RemoveDataEntity(static_cast<TzuDataEntity_Tree *>(entity));
    };
    tree->AddDataEntity();
    heard = 0;
    tree->OnContentChanged = [](auto &&...) { throw std::runtime_error("refused"); };
    EXPECT_THROW(tree->OnContentChanged(nullptr, nullptr), std::runtime_error);
    EXPECT_EQ(heard, 0);
}

} // namespace
} // namespace korvane::test
