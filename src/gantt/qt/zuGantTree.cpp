#include "gantt/qt/zuGantTree.h"

#include "foundation/zuDoLater.h"
#include "foundation/zuLifeWatch.h"
#include "gantt/qt/zuGantComBasic.h"

#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWheelEvent>

namespace korvane {

TGantTree::TGantTree(TzuGant_ComBasic &gant, QWidget *parent)
    : TzuTree_ComBasic(parent)
    , m_gant(gant)
{
    SetLoadOnDemand(false);
    // The area beside the tree has no horizontal bar either, so that both show the same lines.
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

TGantTree::~TGantTree()
{
    TDoLater::NeverMind(TDoLaterCall::Bind<&TGantTree::UpdateExternalScroll_Deferred>(this));
    DestroyContent();
}

void TGantTree::Scroll(int delta)
{
    if (delta == 0) {
        return;
    }
    TzuDataEntity_Tree *current = GetCurrentDataEntity();
    if (current == nullptr) {
        current = GetTopItem();
    }
    TzuDataEntity_Tree *neighbour = delta < 0 ? GetPrevVisible(current) : GetNextVisible(current);
    if (neighbour != nullptr) {
        current = neighbour;
    }
    SetCurrentDataEntity(current);
}

void TGantTree::SetVertScrollExternal(QScrollBar *bar)
{
    if (m_externalBar != nullptr) {
        m_externalBar->disconnect(this);
    }
    m_externalBar = bar;
    if (bar != nullptr) {
        connect(bar, &QScrollBar::valueChanged, this, &TGantTree::OnExternalScroll);
    }
}

void TGantTree::ExternalScrollOutOfDate()
{
    TDoLater::DoLater(TDoLaterCall::Bind<&TGantTree::UpdateExternalScroll_Deferred>(this));
}

void TGantTree::UpdateExternalScroll_Deferred(TObject * /*parameter*/)
{
    UpdateExternalScroll();
}

void TGantTree::UpdateExternalScroll()
{
    const TScrollInfo info = ScrollInfo();
    if (info.Min != m_seen.Min || info.Max != m_seen.Max || info.Position != m_seen.Position) {
        m_seen = info;
        m_gant.HandleTreeAlign();
        m_gant.RefreshOthers(this);
    }
    if (m_handlingExternalBar || m_externalBar == nullptr) {
        return;
    }
    const QScopedValueRollback handling(m_handlingExternalBar, true);
    m_externalBar->setEnabled(info.Max > info.Min && info.Page > 0);
    m_externalBar->setRange(info.Min, info.Max);
    m_externalBar->setPageStep(info.Page);
    m_externalBar->setValue(info.Position);
    m_gant.RealignScrollbar(info);
}

void TGantTree::OnExternalScroll(int position)
{
    if (m_handlingExternalBar || position == verticalScrollBar()->value()) {
        return;
    }
    const QScopedValueRollback handling(m_handlingExternalBar, true);
    verticalScrollBar()->setValue(position);
}

void TGantTree::LinesMoved()
{
    // At once, so that tree and area paint the same lines in the same pass.
    m_gant.InvalidateRows();
    ExternalScrollOutOfDate();
}

void TGantTree::RefreshSelection()
{
    if (Destroying()) {
        return;
    }
    TzuDataEntity_Tree *current = GetCurrentDataEntity();
    TGantRow *row = m_gant.GantRows().FindRowFromTreeNode(current);
    if (current != m_seenCurrent || row != m_seenRow) {
        m_seenCurrent = current;
        m_seenRow = row;
        m_gant.ChangeInTree();
    }
}

void TGantTree::DoCurrentChanged()
{
    const QPointer<TGantTree> self(this);
    TzuTree_ComBasic::DoCurrentChanged();
    if (!self.isNull()) {
        RefreshSelection();
    }
}

void TGantTree::_InsertItem(TzuDataEntity_Tree *entity)
{
    const QPointer<TGantTree> self(this);
    const TzuLifeWatch lives(*entity);
    TzuTree_ComBasic::_InsertItem(entity);
    if (self.isNull() || !lives) {
        return;
    }
    m_gant.GantRows().AddRow(entity);
    if (self.isNull() || !lives) {
        return;
    }
    m_gant.InvalidateRows();
    m_gant.OnInsertItem_Tree(this, entity);
}

void TGantTree::_DeleteItem(TzuDataEntity_Tree *entity)
{
    if (Destroying()) {
        TzuTree_ComBasic::_DeleteItem(entity);
        return;
    }
    const QPointer<TGantTree> self(this);
    const TzuLifeWatch lives(*entity);
    m_gant.OnDeleteItem_Tree(this, entity);
    if (self.isNull() || !lives) {
        return;
    }
    m_gant.GantRows().RemoveRow(entity);
    if (entity == m_seenCurrent) {
        // The next current node may come to lie at the same address.
        m_seenRow = nullptr;
    }
    TzuTree_ComBasic::_DeleteItem(entity);
    if (!self.isNull()) {
        m_gant.InvalidateRows();
    }
}

void TGantTree::_OnContentChanged(TzuDataList_Tree *list)
{
    const QPointer<TGantTree> self(this);
    TzuTree_ComBasic::_OnContentChanged(list);
    if (!self.isNull() && !Destroying()) {
        m_gant.OnContentChanged_Tree(this, list);
    }
}

void TGantTree::_OnSelectionChanged(TzuDataList *list, TzuDataEntity_Tree *entity)
{
    const QPointer<TGantTree> self(this);
    const TzuLifeWatch lives(*entity);
    TzuTree_ComBasic::_OnSelectionChanged(list, entity);
    if (!self.isNull() && !Destroying() && lives) {
        m_gant.OnSelectionChanged_Tree(this, list, entity);
    }
}

void TGantTree::_OnInfoPush(TzuDataEntity_Tree *entity)
{
    const QPointer<TGantTree> self(this);
    const TzuLifeWatch lives(*entity);
    TzuTree_ComBasic::_OnInfoPush(entity);
    if (!self.isNull() && !Destroying() && lives) {
        m_gant.OnValueChanged_Tree(this, entity);
    }
    if (!self.isNull() && !Destroying() && lives) {
        m_gant.OnChangeDataEntity_Tree(this, entity);
    }
}

void TGantTree::_OnBeforeCanEditItem(TzuDataEntity_Tree *entity)
{
    const QPointer<TGantTree> self(this);
    const TzuLifeWatch lives(*entity);
    TzuTree_ComBasic::_OnBeforeCanEditItem(entity);
    if (!self.isNull() && !Destroying() && lives) {
        m_gant.OnBeforeCanEditItem_Tree(this, entity);
    }
}

void TGantTree::_OnVisibleChanged(TzuDataEntity_Tree *entity)
{
    TzuTree_ComBasic::_OnVisibleChanged(entity);
    m_gant.InvalidateRows();
}

void TGantTree::Expand(TzuDataEntity_Tree *entity)
{
    TzuTree_ComBasic::Expand(entity);
    m_gant.RefreshOthers(this);
}

void TGantTree::Collapse(TzuDataEntity_Tree *entity)
{
    TzuTree_ComBasic::Collapse(entity);
    m_gant.RefreshOthers(this);
}

void TGantTree::AfterUpdateDisplay()
{
    TzuTree_ComBasic::AfterUpdateDisplay();
    LinesMoved();
}

void TGantTree::ScrollInfoChanged()
{
    TzuTree_ComBasic::ScrollInfoChanged();
    LinesMoved();
}

void TGantTree::wheelEvent(QWheelEvent *event)
{
    Scroll(-event->angleDelta().y());
    event->accept();
}

} // namespace korvane
