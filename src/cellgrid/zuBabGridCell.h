// A grid of cells, which may be a cell of another grid.
#pragma once

#include "cellgrid/zuAxisContent.h"
#include "cellgrid/zuBabCell.h"
#include "cellgrid/zuBabGridBlock.h"
#include "cellgrid/zuBabTreeRow.h"
#include "cellgrid/zuCellMatris.h"
#include "foundation/zuEventHandling.h"
#include "foundation/zuExport.h"
#include "foundation/zuMethod.h"

#include <memory>
#include <string>
#include <vector>

namespace korvane {

class TBabGridCellForViewer;

/// Two axes, the cells at their crossings and what of them is selected.
class KORVANE_CORE_API TBabGridCell : public TBabCell
{
public:
    /// Sizes, in pixels, of columns and rows without one of their own.
    static constexpr int kDefaultWidth = 64;
    static constexpr int kDefaultHeight = 20;

    TBabGridCell();
    ~TBabGridCell() override;

    /// The axes, the cells and the selection; owned by the grid.
    TAxisContentList &Columns() { return m_columns; }
    const TAxisContentList &Columns() const { return m_columns; }
    TAxisContentList &Rows() { return m_rows; }
    const TAxisContentList &Rows() const { return m_rows; }
    TCellMatris &Matris() { return m_matris; }
    const TCellMatris &Matris() const { return m_matris; }
    TCellSelection &Selection() { return m_matris.Selection(); }
    const TCellSelection &Selection() const { return m_matris.Selection(); }

    /// The grid cell of the view that this grid is shown in, at any depth; nil while in none.
    virtual TBabGridCellForViewer *GetViewerGridCell() const;

    /// The cell at two items, made when it does not exist yet; the viewer says which class. A cell
    /// of no grid when a handler changed the axes meanwhile.
    TBabCell &GetCell(TAxisContentItem &column, TAxisContentItem &row);
    /// Likewise by real indexes, loading on demand; nil when there is no such crossing.
    TBabCell *GetCell(int column, int row);
    /// Nil when the cell does not exist; makes none.
    TBabCell *FindCell(const TAxisContentItem &column, const TAxisContentItem &row) const
    {
        return m_matris.FindCell(column, row);
    }
    /// What the crossing shows: its cell's text or, without a cell, what the viewer's handler says.
    std::string CellText(TAxisContentItem &column, TAxisContentItem &row);

    /// Whether the last column takes what is left of the width that the grid is shown in; false by
    /// default.
    bool ExtendLastColumnToWidth() const { return m_extendLastColumn; }
    void SetExtendLastColumnToWidth(bool extend) { m_extendLastColumn = extend; }

    /// Whether the rows are the nodes of a tree; false by default. Their values are of IBabTreeRow
    /// then.
    bool ShowsTree() const { return m_showsTree; }
    void SetShowsTree(bool showsTree);
    /// Tells the nodes of the rows whose selection changed since this was called last. The view
    /// calls it after every change of the selection.
    void TellTreeSelection();
    /// Whether the row was selected when that was done, so that its node is to know when it comes.
    bool IsToldSelected(int row) const
    {
        return m_told != nullptr && m_told->Rows.RowHasSelected(row);
    }
    /// The row's node; nil for the head, and where no tree is shown.
    IBabTreeRow *TreeRowOf(const TAxisContentItem &row) const
    {
        return m_showsTree ? dynamic_cast<IBabTreeRow *>(row.Value()) : nullptr;
    }

    /// Deselecting deselects every cell; selecting selects all behind the heads.
    void SetSelected(bool selected) override;

    /// Ties the grid to what it was built from: `release` is called when the grid is tied to
    /// something else, and when it goes.
    void TieTo(TMethod<void(TBabGridCell *theGridCell)> release);

    /// Called by the axes: an item has come, is about to go, has moved; something that is not
    /// loaded has changed. Fires AxisEvent.
    virtual void InsertingAxisItem(TAxisContentList &list, int index);
    virtual void DroppingAxisItem(TAxisContentList &list, int index);
    virtual void MowingAxisItem(TAxisContentList &list, int from, int to);
    virtual void ChangeInUnloaded(TAxisContentList &list);
    /// `count` rows from `from` on have moved to a place that is counted without them.
    void MovedRows(TAxisContentList &list, int from, int to, int count);
    /// The items behind the head are about to take this order.
    void ReorderingAxisItems(TAxisContentList &list, int first,
                             const std::vector<TAxisContentItem *> &items);
    /// `by` items came at the index, or went from it, loaded or not.
    void AxisCountChanged(TAxisContentList &list, int index, int by);
    /// Whether any cell of the column or row is selected.
    bool HasSelectedCell(const TAxisContentList &list, int index) const;

private:
    /// Whole rows whose nodes know that they are selected.
    struct TTold
    {
        TCellSelection Rows;
        bool GridLives = true;
    };

    void TellAxisChanged(TAxisContentList &list);
    bool TellRows(const std::shared_ptr<TTold> &told, bool selected);
    template <typename Change>
    void ChangeSelections(const Change &change);

