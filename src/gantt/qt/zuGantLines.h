// The lines of the controls beside the area.
#pragma once

#include "foundation/zuExport.h"
#include "gantt/zuGantLines.h"

#include <memory>

class QWidget;

namespace korvane {

class TGantTree;
class TzuGrid;

/// Of the row tree; `area` is where the rows are drawn. Everything is observed.
KORVANE_WIDGETS_API std::unique_ptr<IGantLines> MakeTreeLines(TGantTree &tree, const QWidget &area,
                                                              const TGantRowList &rows);

/// Of the grid, whose rows are a tree.
KORVANE_WIDGETS_API std::unique_ptr<IGantLines> MakeGridLines(TzuGrid &grid, const QWidget &area,
                                                              const TGantRowList &rows);
/// Height of the rows that do not scroll, in pixels.
KORVANE_WIDGETS_API int HeadHeightOf(TzuGrid &grid);

} // namespace korvane
