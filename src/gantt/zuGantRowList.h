// The rows of the chart and the ways to find them.
#pragma once

#include "data/zuSequence.h"
#include "foundation/zuExport.h"
#include "foundation/zuExposable.h"
#include "gantt/zuGantTypes.h"

#include <vector>

namespace korvane {

class TGantCore;

/// A line of the row tree or of the grid that is on screen. One of the nodes is null.
struct TVisibleNode
{
    TzuDataEntity_Tree *Node = nullptr;             ///< of the row tree
    TRect Rect;                                     ///< in area pixels
    TzuDataEntity_GridTreeNode *GridNode = nullptr; ///< of the grid
};

/// All rows in creation order. It owns them; rows come and go with the nodes of the row tree
/// and of the grid.
class KORVANE_CORE_API TGantRowList : public TzuExposable
{
public:
    /// The chart owns the list.
    explicit TGantRowList(TGantCore &gant)
        : m_gant(gant)
    {
    }

    /// The chart whose rows these are.
    TGantCore &Gant() const { return m_gant; }
    /// Number of rows, shown or not.
    int Count() const { return m_rows.Size(); }
    /// Null outside 0..Count()-1.
    TGantRow *GetGantRow(int index) const;

    /// Position among all rows; -1 when it is not one of them.
    int IndexOf(const TGantRow *row) const { return m_rows.IndexOf(row); }

    /// Creates and appends the row of a node; null when the application's handler gives it none.
    TGantRow *AddRow(TzuDataEntity_Tree *treeNode, TzuDataEntity_GridTreeNode *gridNode = nullptr);
    /// Removes and releases the row of a node, if it has one; of the tree node when both are given.
    void RemoveRow(TzuDataEntity_Tree *treeNode, TzuDataEntity_GridTreeNode *gridNode = nullptr);

    /// Gives a row of the tree a node of the grid as well, so that it is shown beside either. The
    /// node must have no row of its own, and go before the row does.
    void BindGridNode(TGantRow &row, TzuDataEntity_GridTreeNode &node);
    /// Takes it back.
    void UnbindGridNode(TzuDataEntity_GridTreeNode &node);

    /// The row of the kind that is shown, with top < y < bottom, in area pixels; null on a border
    /// line and between rows.
    TGantRow *FindRowFromY(int y) const;
    /// The row that the node keeps, else the first one with this node.
    TGantRow *FindRowFromTreeNode(const TzuDataEntity_Tree *node) const;
    TGantRow *FindRowFromGridNode(const TzuDataEntity_GridTreeNode *node) const;
    /// The row of any entity that is a node of the row tree or of the grid.
    TGantRow *FindRowFromUntypedNode(const TzuDataEntity *entity) const;
    /// The last row whose node has the user reference. Walks all rows.
    TGantRow *FindRowFromTreeNodeDataEntityUserReference(const void *reference) const;

    /// Places exactly these rows, of the kind that is shown, on screen, top to bottom; all others
    /// are scrolled away.
    void PlaceRows(const std::vector<TVisibleNode> &nodes);
    /// The rows on screen, top to bottom.
    const std::vector<TGantRow *> &RowsOnScreen() const { return m_onScreen; }
    /// Changes whenever rows are placed; a row placed in an earlier frame is scrolled away.
    unsigned Frame() const { return m_frame; }

    void CleanForFree() override;

private:
    /// How the sequence finds the chunk that holds a row.
    struct TRowPlace
    {
        static std::uint32_t &Of(TGantRow &row);
    };

    template <typename Node>
    TGantRow *FindRowFrom(const Node *node, Node *(TGantRow::*nodeOf)() const) const;
    static bool IsLinked(const TGantRow &row);

    TGantCore &m_gant;
    TSequence<TGantRow, TPlaceInItem<TGantRow, TRowPlace>> m_rows;
    std::vector<TGantRow *> m_onScreen;
    unsigned m_frame = 1;
    int m_unlinked = 0; ///< rows whose node keeps another one
};

} // namespace korvane
