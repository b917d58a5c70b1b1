// Printing of the tree.
#pragma once

#include "foundation/zuExport.h"
#include "printing/qt/zuPrintChoice.h"
#include "printing/qt/zuPrintLabels.h"
#include "printing/qt/zuPrinting.h"

#include <memory>
#include <vector>

namespace korvane {

class TzuTree_ComBasic;

/// Prints the rows that a tree shows, also those scrolled away, with columns of the caller's beside
/// the captions.
///
/// Captions and titles are repeated on every page. Pages end between rows and between columns; a
/// page that continues a group begins with the group's headings. From right to left, columns and
/// pages are as well. Selection and focus are not printed.
class KORVANE_WIDGETS_API TzuTreePrinting : public TzuPrinting, public TPrintRowChoice
{
public:
    /// The tree is observed.
    explicit TzuTreePrinting(TzuTree_ComBasic &tree);

    /// Initially the captions alone. With several columns the first one is repeated on each page.
    std::vector<TPrintColumn> &Columns() { return m_labels.Columns; }
    /// Whether a page that continues a group begins with the group's headings; true by default.
    void SetRepeatHeadings(bool on) { m_repeatHeadings = on; }

    /// One for each row that has rows below it.
    std::vector<TPrintBookmark> Bookmarks() const override;

protected:
    TPrintLayout LayOutContent(const TPrintRoom &room, const TPrintScaling &scaling) override;
    void PaintContent(QPainter &painter, const TPrintPage &page) override;
    std::string RangeOf(const TPrintPage &page) const override;
    TPrintFlow Flow() const override;

private:
    /// Columns that every page repeats.
    std::size_t RepeatedColumns() const { return m_labels.Columns.size() > 1 ? 1 : 0; }
    int RepeatedWidth() const { return RepeatedColumns() > 0 ? m_labels.Widths().front() : 0; }
    void FitColumns(double page);
    int HeadHeight() const;
    void PaintColumn(QPainter &painter, const TPrintPage &page, std::size_t column,
                     double before) const;

    TzuTree_ComBasic &m_tree;
    TPrintLabels m_labels;
    bool m_repeatHeadings = true;

    // As last laid out.
    TPrintOutline m_outline;
    std::unique_ptr<TPrintRows> m_down;
    std::unique_ptr<TPrintRows> m_across;
};

} // namespace korvane
