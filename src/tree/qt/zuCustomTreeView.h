// A view of a hierarchy that costs what is on screen.
#pragma once

#include "foundation/zuExport.h"

#include <QAbstractItemView>

namespace korvane {

class TTreeNode_zuSub;
class TTreeNodeModel;

/// Shows the nodes of a TTreeNodeModel: a row for each whose ancestors are expanded, all of one
/// height, scrolled row by row.
///
/// Which node a row shows, and where a node's row is, is asked of the nodes, which find it in
/// logarithmic time; nothing is kept per row. So a change anywhere among a million rows costs what
/// is seen of it, and editors stay open whatever changes around them. Rows end at the right edge;
/// there is no horizontal scrolling.
class KORVANE_WIDGETS_API TCustomTreeView : public QAbstractItemView
{
    Q_OBJECT

public:
    /// Its model shows no nodes until it is attached to some.
    explicit TCustomTreeView(QWidget *parent);

    /// In pixels; by default what DefaultRowHeight says.
    int RowHeight() const;
    /// 0 returns to the default.
    void SetRowHeight(int height);
    /// In pixels per level.
    int indentation() const { return m_indentation; }
    void setIndentation(int pixels);
    /// Whether the topmost level has room for lines and buttons on its left.
    bool rootIsDecorated() const { return m_rootIsDecorated; }
    void setRootIsDecorated(bool decorated);

    /// Whether the node has children that are shown.
    bool isExpanded(const QModelIndex &index) const;
    /// As the user does it: see ToggleNode.
    void expand(const QModelIndex &index);
    void collapse(const QModelIndex &index);
    /// -1 for what is not shown.
    int RowOfIndex(const QModelIndex &index) const;
    /// Invalid where there is no row.
    QModelIndex IndexOfRow(int row) const;
    /// The rows next to that of an index that is shown.
    QModelIndex indexAbove(const QModelIndex &index) const;
    QModelIndex indexBelow(const QModelIndex &index) const;

    /// Of icon and caption, also above and below the client area; empty for what is not shown.
    QRect visualRect(const QModelIndex &index) const override;
    /// The node of the row at a point of the viewport; invalid below the last row.
    QModelIndex indexAt(const QPoint &point) const override;
    /// Does nothing for what is not shown.
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;

protected:
    /// The model; there is no other.
    TTreeNodeModel &Nodes() const { return *m_nodes; }
    /// Display rows, 0-based; nil where there is none.
    int RowCount() const;
    TTreeNode_zuSub *NodeAtRow(int row) const;
    /// -1 for a node that is not shown.
    int RowOf(const TTreeNode_zuSub &node) const;

    /// The first row in view.
    int TopRow() const;
    /// Scrolls as far as the rows go.
    void ScrollToRow(int row);
    /// How many rows are shown whole; at least one.
    int PageRows() const;
    /// The top row that leaves the last one just in view.
    int LastTopRow() const;
    /// Rows have come, gone or changed places.
    void RowsChanged();
    /// The default height is measured anew when it is asked for next.
    void ForgetRowHeight() { m_defaultRowHeight = 0; }
    /// In pixels, at least 1.
    virtual int DefaultRowHeight() const = 0;

    /// Nil where there is no row; the point is in the viewport's pixels.
    TTreeNode_zuSub *NodeAtPoint(const QPoint &point) const;
    /// The node is shown.
    QRect RowRect(const TTreeNode_zuSub &node) const;
    /// Of icon and caption in a row; behind the branches.
    QRect ItemRect(const TTreeNode_zuSub &node, const QRect &row) const;
    /// Requests a paint of the node's row.
    void RepaintRow(const TTreeNode_zuSub &node);

    /// The user, or an assistive program, wants a node expanded or collapsed.
    virtual void ToggleNode(TTreeNode_zuSub &node, bool expand) = 0;
    /// May change the nodes; those that are gone are not drawn.
    virtual void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                         const QModelIndex &index) const = 0;
    /// Draws the style's branches with its buttons into the room before the item.
    virtual void drawBranches(QPainter *painter, const QRect &rect, const QModelIndex &index) const;

    /// What item views ask of their subclass, by the rows above. There are no hidden rows, and
    /// nothing scrolls sideways.
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override { return 0; }
    int verticalOffset() const override { return TopRow() * RowHeight(); }
    bool isIndexHidden(const QModelIndex & /*index*/) const override { return false; }
    void setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;

private:
    TTreeNode_zuSub *ButtonAt(const QPoint &point) const;
    bool ToggleAt(const QMouseEvent &event);
    void SetExpanded(const QModelIndex &index, bool expanded);

    TTreeNodeModel *m_nodes;
    int m_rowHeight = 0;                ///< set by hand; 0 when by default
    mutable int m_defaultRowHeight = 0; ///< 0 until measured
    int m_indentation = 20;
    bool m_rootIsDecorated = true;
};

} // namespace korvane
