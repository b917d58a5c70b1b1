// What the printing of all components has in common: pages and paper.
#pragma once

#include "foundation/zuExport.h"
#include "printing/qt/zuPrintDocument.h"
#include "printing/qt/zuPrintPaper.h"
#include "printing/zuPrintLayout.h"

#include <QString>

#include <string>

class QPainter;

namespace korvane {

/// Which way pages are read.
enum class TPrintFlow : unsigned char {
    LeftToRight,
    LabelsAtRight, ///< time runs from left to right, labels stand at the right
    RightToLeft    ///< labels and all the columns, also from page to page
};

/// Prints a component over pages. Set the options, then print, save or paint pages.
///
/// A page shows its part of the component between the margins, below a header and above a footer.
/// The component itself stays as it is, also when an event handler throws while it is drawn.
class KORVANE_WIDGETS_API TzuPrinting : public TzuPrintDocument
{
public:
    /// Options; a change counts from the next layout on.
    TPrintPaper &Paper() { return m_paper; }
    const TPrintPaper &Paper() const { return m_paper; }
    TPrintScaling &Scaling() { return m_scaling; }
    const TPrintScaling &Scaling() const { return m_scaling; }
    /// The file that holds what the component shows, for header and footer; empty by default.
    QString FileName() const { return m_fileName; }
    void SetFileName(const QString &name) { m_fileName = name; }

    void LayOut() override;
    /// As last laid out; without pages before.
    const TPrintLayout &Layout() const { return m_layout; }
    int PageCount() const override { return m_layout.PageCount(); }
    QPageLayout PageLayout(int /*page*/) const override { return m_paper.Layout(); }
    void PaintPage(QPainter &painter, const QRectF &sheet, int page) override;

    /// Size of a page's content in pixels of content, repeated parts included.
    QSizeF ContentSize(const TPrintPage &page) const;

    // Beside other things on a sheet of the caller's.

    /// Works out the pages for rooms of this size, in paper pixels, rather than for the paper.
    void LayOutFor(const QSizeF &room);
    /// Paints a page, as last laid out, without the paper's header, footer and marks: the room that
    /// it was laid out for comes into the rectangle, as large as fits, and is clipped to it. The
    /// painter's state is kept.
    void PaintContentIn(QPainter &painter, const QRectF &place, int page);

    /// Numbers the pages as part of a longer document; headers and footers show the numbers.
    void SetNumbering(int firstPage, int pages);

protected:
    /// Lays the content out on this room.
    virtual TPrintLayout LayOutContent(const TPrintRoom &room, const TPrintScaling &scaling) = 0;
    /// Draws a page's part of the content, labels and head included; the unit is a pixel of
    /// content, the origin the upper left corner of the room.
    virtual void PaintContent(QPainter &painter, const TPrintPage &page) = 0;
    /// LeftToRight unless overridden. Otherwise content stands at the right edge of its room.
    virtual TPrintFlow Flow() const { return TPrintFlow::LeftToRight; }
    /// What a page shows, for header and footer.
    virtual std::string RangeOf(const TPrintPage &page) const = 0;
    /// The sheet's pixel row at which a position of the content down the pages is printed, and its
    /// page, in the first column of pages.
    TPrintBookmark BookmarkAt(const QString &title, int level, double down, double head) const;

    /// What footers call a page.
    int NumberOf(int page) const { return page + m_firstPage; }

private:
    double IndentOf(const TPrintPage &page) const;
    TPrintFields FieldsOf(int page) const;
    void LayOutIn(const QRectF &room);

    TPrintPaper m_paper;
    TPrintScaling m_scaling;
    TPrintLayout m_layout;
    QRectF m_room; ///< that was laid out for
    QString m_fileName;
    int m_firstPage = 1;
    int m_allPages = 0; ///< 0: the print's own
};

} // namespace korvane
