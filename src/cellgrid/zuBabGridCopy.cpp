// What is selected as text.
#include "cellgrid/zuBabGridSelect.h"
#include "cellgrid/zuCellTable.h"

#include <algorithm>
#include <utility>

namespace korvane {

/// Calls visit(text, selected) for each column with a selected cell, in each row with one.
template <typename BeginRow, typename Visit>
void TBabGridSelectCore::ForEachSelected(const BeginRow &beginRow, const Visit &visit)
{
    TBabGridCell &grid = SelectedGrid();
    TCellSelection selection;
    auto ranges = grid.Selection().Ranges();
    if (ranges.empty() && m_focus.Grid == &grid) {
        ranges.push_back({m_focus.Column, m_focus.Row, m_focus.Column, m_focus.Row});
    }
    const int lastColumn = grid.Columns().Count() - 1;
    std::vector<bool> columns(static_cast<std::size_t>(lastColumn) + 1);
    for (const TCellRange &range : ranges) {
        for (int c = range.FirstColumn; c <= std::min(range.LastColumn, lastColumn); ++c) {
            columns[static_cast<std::size_t>(c)] = c >= grid.Columns().FixedCount();
        }
        selection.Select(range);
    }
    for (int row = selection.NextRow(0); row >= 0; row = selection.NextRow(row + 1)) {
        TAxisContentItem *rowItem = grid.Rows().getAxisContentItem(row);
        if (rowItem == nullptr || rowItem->GetHide()) {
            continue;
        }
        beginRow();
        for (int c = 0; c <= lastColumn; ++c) {
            TAxisContentItem *column = grid.Columns().getAxisContentItem(c);
            if (columns[static_cast<std::size_t>(c)] && column != nullptr && !column->GetHide()) {
                visit(selection.IsSelected(c, row) ? grid.CellText(*column, *rowItem)
                                                   : std::string());
            }
        }
    }
}

std::string TBabGridSelectCore::SelectionAsText()
{
    std::string text;
    bool firstRow = true;
    bool firstCell = true;
    ForEachSelected(
        [&] {
            text += std::exchange(firstRow, false) ? "" : "\n";
            firstCell = true;
        },
        [&](const std::string &cell) {
            text += std::exchange(firstCell, false) ? "" : "\t";
            text += TabbedField(cell);
        });
    return text;
}

std::string TBabGridSelectCore::SelectionAsHtml()
{
    std::string html = "<table>";
    bool firstRow = true;
    ForEachSelected([&] { html += std::exchange(firstRow, false) ? "<tr>" : "</tr>\n<tr>"; },
                    [&](const std::string &cell) {
                        html += "<td>";
                        html += HtmlField(cell);
                        html += "</td>";
                    });
    return html + (firstRow ? "</table>" : "</tr></table>");
}

} // namespace korvane
