#include "gantt/qt/zuGant.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuSignalTiesImpl.h"

#include <QDragMoveEvent>

namespace korvane {

TzuGant::TzuGant(QWidget *parent, TConstruction construction)
    : TzuGant_ComBasic(parent, construction)
{
    TieItems();
    TieRows();
    TieArea();
    TieFrame();
}

QColor TzuGant::ColorTree() const
{
    return ToQt(Tree().Color(), palette());
}

void TzuGant::SetColorTree(const QColor &value)
{
    Tree().SetColor(FromQt(value));
}

QFont TzuGant::FontTree() const
{
    return ToQt(Tree().Font());
}

void TzuGant::SetFontTree(const QFont &value)
{
    Tree().SetFont(FromQt(value, Tree().Font()));
}

QDateTime TzuGant::StartDateTime() const
{
    return ToQDateTime(Start());
}

void TzuGant::SetStartDateTime(const QDateTime &start)
{
    SetStart(FromQt(start));
}

QDateTime TzuGant::StopDateTime() const
{
    return ToQDateTime(Stop());
}

void TzuGant::SetStopDateTime(const QDateTime &stop)
{
    SetStop(FromQt(stop));
}

QColor TzuGant::BackColor() const
{
    return ToQt(GantBackColor(), palette());
}

void TzuGant::SetBackColor(const QColor &color)
{
    SetGantBackColor(FromQt(color));
}

QColor TzuGant::PyjamasColor() const
{
    return ToQt(GantPyjamasColor(), palette());
}

void TzuGant::SetPyjamasColor(const QColor &color)
{
    SetGantPyjamasColor(FromQt(color));
}

QColor TzuGant::LinkColor() const
{
    return ToQt(DefaultLinkColor(), palette());
}

void TzuGant::SetLinkColor(const QColor &color)
{
    SetDefaultLinkColor(FromQt(color));
}

QFont TzuGant::ItemFont(int style) const
{
    return ToQt(FontTimeItemStyle(style));
}

void TzuGant::SetItemFont(int style, const QFont &font)
{
    SetFontTimeItemStyle(style, FromQt(font, FontTimeItemStyle(style)));
}

QWidget &TzuGant::WidgetOf(TPart part)
{
    switch (part) {
    case AreaPart:
        return GantArea();
    case AxisPart:
        return DateScaler();
    default:
        return *this;
    }
}

void TzuGant::SetMenu(TPart part, QMenu *menu)
{
    QPointer<QMenu> &slot = m_menus.at(part);
    if (menu == slot) {
        return;
    }
    QWidget &widget = WidgetOf(part);
    if (slot.isNull()) {
        connect(&widget, &QWidget::customContextMenuRequested, this,
                [this, part](QPoint at) { PopUp(part, at); });
    }
    if (menu == nullptr) {
        disconnect(&widget, &QWidget::customContextMenuRequested, this, nullptr);
    }
    slot = menu;
    widget.setContextMenuPolicy(menu != nullptr ? Qt::CustomContextMenu : Qt::DefaultContextMenu);
}

void TzuGant::PopUp(TPart part, QPoint at)
{
    if (QMenu *menu = m_menus.at(part)) {
        menu->popup(WidgetOf(part).mapToGlobal(at));
    }
}

// --- signals -------------------------------------------------------------------------------------

void TzuGant::TieItems()
{
    const auto tie = [this](auto &event, auto signal) { m_signals.Tie(event, *this, signal); };
    tie(OnContentChanged_Spanbar, &TzuGant::timeItemsChanged);
    tie(OnInsertItem_Spanbar, &TzuGant::timeItemInserted);
    tie(OnDeleteItem_Spanbar, &TzuGant::timeItemDeleted);
    tie(OnValueChanged_Spanbar, &TzuGant::timeItemChanged);
    tie(OnSelectionChanged_Spanbar, &TzuGant::timeItemSelectionChanged);
    tie(OnBeforeCanEditItem_Spanbar, &TzuGant::timeItemEditAsked);
    tie(OnEditDataEntity_Spanbar, &TzuGant::timeItemEditWanted);
    tie(OnVirtualLoad_Spanbar, &TzuGant::timeItemWanted);
    tie(OnTimeChangeRow, &TzuGant::timeItemMoveWanted);
    tie(OnTimeCopy, &TzuGant::timeItemCopyWanted);
    tie(OnCollisionDetected, &TzuGant::timeItemSubRowChanged);
    tie(OnAfterSelectionChanged, &TzuGant::selectedItemsChanged);
    tie(OnSelectionChanged_Link, &TzuGant::linkSelectionChanged);
    tie(OnEditDataEntity_Link, &TzuGant::linkEditWanted);
    tie(OnDependencyAction, &TzuGant::linkDrawn);
    tie(OnDependencyHint, &TzuGant::linkHintWanted);
    tie(OnHintInfo, &TzuGant::hintInfo);
    tie(OnBeginUserChange, &TzuGant::userChangeBegun);
    tie(OnEndUserChange, &TzuGant::userChangeEnded);
}

void TzuGant::TieRows()
{
    const auto tie = [this](auto &event, auto signal) { m_signals.Tie(event, *this, signal); };
    tie(OnAfterAddGantRow, &TzuGant::rowAdded);
    tie(OnBeforeFreeGantRow, &TzuGant::rowRemoved);
    tie(OnContentChanged_Tree, &TzuGant::nodesChanged);
    tie(OnInsertItem_Tree, &TzuGant::nodeInserted);
    tie(OnDeleteItem_Tree, &TzuGant::nodeDeleted);
    tie(OnChangeDataEntity_Tree, &TzuGant::nodeChanged);
    tie(OnSelectionChanged_Tree, &TzuGant::nodeSelectionChanged);
    tie(OnBeforeCanEditItem_Tree, &TzuGant::nodeEditAsked);
    tie(OnTreeStartDrag, &TzuGant::treeDragStarted);
    tie(OnTreeDragOver, &TzuGant::treeDraggedOver);
    tie(OnTreeDragDrop, &TzuGant::treeDropped);
}

void TzuGant::TieArea()
{
    const auto tie = [this](auto &event, auto signal) { m_signals.Tie(event, *this, signal); };
    tie(OnClickGantArea, &TzuGant::areaClicked);
    tie(OnRightClickGantArea, &TzuGant::areaRightClicked);
    tie(OnDblClickGantArea, &TzuGant::areaDoubleClicked);
    tie(OnGantAreaMouseDown, &TzuGant::areaMousePressed);
    tie(OnGantAreaMouseMove, &TzuGant::areaMouseMoved);
    tie(OnGantAreaMouseUp, &TzuGant::areaMouseReleased);
    tie(OnGantAreaStartDrag, &TzuGant::areaDragStarted);
    tie(OnGantAreaEndDrag, &TzuGant::areaDragEnded);
    tie(OnGantAreaDragOver, &TzuGant::areaDraggedOver);
    tie(OnGantAreaDragDrop, &TzuGant::areaDropped);
}

void TzuGant::TieFrame()
{
    const auto tie = [this](auto &event, auto signal) { m_signals.Tie(event, *this, signal); };
    tie(OnScalerChange, &TzuGant::scalerChanged);
    tie(OnAlignNeed, &TzuGant::alignNeeded);
    tie(OnRealignScrollbar, &TzuGant::scrollbarRealigned);
    tie(OnResize, &TzuGant::resized);
    tie(OnGridTopLeftChanged, &TzuGant::gridTopLeftChanged);
    tie(OnColumnSort_Grid, &TzuGant::gridColumnSorted);
    tie(OnVirtualLoad_Grid, &TzuGant::gridRowWanted);
    tie(OnVirtualUnLoad_Grid, &TzuGant::gridRowUnloading);
}

void TzuGant::ChangeInTree()
{
    const QPointer<TzuGant> self(this);
    TzuGant_ComBasic::ChangeInTree();
    if (!self.isNull()) {
        Q_EMIT activeRowChanged(GetActiveGantRow());
    }
}

void TzuGant::SplitterMoved(TzuSplitter *sender)
{
    TzuGant_ComBasic::SplitterMoved(sender);
    Q_EMIT splitterMoved(TreeWidth());
}

} // namespace korvane
