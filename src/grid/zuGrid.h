// The core of the grid: columns, sub-grids and cell layouts, and sorting.
#pragma once

#include "cellgrid/zuBabGridCell.h"
#include "foundation/zuEventHandling.h"
#include "foundation/zuExport.h"
#include "foundation/zuPublished.h"
#include "grid/zuCellLayouts.h"
#include "grid/zuGridColumns.h"
#include "grid/zuGridSubGrids.h"
#include "grid/zuGridTree.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// A column to sort by.
struct TGridSortKey
{
    TzuGrid_Column *Column = nullptr; ///< of the view's grid; observed
    bool Descending = false;          ///< from the greatest to the least

    friend bool operator==(const TGridSortKey &, const TGridSortKey &) = default;
};

/// `theCell` is the row's cell in the sort column, nil where none exists; the key may be changed.
using TOnGetUserSortCompareString = TMethod<void(TObject *theGrid, TzuGrid_Column *theColumn,
                                                 std::string &theKey, TBabCell *theCell)>;
/// Sorts the rows itself and sets `handled`, or leaves it to the grid.
using TOnUserSort = TMethod<void(TObject *theGrid, TzuGrid_Column *theColumn, bool &handled)>;
/// About one column of the view's grid, or nil.
using TOnGridColumn = TMethod<void(TObject *theGrid, TzuGrid_Column *theColumn)>;
/// About the grid in a cell, which was made from nothing but its columns.
using TOnInitSubGrid = TMethod<void(TObject *theGrid, TBabSubGridCell *theSubGrid,
                                    TAxisContentItem *theColumn, TAxisContentItem *theRow)>;

/// The children of a node of a tree are wanted, or for nil the roots of a tree in a cell; the
/// list's Tree() tells in which one.
using TOnInitTreeSubDataList = TMethod<void(TObject *theGrid, TzuDataEntity_GridTreeNode *theParent,
                                            TzuDataList_GridTree *theList)>;

/// What TzuGrid adds to a view of a grid cell: the declarative columns, sub-grids and layouts, from
/// which the axes of the view's grid and of every sub-grid are built.
class KORVANE_CORE_API TzuGridCore : private IGridModelHost
{
public:
    /// Width of the info column and height of the header, in pixels.
    static constexpr int kInfoColumnWidth = 20;
    static constexpr int kHeaderHeight = 20;

    /// The view's grid cell outlives the grid. `changed` is called when something is to be shown
    /// anew.
    TzuGridCore(TBabGridCellForViewer &root, TMethod<void()> changed);

    TzuGridCore(const TzuGridCore &) = delete;
    TzuGridCore &operator=(const TzuGridCore &) = delete;
    virtual ~TzuGridCore();

    /// Whether there are a row of headers and an info column at the left, both fixed; true by
    /// default.
    bool HasHeaders() const { return m_hasHeaders; }
    void SetHasHeaders(bool value);
    bool HasInfoCol() const { return m_hasInfoCol; }
    void SetHasInfoCol(bool value);
    /// Owned by the grid. Each change reaches the cells that exist.
    TzuGrid_Columns &Columns() { return m_columns; }
    const TzuGrid_Columns &Columns() const { return m_columns; }
    TzuGrid_SubGrids &SubGrids() { return m_subGrids; }
    const TzuGrid_SubGrids &SubGrids() const { return m_subGrids; }
    TzuCellLayouts &CellLayouts() { return m_layouts; }
    const TzuCellLayouts &CellLayouts() const { return m_layouts; }
    /// Whether a click on the header of a column with SortEnable sorts; false by default.
    bool UserSortEnable() const { return m_userSortEnable; }
    void SetUserSortEnable(bool value) { m_userSortEnable = value; }

    /// As given to the constructor.
    TBabGridCellForViewer &RootCell() const { return m_root; }
    /// Gives a grid its fixed column and row and one item per column.
    static void InitColumnsAndFixed(TBabGridCell &gridCell, TzuGrid_Columns &columns,
                                    bool hasInfoCol, bool hasHeaders);
    /// Adds rows at the end; the last one, or nil when there is none.
    TAxisContentItem *AddRows(int count);
    /// Text of a crossing by column and row behind the heads; nothing when there is none.
    std::string CellText(int column, int row);
    /// Makes the cell; nothing when there is no such crossing, or when the cell does not take the
    /// text.
    void SetCellText(int column, int row, std::string_view text);
    /// What the sub-grid of a cell was built from; nil for the view's grid.
    TzuGrid_SubGrid *SubGridOf(const TBabGridCell &gridCell) const;

