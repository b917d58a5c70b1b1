// What a grid view has to know of a column.
#pragma once

#include "cellgrid/zuLayoutProp.h"
#include "foundation/zuExport.h"
#include "foundation/zuLifeWatch.h"
#include "foundation/zuTypes.h"

#include <cstdint>
#include <string>

namespace korvane {

class TAxisContentItem;
class TBabGridCell;

/// Editor and content of a column's cells.
enum class TColumnKind : std::uint8_t {
    tckSimpleEdit,
    tckMemo,
    tckBool,
    tckCombo,
    tckDate,
    tckTime,
    tckSubGrid,
    tckSubTree
};

/// Whether cells of the kind hold text rather than a grid.
constexpr bool IsSimpleKind(TColumnKind kind)
{
    return kind < TColumnKind::tckSubGrid;
}

/// Whether cells of the kind hold grids. Where the rows themselves are a tree, a column of kind
/// tckSubTree is the tree's own.
constexpr bool HoldsGrids(TColumnKind kind, bool gridShowsTree)
{
    return kind == TColumnKind::tckSubGrid || (kind == TColumnKind::tckSubTree && !gridShowsTree);
}

/// Whether and how the rows are sorted by a column.
enum class TSortMark : std::uint8_t { None, Ascending, Descending };

/// A view takes an item's Value that is of this class for the item's column; columns of other
/// values are plain text.
class KORVANE_CORE_API TBabColumn : public TObject, public TzuLifeWatched
{
public:
    /// What the cells hold and how they are edited.
    virtual TColumnKind Kind() const = 0;
    /// What the head of the column says; UTF-8.
    virtual const std::string &HeaderText() const = 0;
    /// Whether the user may sort by the column, and how the rows are sorted by it.
    virtual bool SortEnable() const = 0;
    virtual TSortMark SortMark() const = 0;
    /// From 1 on among several columns that are sorted by; 0 beside no other one.
    virtual int SortOrder() const { return 0; }
    /// Whether the user cannot change any of its cells.
    virtual bool ReadOnly() const = 0;
    /// Whether it shows the buttons and indents of a tree.
    virtual bool TreeButton() const = 0;
    /// Whether the column shows the tree, in grids whose rows are one.
    bool IsTreeColumn() const { return TreeButton() || Kind() == TColumnKind::tckSubTree; }
    /// Whether its cells have an image; see IconIndex.
    virtual bool HasIcon() const = 0;
    /// Whether neighbours that show the same become one; see InOneGroup.
    virtual bool Groupcells() const = 0;
    /// Whether neighbouring cells are shown as one.
    bool GroupsIn(bool gridShowsTree) const
    {
        return Groupcells() && !HoldsGrids(Kind(), gridShowsTree)
               && !(gridShowsTree && IsTreeColumn());
    }
    /// Nil: the grid's.
    virtual const TLayoutProp *LayoutProp() const = 0;
    /// Image of a cell; -1 for none.
    virtual int IconIndex(TBabGridCell &grid, TAxisContentItem &row) = 0;
    /// Whether neighbouring rows show the same in this column.
    virtual bool InOneGroup(TBabGridCell &grid, TAxisContentItem &upper,
                            TAxisContentItem &lower) = 0;
};

} // namespace korvane
