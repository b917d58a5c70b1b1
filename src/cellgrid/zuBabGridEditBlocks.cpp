// Pasting and clearing blocks of cells, and writing them to files.
#include "cellgrid/zuBabGridFollow.h"
#include "cellgrid/zuBabGridUserChange.h"
#include "cellgrid/zuCellTable.h"
#include "cellgrid/zuKeepSelection.h"
#include "foundation/zuFormat.h"
#include "foundation/zuTranslate.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace korvane {

namespace {

/// Shown indexes of an axis from one on, one after the other; -1 behind the last one.
class TShownIndexes
{
public:
    TShownIndexes(const TAxisContentList &list, int first)
        : m_list(list)
        , m_index(list.NearestShown(first, 1))
    {
    }
    int Index() const { return m_index; }
    void Next()
    {
        if (m_index >= 0) {
            m_index = m_list.NearestShown(m_index + 1, 1);
        }
    }

private:
    const TAxisContentList &m_list;
    int m_index;
};

} // namespace

// --- clearing and pasting ------------------------------------------------------------------------

/// Calls visit(at) for each shown selected cell behind the heads; for the cell with the focus when
/// none or whole rows are selected. What is visited follows changes by handlers no further than
/// that the grid exists.
template <typename Visit>
void TBabGridEdit::ForEachSelectedCell(const Visit &visit)
{
    TGridCellAt grid{&SelectedGrid(), 0, 0};
    auto ranges = grid.Grid->Selection().Ranges();
    if (ranges.empty() || RowSelect()) {
        if (FocusCell()) {
            visit(FocusCell());
        }
        return;
    }
    const TFollow follow(*this, grid);
    for (const TCellRange &range : ranges) {
        TShownIndexes row(grid.Grid->Rows(),
                          std::max(range.FirstRow, grid.Grid->Rows().FixedCount()));
        for (; row.Index() >= 0 && row.Index() <= range.LastRow; row.Next()) {
            TShownIndexes column(grid.Grid->Columns(),
                                 std::max(range.FirstColumn, grid.Grid->Columns().FixedCount()));
            for (; column.Index() >= 0 && column.Index() <= range.LastColumn; column.Next()) {
                visit(TGridCellAt{grid.Grid, column.Index(), row.Index()});
                if (!follow.IsThere()) {
                    return;
                }
            }
        }
    }
}

void TBabGridEdit::PasteInto(TGridCellAt at, const std::string &text, TGridPaste &result)
{
    const TFollow follow(*this, at);
    if (!MayEdit(at) || !follow.IsThere()) {
        ++result.ReadOnly;
        return;
    }
    std::string reason;
    if (Store(at, text, reason)) {
        ++result.Stored;
        return;
    }
    ++result.Refused;
    if (result.FirstReason.empty()) {
        result.FirstReason = reason;
    }
}

void TBabGridEdit::ClearCells()
{
    const std::weak_ptr<char> life(m_life);
    if (!CommitEdit() || life.expired()) {
        return;
    }
    TGridPaste result;
    AsUserChange(TGridUserChange::ucClear, [&] {
        ForEachSelectedCell([&](const TGridCellAt &at) {
            TAxisContentItem *column = at.Grid->Columns().getAxisContentItem(at.Column);
            TAxisContentItem *row = at.Grid->Rows().getAxisContentItem(at.Row);
            const std::string empty = KindOf(at) == TColumnKind::tckBool ? "0" : "";
            const bool isClear =
                column == nullptr || row == nullptr || at.Grid->CellText(*column, *row) == empty;
            if (!isClear) {
                PasteInto(at, empty, result);
            }
        });
        return result.Stored > 0;
    });
    if (!life.expired() && result.Refused > 0) {
        m_editHost.ShowRefusal(CellRect(FocusCell()), result.FirstReason);
    }
}

TGridPaste TBabGridEdit::PasteText(std::string_view text)
{
    TGridPaste result;
    const std::weak_ptr<char> life(m_life);
    const TCellTable block = ParseTabbed(text);
    if (block.empty() || !CommitEdit() || life.expired()) {
        return result;
    }
    AsUserChange(TGridUserChange::ucPaste, [&] {
        if (block.size() == 1 && block.front().size() == 1) {
            ForEachSelectedCell(
                [&](const TGridCellAt &at) { PasteInto(at, block.front().front(), result); });
        } else {
            PasteBlock(block, result);
        }
        return result.Stored > 0;
    });
    if (!life.expired()) {
        TellPasted(result);
    }
    return result;
}

/// Asks for the rows that are missing below a cell.
void TBabGridEdit::AddRowsFor(const TGridCellAt &start, int rows)
{
    if (!OnAddRowsForPaste) {
        return;
    }
    TShownIndexes row(start.Grid->Rows(), start.Row);
    while (rows > 0 && row.Index() >= 0) {
        --rows;
        row.Next();
    }
    if (rows > 0) {
        OnAddRowsForPaste(this, start.Grid, rows);
    }
}

