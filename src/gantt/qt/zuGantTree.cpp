#include "gantt/qt/zuGantTree.h"

#include "foundation/zuDoLater.h"
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

void TGantTree::_InsertItem(TzuDataEntity_Tree *entity)
{
    TzuTree_ComBasic::_InsertItem(entity);
    m_gant.GantRows().AddRow(entity);
    m_gant.InvalidateRows();
}

void TGantTree::_DeleteItem(TzuDataEntity_Tree *entity)
{
    if (!Destroying()) {
        m_gant.GantRows().RemoveRow(entity);
    }
    TzuTree_ComBasic::_DeleteItem(entity);
    if (!Destroying()) {
        m_gant.InvalidateRows();
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
