// What a view shows of a grid, and what a point in it hits.
#pragma once

#include "foundation/zuMethod.h"
#include "foundation/zuTypes.h"

#include <cstdint>
#include <vector>

namespace korvane {

class TAxisContentItem;
class TBabGridCell;

/// A column or row that is shown, wholly or in part. Pixels along its axis, half-open.
struct TGridBand
{
    TAxisContentItem *Item = nullptr; ///< observed
    int Index = 0;                    ///< real index
    int Near = 0;                     ///< pixel at which it begins, scrolled
    int Far = 0;                      ///< pixel behind its last one
    bool Fixed = false;               ///< of the head
};
/// Bands in order, the fixed ones first.
using TGridBands = std::vector<TGridBand>;

/// A grid as far as it is shown.
struct TGridBlock
{
    TBabGridCell *Grid = nullptr; ///< observed
    TRect Area;                   ///< where its bands lie; the rest of it is empty
    TPoint FixedEnd;              ///< where the fixed columns and rows end
    /// Those that are seen at least in part.
    TGridBands Columns;
    TGridBands Rows;
};

/// What a print shows in place of the view: columns side by side, and rows one below the other, by
/// real index. Heads may be among the rows.
struct TGridPrintSlice
{
    /// A column of the slice.
    struct TColumn
    {
        int Index = 0; ///< real index
        int Width = 0; ///< in pixels
    };
    /// From left to right.
    std::vector<TColumn> Columns;
    int FirstRow = 0;                ///< real index
    int LastRow = -1;                ///< included
    TMethod<void()> FontChosen = {}; ///< after every change of the canvas' font
};

/// A crossing by real indexes.
struct TGridCellAt
{
    /// The grid, or nil for no crossing; real indexes.
    TBabGridCell *Grid = nullptr;
    int Column = -1;
    int Row = -1;

    /// Whether it is a crossing; not whether that still exists.
    explicit operator bool() const { return Grid != nullptr; }
    friend bool operator==(const TGridCellAt &, const TGridCellAt &) = default;
};

/// What a point of a view lies on.
enum class TGridPart : std::uint8_t {
    Nothing,
    Cell,
    ColumnHeader,
    RowHeader, ///< in the fixed columns
    Corner,
    ColumnBorder, ///< at the end of the column header
    RowBorder,
    CheckBox,
    TreeButton
};

/// What a point hits.
struct TGridHit
{
    /// What was hit, and of which crossing.
    TGridPart Part = TGridPart::Nothing;
    TGridCellAt At;
    TRect Rect; ///< of the crossing
};

/// Where at a row. On makes what is dropped its last children.
enum class TGridRowPlace : std::uint8_t { Above, On, Below };

/// Where dragged rows of the view's grid would be dropped: at a row, or behind the last one.
struct TGridRowDrop
{
    int Row = -1;                               ///< real index; -1: behind the last row
    TGridRowPlace Place = TGridRowPlace::Below; ///< at the row, if there is one

    friend bool operator==(const TGridRowDrop &, const TGridRowDrop &) = default;
};

/// What is marked under the mouse: a row (Cell, with the column -1), a header, or a button or box
/// in a cell.
struct TGridHot
{
    TGridPart Part = TGridPart::Nothing; ///< Nothing: no mark
    TGridCellAt At;                      ///< real indexes

    friend bool operator==(const TGridHot &, const TGridHot &) = default;
};

} // namespace korvane
