// Columns, sub-grids and cell layouts as JSON.
#pragma once

#include "grid/zuGrid.h"

#include <QJsonObject>

namespace korvane {

/// The collections of a grid: `Columns`, `SubGrids` and `CellLayouts` with every stored property by
/// its name; colours are numbers, kinds their names.
QJsonObject GridToJson(const TzuGridCore &grid);
/// Replaces the collections that the object has; others stay. A property that is missing has its
/// default. Throws std::invalid_argument, and changes nothing, when a collection is no list of
/// objects or a kind is unknown.
void GridFromJson(TzuGridCore &grid, const QJsonObject &json);

} // namespace korvane
