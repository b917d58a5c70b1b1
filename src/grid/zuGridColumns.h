// The columns of a grid and of its sub-grids.
#pragma once

#include "cellgrid/zuBabColumn.h"
#include "cellgrid/zuBabGridCell.h"
#include "foundation/zuExport.h"
#include "grid/zuCellLayouts.h"
#include "grid/zuGridCollection.h"

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace korvane {

class TzuGrid_Column;
class TzuGrid_Columns;

/// `theCell` is nil where nothing was put into the crossing yet.
using TOnGetIconIndex = TMethod<void(TzuGrid_Column *theColumn, TAxisContentItem *theRow,
                                     TBabCell *theCell, int &theIndex)>;
/// Whether two neighbouring rows belong to one group; `theEqual` is on entry whether their texts
/// are equal.
using TOnGroupcellCompare = TMethod<void(TzuGrid_Column *theColumn, TAxisContentItem *theUpperRow,
                                         TAxisContentItem *theLowerRow, bool &theEqual)>;

/// A column as it is declared: what holds for all its cells, in every grid that is built from it.
class KORVANE_CORE_API TzuGrid_Column : public TBabColumn
{
public:
    /// The columns outlive it; `width` is in pixels.
    TzuGrid_Column(TzuGrid_Columns &columns, int width, TColumnKind kind)
        : m_columns(columns)
        , m_width(width)
        , m_kind(kind)
    {
    }

    /// In pixels, at least 0; the user size of the column in every grid.
    int Width() const { return m_width; }
    void SetWidth(int width);

    TColumnKind Kind() const override { return m_kind; }
    /// Contents of existing cells are kept as far as the new kind understands them.
    void SetKind(TColumnKind kind);

    const std::string &HeaderText() const override { return m_headerText; }
    /// UTF-8, empty to begin with; shown in the row of headers.
    void SetHeaderText(std::string text);
    /// Whether a click on the header may sort by the column; false by default.
    bool SortEnable() const override { return m_sortEnable; }
    void SetSortEnable(bool value) { Set(m_sortEnable, value); }

    TSortMark SortMark() const override { return m_sortMark; }
    /// Set by the grid that sorts.
    void SetSortMark(TSortMark mark, int order = 0)
    {
        m_sortMark = mark;
        m_sortOrder = order;
    }

    int SortOrder() const override { return m_sortOrder; }
    /// Whether the user cannot change any of its cells; false by default.
    bool ReadOnly() const override { return m_readOnly; }
    void SetReadOnly(bool value) { Set(m_readOnly, value); }
    /// For tckSubGrid and tckSubTree: which sub-grid its cells show, whatever the case of the
    /// letters. For tckSubGrid a change lets those go that exist; trees take the new columns.
    const std::string &SubGridName() const { return m_subGridName; }
    void SetSubGridName(std::string name);
    /// Whether it shows the tree, in a grid whose rows are one; false by default.
    bool TreeButton() const override { return m_treeButton; }
    void SetTreeButton(bool value) { Set(m_treeButton, value); }
    /// Whether its cells have an image; false by default.
    bool HasIcon() const override { return m_hasIcon; }
    void SetHasIcon(bool value) { Set(m_hasIcon, value); }
    /// Whether it takes no room; false by default.
    bool Hidden() const { return m_hidden; }
    void SetHidden(bool hidden);
    /// The cell layout of its cells, by name; an unknown one, and the empty one, mean the grid's
    /// own look.
    const std::string &LayoutName() const { return m_layoutName; }
    void SetLayoutName(std::string name);
    /// Whether neighbours that show the same become one; false by default.
    bool Groupcells() const override { return m_groupcells; }
    void SetGroupcells(bool value) { Set(m_groupcells, value); }
    /// Whether numbers in the texts are sorted by their value; false by default.
    bool NumericSort() const { return m_numericSort; }
    void SetNumericSort(bool value) { m_numericSort = value; }

    /// Image of a cell, -1 for none: on entry that of the cell or of the node.
    TOnGetIconIndex OnGetIconIndex;
    /// Asked for each pair of neighbouring rows that is shown.
    TOnGroupcellCompare OnGroupcellCompare;

    /// The columns that this is one of.
    TzuGrid_Columns &Columns() const { return m_columns; }
    const TLayoutProp *LayoutProp() const override;
    int IconIndex(TBabGridCell &grid, TAxisContentItem &row) override;
    bool InOneGroup(TBabGridCell &grid, TAxisContentItem &upper, TAxisContentItem &lower) override;
    /// Removes the existing cells of the column that `which` says, in every grid.
    void DropCells(const TMethod<bool(TBabCell &cell)> &which);
    /// New content for a cell of the column that holds no grid; nil for tckSubGrid.
    std::unique_ptr<TBabCellData> CreateData() const;

private:
    void Set(bool &field, bool value);
    template <typename Handle>
    void ForEachCell(const Handle &handle);

    TzuGrid_Columns &m_columns;
    int m_width;
    TColumnKind m_kind;
    TSortMark m_sortMark = TSortMark::None;
    int m_sortOrder = 0;
    bool m_sortEnable = false;
    bool m_readOnly = false;
    bool m_treeButton = false;
    bool m_hasIcon = false;
    bool m_hidden = false;
    bool m_groupcells = false;
    bool m_numericSort = false;
    std::string m_headerText;
    std::string m_subGridName;
    std::string m_layoutName;
    /// What LayoutName means, and the state of the layouts that this was looked up in.
    mutable std::shared_ptr<const TLayoutProp> m_layoutProp;
    mutable int m_layoutLookUp = -1;
};

/// Columns, and the grids that were built from them; a change of the columns reaches every one.
class KORVANE_CORE_API TzuGrid_Columns : public TGridCollection<TzuGrid_Column>
{
public:
    /// In pixels.
    static constexpr int kDefaultWidth = 64;

    /// Both outlive the columns.
    TzuGrid_Columns(IGridModelHost &host, const TzuCellLayouts &layouts)
        : m_host(host)
        , m_layouts(layouts)
    {
    }
    ~TzuGrid_Columns() override;

    /// As At.
    TzuGrid_Column *GetColumn(int index) const { return &At(index); }
    /// What new columns start with: a width in pixels, 64 by default, and a kind, tckSimpleEdit by
    /// default.
    int DefaultWidth() const { return m_defaultWidth; }
    void SetDefaultWidth(int width) { m_defaultWidth = width; }
    TColumnKind DefaultKind() const { return m_defaultKind; }
    void SetDefaultKind(TColumnKind kind) { m_defaultKind = kind; }

    /// Those that the names of columns refer to.
    const TzuCellLayouts &CellLayouts() const { return m_layouts; }
    /// The grids that were built from the columns.
    const std::vector<TBabGridCell *> &GridCells() const { return m_gridCells; }
    /// Whether the grid was built from the columns.
    bool HasGridCell(const TBabGridCell &gridCell) const
    {
        return m_known.contains(const_cast<TBabGridCell *>(&gridCell));
    }
    /// From now on the grid follows the columns, until it is tied to others or goes.
    void AddGridCell(TBabGridCell &gridCell);
    /// The column's item in a grid that was built from the columns.
    TAxisContentItem *ItemOf(const TzuGrid_Column &column, TBabGridCell &gridCell) const;

protected:
    /// Followed by every grid that was built from the columns.
    std::unique_ptr<TzuGrid_Column> CreateItem() override;
    void Inserted(int index) override;
    void Deleting(int index) override;
    void Moved(int from, int to) override;
    void Changed() override { m_host.NeedEnsureFixed(); }

private:
    friend class TzuGrid_Column;

    void Forget(TBabGridCell *gridCell);

    IGridModelHost &m_host;
    const TzuCellLayouts &m_layouts;
    std::vector<TBabGridCell *> m_gridCells;
    std::unordered_set<TBabGridCell *> m_known; ///< the same grids
    int m_defaultWidth = kDefaultWidth;
    TColumnKind m_defaultKind = TColumnKind::tckSimpleEdit;
};

} // namespace korvane
