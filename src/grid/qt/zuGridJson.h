// Columns, sub-grids and cell layouts as JSON.
#pragma once

#include "foundation/zuExport.h"
#include "grid/zuGrid.h"

#include <QJsonObject>

namespace korvane {

/// The collections of a grid: `Columns`, `SubGrids` and `CellLayouts` with every stored property by
/// its name; colours are numbers, kinds their names.
KORVANE_WIDGETS_API QJsonObject GridToJson(const TzuGridCore &grid);
/// Replaces the collections that the object has; others stay. A property that is missing has its
/// default. Throws std::invalid_argument, and changes nothing, when a collection is no list of
/// objects or a kind is unknown.
KORVANE_WIDGETS_API void GridFromJson(TzuGridCore &grid, const QJsonObject &json);

/// What an item of a collection (by its name) starts with; empty for an unknown name.
KORVANE_WIDGETS_API QJsonObject NewGridItemJson(const QString &collection);

/// One collection as the text that forms store: a list without the properties that have their
/// defaults. An empty collection is an empty text.
KORVANE_WIDGETS_API QByteArray GridCollectionToText(const TzuGridCore &grid,
                                                    const QString &collection);
/// Throws as GridFromJson does, and for a text that is no JSON.
KORVANE_WIDGETS_API void GridCollectionFromText(TzuGridCore &grid, const QString &collection,
                                                const QByteArray &text);
/// The same for a property of a form: what is wrong is written as a warning.
KORVANE_WIDGETS_API void SetGridCollectionText(TzuGridCore &grid, const char *collection,
                                               const QByteArray &text);

} // namespace korvane
