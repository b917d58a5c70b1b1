#include "tree/qt/zuCustomTreeView.h"

#include "tree/qt/zuTreeModel.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>

#include <algorithm>
#include <cstdlib>

namespace korvane {

namespace {

bool HasNextSibling(const TTreeNode_zuSub &node)
{
    return node.Index() + 1 < node.Parent()->ChildCount();
}

} // namespace

TCustomTreeView::TCustomTreeView(QWidget *parent)
    : QAbstractItemView(parent)
    , m_nodes(new TTreeNodeModel(this))
{
    m_indentation = style()->pixelMetric(QStyle::PM_TreeViewIndentation, nullptr, this);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QAbstractItemView::setModel(m_nodes);
}

// --- rows ----------------------------------------------------------------------------------------

int TCustomTreeView::RowCount() const
{
    return m_nodes->Root() != nullptr ? m_nodes->Root()->RowCount() - 1 : 0;
}

TTreeNode_zuSub *TCustomTreeView::NodeAtRow(int row) const
{
    return row >= 0 && row < RowCount() ? m_nodes->Root()->NodeAtRow(row) : nullptr;
}

int TCustomTreeView::RowOf(const TTreeNode_zuSub &node) const
{
    return node.Row();
}

int TCustomTreeView::RowOfIndex(const QModelIndex &index) const
{
    const TTreeNode_zuSub *node = m_nodes->NodeAt(index);
    return node != nullptr ? RowOf(*node) : -1;
}

QModelIndex TCustomTreeView::IndexOfRow(int row) const
{
    return m_nodes->IndexOf(NodeAtRow(row));
}

int TCustomTreeView::RowHeight() const
{
    if (m_rowHeight > 0) {
        return m_rowHeight;
    }
    if (m_defaultRowHeight == 0) {
        m_defaultRowHeight = DefaultRowHeight();
    }
    return m_defaultRowHeight;
}

void TCustomTreeView::SetRowHeight(int height)
{
    if (m_rowHeight != std::max(height, 0)) {
        m_rowHeight = std::max(height, 0);
        RowsChanged();
    }
}

void TCustomTreeView::setIndentation(int pixels)
{
    if (m_indentation != pixels) {
        m_indentation = pixels;
        RowsChanged();
    }
}

void TCustomTreeView::setRootIsDecorated(bool decorated)
{
    if (m_rootIsDecorated != decorated) {
        m_rootIsDecorated = decorated;
        RowsChanged();
    }
}

int TCustomTreeView::PageRows() const
{
    return std::max(1, viewport()->height() / RowHeight());
}

int TCustomTreeView::LastTopRow() const
{
    return std::max(0, RowCount() - PageRows());
}

int TCustomTreeView::TopRow() const
{
    return std::clamp(verticalScrollBar()->value(), 0, LastTopRow());
}

void TCustomTreeView::ScrollToRow(int row)
{
    updateGeometries();
    verticalScrollBar()->setValue(row);
}

void TCustomTreeView::RowsChanged()
{
    updateGeometries();
    viewport()->update();
}

void TCustomTreeView::updateGeometries()
{
    QScrollBar &bar = *verticalScrollBar();
    bar.setSingleStep(1);
    bar.setPageStep(PageRows());
    bar.setRange(0, LastTopRow());
    QAbstractItemView::updateGeometries();
}

void TCustomTreeView::scrollContentsBy(int /*dx*/, int dy)
{
    if (std::abs(dy) < PageRows()) {
        viewport()->scroll(0, dy * RowHeight()); // only what comes into view is drawn
    } else {
        viewport()->update();
    }
    updateEditorGeometries();
}

// --- places --------------------------------------------------------------------------------------

TTreeNode_zuSub *TCustomTreeView::NodeAtPoint(const QPoint &point) const
{
    return point.y() >= 0 && point.y() < viewport()->height()
               ? NodeAtRow(TopRow() + point.y() / RowHeight())
               : nullptr;
}

QRect TCustomTreeView::RowRect(const TTreeNode_zuSub &node) const
{
    // Rows far away end beyond any view.
    const int far = viewport()->height() / RowHeight() + 2;
    const int fromTop = std::clamp(RowOf(node) - TopRow(), -far, far);
    return {0, fromTop * RowHeight(), viewport()->width(), RowHeight()};
}

QRect TCustomTreeView::ItemRect(const TTreeNode_zuSub &node, const QRect &row) const
{
    const int levels = node.Level() + (m_rootIsDecorated ? 1 : 0);
    const int left = levels * m_indentation;
    const QRect item(left, row.top(), std::max(viewport()->width() - left, 0), row.height());
    return isRightToLeft() ? QStyle::visualRect(layoutDirection(), row, item) : item;
}

void TCustomTreeView::RepaintRow(const TTreeNode_zuSub &node)
{
    if (RowOf(node) >= 0) {
        viewport()->update(RowRect(node));
    }
}

QRect TCustomTreeView::visualRect(const QModelIndex &index) const
{
    const TTreeNode_zuSub *node = m_nodes->NodeAt(index);
    return node != nullptr && node->IsShown() ? ItemRect(*node, RowRect(*node)) : QRect();
}

QModelIndex TCustomTreeView::indexAt(const QPoint &point) const
{
    return m_nodes->IndexOf(NodeAtPoint(point));
}

void TCustomTreeView::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    const int row = RowOfIndex(index);
    if (row < 0) {
        return;
    }
    const int fromTop = row - TopRow();
    if (hint == PositionAtTop || (hint == EnsureVisible && fromTop < 0)) {
        ScrollToRow(row);
    } else if (hint == PositionAtBottom || (hint == EnsureVisible && fromTop >= PageRows())) {
        ScrollToRow(row - PageRows() + 1);
    } else if (hint == PositionAtCenter) {
        ScrollToRow(row - PageRows() / 2);
    }
}

