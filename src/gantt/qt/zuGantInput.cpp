// How the chart's input rules reach the widgets.
#include "foundation/qt/zuConvert.h"
#include "gantt/qt/zuGantComBasic.h"

#include <QScrollBar>

namespace korvane {

namespace {

Qt::CursorShape ShapeOf(TGantCursor cursor)
{
    switch (cursor) {
    case TGantCursor::Resize:
        return Qt::SizeHorCursor;
    case TGantCursor::Move:
        return Qt::ClosedHandCursor;
    case TGantCursor::Copy:
        return Qt::DragCopyCursor;
    case TGantCursor::Link:
        return Qt::CrossCursor;
    case TGantCursor::Forbidden:
        return Qt::ForbiddenCursor;
    case TGantCursor::Area:
        break;
    }
    return Qt::ArrowCursor;
}

} // namespace

void TzuGant_ComBasic::SetCursorGantArea(const QCursor &cursor)
{
    m_areaCursor = cursor;
    if (m_shownCursor == TGantCursor::Area) {
        m_area->setCursor(cursor);
    }
}

void TzuGant_ComBasic::FocusArea()
{
    m_area->setFocus(Qt::MouseFocusReason);
}

void TzuGant_ComBasic::SetAreaCursor(TGantCursor cursor)
{
    if (cursor == m_shownCursor) {
        return;
    }
    m_shownCursor = cursor;
    m_area->setCursor(cursor == TGantCursor::Area ? m_areaCursor : QCursor(ShapeOf(cursor)));
}

void TzuGant_ComBasic::InvalidateOverlay(const TRect &rect)
{
    m_area->InvalidateOverlay(rect);
}

void TzuGant_ComBasic::RefreshAroundArea()
{
    RefreshOthers(m_area);
}

void TzuGant_ComBasic::ScrollRows(int rows)
{
    m_scrollBar->setValue(m_scrollBar->value() + rows);
}

void TzuGant_ComBasic::BringRowIntoView(TGantRow &row)
{
    if (row.TreeNode() != nullptr) {
        m_tree->MakeVisible(*row.TreeNode());
    }
}

TGantRow *TzuGant_ComBasic::CurrentRow()
{
    return GantRows().FindRowFromTreeNode(m_tree->GetCurrentDataEntity());
}

} // namespace korvane
