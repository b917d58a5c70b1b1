// Printing of the grid.
#pragma once

#include "cellgrid/zuBabGridBlock.h"
#include "foundation/zuExport.h"
#include "printing/qt/zuPrintChoice.h"
#include "printing/qt/zuPrinting.h"

#include <memory>
#include <vector>

namespace korvane {

class TBabGridView_Custom;

/// Prints a grid: all rows, also those that are only counted, which are loaded when their page
/// comes.
///
/// The head is repeated on every page, and so are the first columns. Pages end between rows and
/// between columns; a page that continues a group of a tree in the grid begins with the group's
/// headings, and the text of a group of equal cells is repeated on the page that it continues
/// on. From right to left, columns and pages are as well. The column that marks the current row,
/// selection and focus are not printed.
class KORVANE_WIDGETS_API TzuGridPrinting : public TzuPrinting, public TPrintRowChoice
{
public:
    /// The grid is observed.
    explicit TzuGridPrinting(TBabGridView_Custom &grid);

    /// How many columns every page repeats; initially the first one.
    void SetRepeatedColumns(int count) { m_repeatedColumns = count; }
    /// Whether a page that continues a group begins with the group's headings; true by default.
    void SetRepeatHeadings(bool on) { m_repeatHeadings = on; }

    /// One for each row of a tree that has rows below it.
    std::vector<TPrintBookmark> Bookmarks() const override;

protected:
    TPrintLayout LayOutContent(const TPrintRoom &room, const TPrintScaling &scaling) override;
    void PaintContent(QPainter &painter, const TPrintPage &page) override;
    std::string RangeOf(const TPrintPage &page) const override;
    TPrintFlow Flow() const override;

private:
    using TColumns = std::vector<TGridPrintSlice::TColumn>;
    /// Rows of a page that follow each other in the grid as well.
    struct TRun
    {
        int First = 0;
        int Last = 0;
        double Top = 0;
        double Height = 0;
    };

    void CollectColumns();
    void CollectRows();
    std::vector<TRun> RunsOf(const TPrintPage &page) const;
    void PaintPart(QPainter &painter, const TPrintPage &page, const TColumns &columns,
                   const QRectF &place, double scrolled);

    TBabGridView_Custom &m_grid;
    int m_repeatedColumns = 1;
    bool m_repeatHeadings = true;

    // As last laid out.
    TColumns m_labels; ///< repeated on every page
    TColumns m_columns;
    std::vector<int> m_rows; ///< by real index
    std::vector<int> m_parents;
    std::unique_ptr<TPrintRows> m_across;
    std::unique_ptr<TPrintRows> m_down;
};

} // namespace korvane
