// How the tree's view is drawn, and where its rows are.
#include "foundation/qt/zuConvert.h"
#include "tree/qt/zuTreeComBasic.h"
#include "tree/qt/zuTreeDelegate.h"
#include "tree/qt/zuTreeModel.h"

#include <QApplication>
#include <QHoverEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace korvane {

// --- places --------------------------------------------------------------------------------------

/// The room behind the caption does not count.
bool TzuTree_ComBasic::IsOnCaption(const TTreeNode_zuSub &node, const QPoint &point) const
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const int width = m_delegate->CaptionWidth(option, Nodes().IndexOf(&node));
    const QRect item = ItemRect(node, RowRect(node));
    return isRightToLeft() ? point.x() > item.right() - width && point.x() <= item.right()
                           : point.x() >= item.left() && point.x() < item.left() + width;
}

/// Without RowSelect the room behind the caption belongs to it.
bool TzuTree_ComBasic::IsOnItem(const TTreeNode_zuSub &node, const QPoint &point) const
{
    const QRect item = ItemRect(node, RowRect(node));
    return point.x() >= item.left() && point.x() <= item.right();
}

/// Repaints the rows under the pointer, before and after it moved.
void TzuTree_ComBasic::FollowPointer(const QEvent &event)
{
    QPoint now = m_pointer;
    if (event.type() == QEvent::MouseMove) {
        now = static_cast<const QMouseEvent &>(event).position().toPoint();
    } else if (event.type() == QEvent::Leave) {
        now = {-1, -1};
    }
    if (now == m_pointer) {
        return;
    }
    const TTreeNode_zuSub *before = m_hotTrack ? NodeAtPoint(m_pointer) : nullptr;
    m_pointer = now;
    const TTreeNode_zuSub *after = m_hotTrack ? NodeAtPoint(m_pointer) : nullptr;
    if (before != after) {
        for (const TTreeNode_zuSub *node : {before, after}) {
            if (node != nullptr) {
                RepaintRow(*node);
            }
        }
    }
}

// --- drawing -------------------------------------------------------------------------------------

void TzuTree_ComBasic::initViewItemOption(QStyleOptionViewItem *option) const
{
    TCustomTreeView::initViewItemOption(option);
    option->showDecorationSelected = m_rowSelect;
}

bool TzuTree_ComBasic::ShowsFocus() const
{
    const QWidget *focus = QApplication::focusWidget();
    return hasFocus() || (focus != nullptr && isAncestorOf(focus));
}

TTreeItemLook TzuTree_ComBasic::LookOf(const TTreeNode_zuSub &node, const QModelIndex &index) const
{
    TTreeItemLook look;
    TzuDataEntity_Tree *entity = node.Data();
    look.Hot = m_pointer.x() >= 0 && isEnabled() && NodeAtPoint(m_pointer) == &node;
    if (entity == nullptr) {
        return look;
    }
    look.Selected = entity->GetSelected() && (!m_hideSelection || ShowsFocus());
    look.Focused = index == currentIndex() && ShowsFocus();
    look.ImageIndex = entity->GetSelected() && entity->GetSelectedIndex() >= 0
                          ? entity->GetSelectedIndex()
                          : entity->GetImageIndex();
    look.Style.Underline = look.Hot && m_hotTrack;
    // Drawing is constant for the view, but not for what the application hears.
    const_cast<TzuTree_ComBasic *>(this)->zuCustomDrawItem(*entity, look);
    return look;
}

void TzuTree_ComBasic::zuCustomDrawItem(TzuDataEntity_Tree &entity, TTreeItemLook &look)
{
    OnCustomDrawItem(this, &entity, look);
}