QModelIndex TCustomTreeView::indexAbove(const QModelIndex &index) const
{
    return IndexOfRow(RowOfIndex(index) - 1);
}

QModelIndex TCustomTreeView::indexBelow(const QModelIndex &index) const
{
    const int row = RowOfIndex(index);
    return row >= 0 ? IndexOfRow(row + 1) : QModelIndex();
}

QModelIndex TCustomTreeView::moveCursor(CursorAction action, Qt::KeyboardModifiers /*modifiers*/)
{
    const int current = RowOfIndex(currentIndex());
    const auto to = [this](int row) { return IndexOfRow(std::clamp(row, 0, RowCount() - 1)); };
    switch (action) {
    case MoveUp:
    case MovePrevious:
        return to(current - 1);
    case MoveDown:
    case MoveNext:
        return to(current + 1);
    case MovePageUp:
        return to(current - PageRows());
    case MovePageDown:
        return to(current + PageRows());
    case MoveHome:
        return to(0);
    case MoveEnd:
        return to(RowCount() - 1);
    default:
        return currentIndex();
    }
}

void TCustomTreeView::setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command)
{
    selectionModel()->select(indexAt(rect.topLeft()), command);
}

QRegion TCustomTreeView::visualRegionForSelection(const QItemSelection &selection) const
{
    QRegion region;
    for (int row = TopRow(); row <= TopRow() + PageRows(); ++row) {
        const TTreeNode_zuSub *node = NodeAtRow(row);
        if (node != nullptr && selection.contains(m_nodes->IndexOf(node))) {
            region += RowRect(*node);
        }
    }
    return region;
}

// --- expanding -----------------------------------------------------------------------------------

bool TCustomTreeView::isExpanded(const QModelIndex &index) const
{
    const TTreeNode_zuSub *node = m_nodes->NodeAt(index);
    return node != nullptr && node->Expanded() && node->ChildCount() > 0;
}

void TCustomTreeView::SetExpanded(const QModelIndex &index, bool expanded)
{
    TTreeNode_zuSub *node = m_nodes->NodeAt(index);
    if (node != nullptr && node->ChildCount() > 0 && node->Expanded() != expanded) {
        ToggleNode(*node, expanded);
    }
}

void TCustomTreeView::expand(const QModelIndex &index)
{
    SetExpanded(index, true);
}

void TCustomTreeView::collapse(const QModelIndex &index)
{
    SetExpanded(index, false);
}

