// The kinds of grids that cells of a grid may show.
#pragma once

#include "foundation/zuExport.h"
#include "grid/zuGridColumns.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace korvane {

/// A grid that cells of kind tckSubGrid refer to by its name; many cells may be built from it.
class TzuGrid_SubGrid : public TObject
{
public:
    /// Both outlive it.
    TzuGrid_SubGrid(IGridModelHost &host, const TzuCellLayouts &layouts)
        : m_host(host)
        , m_columns(host, layouts)
    {
    }

    /// By which columns refer to it, whatever the case of the letters; empty to begin with. After a
    /// change cells show the sub-grid that their column names then.
    const std::string &Name() const { return m_name; }
    void SetName(std::string name)
    {
        if (name != m_name) {
            m_name = std::move(name);
            m_host.SubGridsChanged();
        }
    }
    /// Owned by the sub-grid; every cell built from it follows them.
    TzuGrid_Columns &Columns() { return m_columns; }
    const TzuGrid_Columns &Columns() const { return m_columns; }
    /// Whether it has a row of headers; true by default.
    bool HasHeaders() const { return m_hasHeaders; }
    void SetHasHeaders(bool value) { Set(m_hasHeaders, value); }
    /// Whether it has a fixed info column at the left; false by default.
    bool HasInfoCol() const { return m_hasInfoCol; }
    void SetHasInfoCol(bool value) { Set(m_hasInfoCol, value); }
    /// Whether the last column takes the room that is left in the cell; false by default.
    bool ExtendLastColumnToWidth() const { return m_extendLastColumn; }
    void SetExtendLastColumnToWidth(bool value) { Set(m_extendLastColumn, value); }

private:
    void Set(bool &field, bool value)
    {
        if (value != field) {
            field = value;
            m_host.NeedEnsureFixed();
        }
    }

    IGridModelHost &m_host;
    std::string m_name;
    bool m_hasHeaders = true;
    bool m_hasInfoCol = false;
    bool m_extendLastColumn = false;
    TzuGrid_Columns m_columns;
};

/// The sub-grids of a grid.
class KORVANE_CORE_API TzuGrid_SubGrids : public TGridCollection<TzuGrid_SubGrid>
{
public:
    /// Both outlive the collection.
    TzuGrid_SubGrids(IGridModelHost &host, const TzuCellLayouts &layouts)
        : m_host(host)
        , m_layouts(layouts)
    {
    }
    /// The first one of that name, whatever the case of its letters, or nil.
    TzuGrid_SubGrid *SubGridByName(std::string_view name) const
    {
        for (int index = 0; index < Count(); ++index) {
            if (SameName(At(index).Name(), name)) {
                return &At(index);
            }
        }
        return nullptr;
    }

protected:
    std::unique_ptr<TzuGrid_SubGrid> CreateItem() override
    {
        return std::make_unique<TzuGrid_SubGrid>(m_host, m_layouts);
    }
    void Changed() override { m_host.SubGridsChanged(); }

private:
    IGridModelHost &m_host;
    const TzuCellLayouts &m_layouts;
};

} // namespace korvane
