// How the chart's input rules reach the widgets.
#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuGraphStuff.h"
#include "gantt/qt/zuGantAccessible.h"
#include "gantt/qt/zuGantAreaInput.h"
#include "gantt/qt/zuGantAreaKeys.h"
#include "gantt/qt/zuGantComBasic.h"

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

bool TzuGant_ComBasic::AreaHasFocus() const
{
    return m_area->hasFocus() && m_printView == nullptr && !m_area->GetIsPrinting()
           && m_keys->FocusByKeyboard();
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

TRect TzuGant_ComBasic::ChartRect() const
{
    return FromQt(rect().translated(-m_area->mapTo(this, QPoint())));
}

void TzuGant_ComBasic::SetGestureTimer(bool on)
{
    m_input->SetTimer(on);
}

void TzuGant_ComBasic::ShowGestureHint(const TGestureHint &hint, TPoint at)
{
    m_hintWindow->ShowMoveInfo(ToQt(hint[0]), ToQt(hint[1]), ToQt(hint[2]),
                               m_area->mapToGlobal(ToQt(at)));
}

void TzuGant_ComBasic::HideGestureHint()
{
    m_hintWindow->DoHide();
}

void TzuGant_ComBasic::StartItemDrag(const TItemDragData &items)
{
    m_input->StartItemDrag(items);
}

void TzuGant_ComBasic::ActiveItemChanged()
{
    TellActiveItem(*this);
}

void TzuGant_ComBasic::SelectionChanged()
{
    TellSelection(*this);
}

} // namespace korvane