/// The node whose button, or the room for it, is at a point.
TTreeNode_zuSub *TCustomTreeView::ButtonAt(const QPoint &point) const
{
    TTreeNode_zuSub *node = NodeAtPoint(point);
    if (node == nullptr || node->ChildCount() == 0 || (node->Level() == 0 && !m_rootIsDecorated)) {
        return nullptr;
    }
    const QRect item = ItemRect(*node, RowRect(*node));
    const int before = isRightToLeft() ? point.x() - item.right() - 1 : item.left() - 1 - point.x();
    return before >= 0 && before < m_indentation ? node : nullptr;
}

/// Whether the event is the one by which the style presses buttons, on a button.
bool TCustomTreeView::ToggleAt(const QMouseEvent &event)
{
    TTreeNode_zuSub *node = ButtonAt(event.position().toPoint());
    const bool again = event.type() == QEvent::MouseButtonDblClick;
    const int pressed =
        style()->styleHint(QStyle::SH_ListViewExpand_SelectMouseType, nullptr, this);
    const auto type = again ? QEvent::MouseButtonPress : event.type();
    if (node == nullptr || event.button() != Qt::LeftButton || type != pressed) {
        return false;
    }
    ToggleNode(*node, !node->Expanded());
    return true;
}

void TCustomTreeView::mousePressEvent(QMouseEvent *event)
{
    if (ButtonAt(event->position().toPoint()) != nullptr) {
        ToggleAt(*event);
    } else {
        QAbstractItemView::mousePressEvent(event);
    }
}

void TCustomTreeView::mouseReleaseEvent(QMouseEvent *event)
{
    if (ButtonAt(event->position().toPoint()) == nullptr) {
        QAbstractItemView::mouseReleaseEvent(event);
        return;
    }
    if (state() != EditingState) {
        setState(NoState);
    }
    ToggleAt(*event);
}

void TCustomTreeView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QPoint at = event->position().toPoint();
    if (ButtonAt(at) != nullptr) {
        ToggleAt(*event);
        return;
    }
    const QPersistentModelIndex index = indexAt(at);
    const QPointer<TCustomTreeView> lives(this);
    const bool wasCurrent = index.isValid() && currentIndex() == index;
    QAbstractItemView::mouseDoubleClickEvent(event);
    if (!lives || !index.isValid() || !wasCurrent || state() != NoState
        || event->button() != Qt::LeftButton) {
        return;
    }
    SetExpanded(index, !isExpanded(index));
}

// --- drawing -------------------------------------------------------------------------------------

void TCustomTreeView::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const int height = RowHeight();
    const int bottom = event->rect().bottom();
    for (int line = std::max(event->rect().top(), 0) / height; line * height <= bottom; ++line) {
        // Asked anew for each, as handlers of the drawing may change the nodes.
        const TTreeNode_zuSub *node = NodeAtRow(TopRow() + line);
        if (node == nullptr) {
            break;
        }
        option.rect = {0, line * height, viewport()->width(), height};
        option.features.setFlag(QStyleOptionViewItem::Alternate,
                                alternatingRowColors() && (TopRow() + line) % 2 != 0);
        drawRow(&painter, option, m_nodes->IndexOf(node));
    }
}

void TCustomTreeView::drawBranches(QPainter *painter, const QRect &rect,
                                   const QModelIndex &index) const
{
    const TTreeNode_zuSub *node = m_nodes->NodeAt(index);
    if (node == nullptr) {
        return;
    }
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    QStyle::State common = QStyle::State_None;
    common.setFlag(QStyle::State_Enabled, isEnabled());
    common.setFlag(QStyle::State_Active, hasFocus());
    common.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    const bool reverse = isRightToLeft();
    const int step = reverse ? m_indentation : -m_indentation;
    QRect column(reverse ? rect.left() - m_indentation : rect.right() + 1, rect.top(),
                 m_indentation, rect.height());
    const int outermost = m_rootIsDecorated ? 0 : 1;
    bool innermost = true;
    for (int level = node->Level(); level >= outermost; --level) {
        column.translate(step, 0);
        option.rect = column;
        option.state = common;
        option.state.setFlag(QStyle::State_Sibling, HasNextSibling(*node));
        if (innermost) {
            option.state |= QStyle::State_Item;
            option.state.setFlag(QStyle::State_Children, node->ChildCount() > 0);
            option.state.setFlag(QStyle::State_Open, node->Expanded() && node->ChildCount() > 0);
        }
        style()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, painter, this);
        innermost = false;
        node = node->Parent();
    }
}

} // namespace korvane