void TBabGridEdit::PasteBlock(const TCellTable &block, TGridPaste &result)
{
    TGridCellAt start = FocusCell();
    const auto ranges = SelectedGrid().Selection().Ranges();
    if (!ranges.empty() && !RowSelect()) {
        start = {&SelectedGrid(), ranges.front().FirstColumn, ranges.front().FirstRow};
        for (const TCellRange &range : ranges) {
            start.Column = std::min(start.Column, range.FirstColumn);
        }
        start.Column = std::max(start.Column, start.Grid->Columns().FixedCount());
    }
    if (!start) {
        return;
    }
    const TFollow follow(*this, start);
    AddRowsFor(start, static_cast<int>(block.size()));
    if (!follow.IsThere()) {
        return;
    }
    TShownIndexes row(start.Grid->Rows(), start.Row);
    TCellRange pasted{start.Column, start.Row, start.Column, start.Row};
    for (const auto &line : block) {
        TShownIndexes column(start.Grid->Columns(), start.Column);
        for (const std::string &field : line) {
            if (row.Index() < 0 || column.Index() < 0) {
                ++result.Outside;
            } else {
                pasted.LastColumn = std::max(pasted.LastColumn, column.Index());
                pasted.LastRow = row.Index();
                PasteInto({start.Grid, column.Index(), row.Index()}, field, result);
                if (!follow.IsThere()) {
                    return;
                }
            }
            column.Next();
        }
        row.Next();
    }
    if (MultiSelect() && !RowSelect() && start.Row == pasted.FirstRow
        && ChooseCell(start, TGridChoice::Set) && follow.IsThere()) {
        start.Grid->Selection().Select(pasted);
        RootCell().SelectionEvent.TriggerEvent(start.Grid);
    }
}

void TBabGridEdit::TellPasted(const TGridPaste &result)
{
    std::string text;
    const auto add = [&text](int count, const std::string &line) {
        if (count > 0) {
            text += (text.empty() ? "" : "\n") + line;
        }
    };
    add(result.ReadOnly,
        Translate("TzuGrid", "%n cell(s) cannot be changed.", nullptr, result.ReadOnly));
    add(result.Outside,
        Translate("TzuGrid", "%n cell(s) would lie outside of the grid.", nullptr, result.Outside));
    add(result.Refused, WithArguments(Translate("TzuGrid", "%n cell(s) kept the old content: %1",
                                                nullptr, result.Refused),
                                      {result.FirstReason}));
    if (!text.empty()) {
        m_editHost.ShowRefusal(CellRect(FocusCell()), text);
    }
}

// --- files ---------------------------------------------------------------------------------------

std::string TBabGridEdit::CsvText(TAxisContentItem &column, TAxisContentItem &row)
{
    const std::string text = RootCell().CellText(column, row);
    const TBabColumn *info = ColumnOf(column);
    const TColumnKind kind = info != nullptr ? info->Kind() : TColumnKind::tckSimpleEdit;
    if (kind != TColumnKind::tckDate && kind != TColumnKind::tckTime) {
        return WithoutFormula(text);
    }
    const bool date = kind == TColumnKind::tckDate;
    const auto *cell = dynamic_cast<const TBabSimpleCell *>(RootCell().FindCell(column, row));
    const auto *own =
        cell != nullptr ? dynamic_cast<const TBabCellData_DateTime *>(&cell->Data()) : nullptr;
    TBabCellData_DateTime read(date ? TDateTimePart::Date : TDateTimePart::Time);
    if (own == nullptr && !read.SetText(text)) {
        return WithoutFormula(text);
    }
    const TBabCellData_DateTime &data = own != nullptr ? *own : read;
    return data.IsEmpty()
               ? std::string()
               : FormatDateTime(date ? "yyyy\"-\"mm\"-\"dd" : "hh\":\"nn\":\"ss", data.Value());
}

void TBabGridEdit::WriteCsv(std::ostream &out)
{
    TBabGridCellForViewer &grid = RootCell();
    TAxisContentList &columns = grid.Columns();
    TAxisContentList &rows = grid.Rows();
    const TKeepSelection keep(grid); // rows that are loaded make others go
    TShownIndexes row(rows, 0);
    for (; row.Index() >= 0; row.Next()) {
        bool first = true;
        TShownIndexes column(columns, columns.FixedCount());
        for (; column.Index() >= 0; column.Next()) {
            TAxisContentItem *columnItem = columns.getAxisContentItem(column.Index());
            TAxisContentItem *rowItem = rows.getAxisContentItem(row.Index());
            out << (std::exchange(first, false) ? "" : ",");
            if (columnItem != nullptr && rowItem != nullptr) {
                const bool header = row.Index() < rows.FixedCount();
                out << CsvField(header ? WithoutFormula(grid.CellText(*columnItem, *rowItem))
                                       : CsvText(*columnItem, *rowItem));
            }
        }
        out << "\r\n";
    }
}

} // namespace korvane