namespace {

/// Where a palette knows no other colour for a selection without focus, it becomes pale.
void MuteSelection(QPalette &palette)
{
    const QColor active = palette.color(QPalette::Active, QPalette::Highlight);
    palette.setCurrentColorGroup(QPalette::Inactive);
    if (palette.color(QPalette::Highlight) != active) {
        return;
    }
    constexpr float kTextShare = 0.16F;
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    const auto mixed = [](float of, float with) { return of + (with - of) * kTextShare; };
    palette.setColor(QPalette::Inactive, QPalette::Highlight,
                     QColor::fromRgbF(mixed(base.redF(), text.redF()),
                                      mixed(base.greenF(), text.greenF()),
                                      mixed(base.blueF(), text.blueF())));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, text);
}

} // namespace

void TzuTree_ComBasic::drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                               const QModelIndex &index) const
{
    const TTreeNode_zuSub *node = Nodes().NodeAt(index);
    if (node == nullptr) {
        return;
    }
    const unsigned structure = m_structure;
    const TTreeItemLook look = LookOf(*node, index);
    if (structure != m_structure) {
        return; // a handler changed the tree: all is painted again
    }
    QStyleOptionViewItem item = option;
    item.state.setFlag(QStyle::State_Selected, look.Selected);
    item.state.setFlag(QStyle::State_MouseOver, look.Hot && m_hotTrack);
    item.state.setFlag(QStyle::State_HasFocus, false);
    item.state.setFlag(QStyle::State_Active, ShowsFocus() && isActiveWindow());
    if (isEnabled() && !item.state.testFlag(QStyle::State_Active)) {
        MuteSelection(item.palette);
    }
    const QRect row = option.rect;
    if (look.BackColor) {
        painter->fillRect(row, ToQt(*look.BackColor, item.palette));
    }
    if (m_rowSelect) {
        style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &item, painter, this);
    }
    const QRect itemRect = ItemRect(*node, row);
    const QRect branches =
        isRightToLeft()
            ? QRect(itemRect.right() + 1, row.top(), row.right() - itemRect.right(), row.height())
            : QRect(row.left(), row.top(), itemRect.left() - row.left(), row.height());
    if (branches.width() > 0) {
        drawBranches(painter, branches, index);
    }
    item.rect = itemRect;
    item.state.setFlag(QStyle::State_HasFocus, look.Focused);
    m_delegate->Draw(*painter, item, index, look);
    const QMenu *menu = m_popupMenu;
    if (node->Data() != nullptr && node->Data() == m_popupEntity && menu != nullptr
        && menu->isVisible()) {
        painter->setPen(item.palette.color(QPalette::Highlight));
        painter->drawRect((m_rowSelect ? row : itemRect).adjusted(0, 0, -1, -1));
    }
}

void TzuTree_ComBasic::drawBranches(QPainter *painter, const QRect &rect,
                                    const QModelIndex &index) const
{
    if (m_showLines) {
        DrawLines(*painter, rect, index);
    }
    if (m_showButtons) {
        TCustomTreeView::drawBranches(painter, rect, index);
    }
}

/// Dotted lines from each node to its parent and to the next sibling, one column per level.
void TzuTree_ComBasic::DrawLines(QPainter &painter, const QRect &rect,
                                 const QModelIndex &index) const
{
    const auto hasNext = [](const TTreeNode_zuSub &node) {
        return node.Index() + 1 < node.Parent()->ChildCount();
    };
    const TTreeNode_zuSub *node = Nodes().NodeAt(index);
    if (node == nullptr || indentation() <= 0) {
        return;
    }
    QColor color = palette().color(QPalette::Text);
    color.setAlphaF(0.4F);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(color, 1, Qt::DotLine));
    int x = rect.right() + 1 - indentation() / 2;
    const int middle = rect.center().y();
    painter.drawLine(x, middle, rect.right(), middle);
    const bool isFirstRoot = node->Level() == 0 && node->Index() == 0;
    painter.drawLine(x, isFirstRoot ? middle : rect.top(), x,
                     hasNext(*node) ? rect.bottom() : middle);
    for (node = node->Parent(); node->Parent() != nullptr; node = node->Parent()) {
        x -= indentation();
        if (hasNext(*node)) {
            painter.drawLine(x, rect.top(), x, rect.bottom());
        }
    }
    painter.restore();
}

} // namespace korvane