    /// Whether the rows are a tree; false by default. A change clears the rows. Columns with
    /// TreeButton, or of kind tckSubTree, show levels and expand buttons.
    bool UseTree() const { return m_tree != nullptr; }
    void SetUseTree(bool useTree);
    /// Nil when the rows are none.
    TzuGridTree *GetTree() const { return m_tree.get(); }

    /// What the rows are sorted by, the foremost first. Only what is loaded completely is sorted
    /// here.
    const std::vector<TGridSortKey> &SortKeys() const { return m_sortKeys; }
    /// The column that is sorted by first, or nil.
    TzuGrid_Column *SortColumn() const;
    /// Sorts by the columns, the first one foremost, and marks their headers.
    void SetSortKeys(std::vector<TGridSortKey> keys);
    /// What a click on a header does: sorts by the column, or the other way round when it is the
    /// first one already; with `add` it becomes the last one or turns round in its place.
    void SortByUser(TzuGrid_Column &column, bool add);
    /// Sorts again by the same columns.
    void DoInternalResortOfContent();
    /// By what the row is sorted in the first sort column.
    std::string GetSortString(TAxisContentItem &row);

    /// The key by which a row is sorted is made.
    TOnGetUserSortCompareString OnGetUserSortCompareString;
    /// Before the grid sorts.
    TOnUserSort OnUserSort;
    TPublished<TOnGridColumn> OnColumnSort; ///< after the rows were sorted
    /// Without it nodes have the children that the application gave them.
    TPublished<TOnInitTreeSubDataList> OnInitTreeSubDataList;
    /// A sub-grid has its columns; its rows are to be added now.
    TPublished<TOnInitSubGrid> OnInitSubGrid;
    /// Text of crossings that no cell was put into.
    TOnGetCellText OnGetCellText;
    /// The user changed the text of such a crossing. Unless this says that it is stored, a cell is
    /// put there.
    TOnSetCellText OnSetCellText;

protected:
    /// The text in upper case, by which it is sorted. The core knows ASCII letters.
    virtual std::string UpperCase(std::string text) const;
    /// What handlers get as the grid.
    virtual TObject *Self() { return nullptr; }

private:
    friend class TzuGridTree;
    friend class TzuSubTreeCell;
    class TSortKeys;

    void ModelChanged() override { m_changed(); }
    void NeedEnsureFixed() override;
    void SubGridsChanged() override;
    void CheckSubGrids(TzuGrid_Column &column);
    void InitTreeColumns(TzuSubTreeCell &cell, const TzuGrid_Column &column);
    std::unique_ptr<TBabCell> CreateCell(TBabGridCell *grid, TAxisContentItem *column,
                                         TAxisContentItem *row);
    void GetCellText(TBabGridCell *grid, TAxisContentItem *column, TAxisContentItem *row,
                     std::string &text);
    std::unique_ptr<TBabCell> CreateGrid(TzuGrid_Column &column, TAxisContentItem &columnItem,
                                         TAxisContentItem &row);
    void InitTreeSubDataList(TzuDataEntity_GridTreeNode *parent, TzuDataList_GridTree &list)
    {
        OnInitTreeSubDataList(Self(), parent, &list);
    }
    void UserSized(TSingleEventListener *listener);
    std::string SortText(const TzuGrid_Column &column, TAxisContentItem &columnItem,
                         TAxisContentItem &row);
    std::string SortString(TzuGrid_Column &column, TAxisContentItem &columnItem,
                           TAxisContentItem &row, std::int64_t position);
    void SortRows(const TGridSortKey &key);

    TBabGridCellForViewer &m_root;
    TMethod<void()> m_changed;
    TzuCellLayouts m_layouts;
    TzuGrid_Columns m_columns;
    TzuGrid_SubGrids m_subGrids;
    TzuGrid_Columns m_subTreeColumns; ///< of trees in cells that name no sub-grid
    std::unique_ptr<TzuGridTree> m_tree;
    TSingleEventListener m_userSize;
    std::vector<TGridSortKey> m_sortKeys;
    bool m_hasHeaders = true;
    bool m_hasInfoCol = true;
    bool m_userSortEnable = false;
};

} // namespace korvane