    TMethod<void(TBabGridCell *)> m_release;
    TCellMatris m_matris;
    TAxisContentList m_columns;
    TAxisContentList m_rows;
    bool m_extendLastColumn = false;
    bool m_showsTree = false;
    std::shared_ptr<TTold> m_told; ///< in trees only
};

/// A grid in a cell of another grid.
class KORVANE_CORE_API TBabSubGridCell : public TBabGridCell
{
public:
    ~TBabSubGridCell() override;
    TBabGridCellForViewer *GetViewerGridCell() const override;
    /// How many grids it is in; 1 for a cell of the view's grid.
    int Level() const;
};

/// An item was created that is only counted, and is to be filled.
using TOnVirtualLoad =
    TMethod<void(TBabGridCell *theGridCell, TAxisContentItem *theItem, bool isRow)>;
/// A handler that clears `counted` takes the item off the count, too.
using TOnVirtualUnLoad =
    TMethod<void(TBabGridCell *theGridCell, TAxisContentItem *theItem, bool isRow, bool &counted)>;
/// Whether the item may be unloaded; `canUnload` is false on entry.
using TOnCanUnload = TMethod<void(TBabGridCell *theGridCell, TAxisContentItem *theItem, bool isRow,
                                  bool &canUnload)>;
/// May widen the real indexes `first`..`last` around an item.
using TOnUnloadIntervall = TMethod<void(TBabGridCell *theGridCell, TAxisContentItem *theItem,
                                        bool isRow, int &first, int &last)>;
/// Items that are only counted are about to be deleted; the handler may change the range, both ends
/// included.
using TOnDeleteOfUnloaded =
    TMethod<void(TBabGridCell *theGridCell, bool isRow, int &from, int &to)>;
/// Makes the cell of a crossing; nil for the usual one.
using TOnCreateCell = TMethod<std::unique_ptr<TBabCell>(
    TBabGridCell *theGridCell, TAxisContentItem *theColumn, TAxisContentItem *theRow)>;
/// A handler that kept the text sets `stored`.
using TOnSetCellText =
    TMethod<void(TBabGridCell *theGridCell, TAxisContentItem *theColumn, TAxisContentItem *theRow,
                 const std::string &theText, bool &stored)>;
/// Fills in the text of a crossing without a cell; empty on entry.
using TOnGetCellText = TMethod<void(TBabGridCell *theGridCell, TAxisContentItem *theColumn,
                                    TAxisContentItem *theRow, std::string &theText)>;

/// The grid that a view shows, with the handlers of all grids inside.
class KORVANE_CORE_API TBabGridCellForViewer : public TBabGridCell
{
public:
    TBabGridCellForViewer();
    ~TBabGridCellForViewer() override;
    TBabGridCellForViewer *GetViewerGridCell() const override;

    TEvent UserSizeEvent;  ///< data: the item
    TEvent HideEvent;      ///< data: nil
    TEvent AxisEvent;      ///< an axis changed; data: the list
    TEvent CellEvent;      ///< a cell changed; data: the cell
    TEvent SelectionEvent; ///< data: the grid cell

    TOnVirtualLoad OnVirtualLoad;           ///< fills an item that was asked for
    TOnCanUnload OnCanUnload;               ///< without it nothing is unloaded
    TOnVirtualUnLoad OnAxisItemUnload;      ///< the view's own, before the application's
    TOnVirtualUnLoad OnVirtualUnLoad;       ///< an item is about to be unloaded
    TOnUnloadIntervall OnUnloadIntervall;   ///< which items only go together
    TOnDeleteOfUnloaded OnDeleteOfUnloaded; ///< before items are deleted that are only counted
    TOnCreateCell OnCreateCell;             ///< nil from it: a simple cell with text
    TOnGetCellText OnGetCellText;           ///< text of crossings without a cell
    TOnSetCellText OnSetCellText;           ///< the user changed the text of such a crossing
    /// The selected rows are dragged: whether they can be dropped at a place, and the dropping.
    TMethod<void(const TGridRowDrop &theDrop, bool &mayDrop)> OnMayDropRows;
    TMethod<void(const TGridRowDrop &theDrop)> OnDropRows;
    /// The view's own: `by` items came at an index of an axis, or went from it; items moved, as
    /// PlaceAfterMove says; rows are about to take another order; a sub-grid is about to go.
    TMethod<void(TAxisContentList *theList, int index, int by)> OnCountChanged;
    /// The view's own, too; see OnCountChanged.
    TMethod<void(TAxisContentList *theList, int from, int to, int count)> OnMoved;
    TMethod<void(TAxisContentList *theList, int first, const std::vector<int> &order)>
        OnRowsReordered;
    TMethod<void(TBabGridCell *theGridCell)> OnSubGridGoes;
    /// The view's own: a row is to be selected, or deselected.
    TMethod<void(TBabGridCell *theGridCell, int row, bool selected)> OnSelectRow;
};

} // namespace korvane
