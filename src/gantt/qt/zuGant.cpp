#include "gantt/qt/zuGant.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuSignalTiesImpl.h"

#include <QDragMoveEvent>
#include <QPointer>

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

void TzuGant::SetPopupMenu(QMenu *menu)
{
    m_menus.at(WholeChart).SetMenu(menu);
    MenuChanged(WholeChart);
}

void TzuGant::SetPopupMenuGantArea(QMenu *menu)
{
    m_menus.at(AreaPart).SetMenu(menu);
    MenuChanged(AreaPart);
}

void TzuGant::SetPopupMenuScaler(QMenu *menu)
{
    m_menus.at(AxisPart).SetMenu(menu);
    MenuChanged(AxisPart);
}

void TzuGant::SetPopupMenuNames(const QByteArray &names)
{
    m_menus.at(WholeChart).SetNames(names);
    MenuChanged(WholeChart);
}

void TzuGant::SetPopupMenuGantAreaNames(const QByteArray &names)
{
    m_menus.at(AreaPart).SetNames(names);
    MenuChanged(AreaPart);
}

void TzuGant::SetPopupMenuScalerNames(const QByteArray &names)
{
    m_menus.at(AxisPart).SetNames(names);
    MenuChanged(AxisPart);
}

void TzuGant::MenuChanged(TPart part)
{
    QWidget &widget = WidgetOf(part);
    disconnect(&widget, &QWidget::customContextMenuRequested, this, nullptr);
    const bool isSet = m_menus.at(part).IsSet();
    if (isSet) {
        connect(&widget, &QWidget::customContextMenuRequested, this,
                [this, part](QPoint at) { PopUp(part, at); });
    }
    widget.setContextMenuPolicy(isSet ? Qt::CustomContextMenu : Qt::DefaultContextMenu);
}

void TzuGant::PopUp(TPart part, QPoint at)
{
    if (QMenu *menu = m_menus.at(part).Menu(*this)) {
        menu->popup(WidgetOf(part).mapToGlobal(at));
    }
}

void TzuGant::SetImageListText(const QByteArray &text)
{
    const bool shown = m_images.Text() != text;
    m_images.SetText(text);
    if (shown) {
        SetImageList(nullptr); // the list is the same object
        SetImageList(m_images.List());
        RePaint();
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
