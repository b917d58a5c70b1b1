// The paper of a print and what stands on it around the content.
#pragma once

#include "foundation/zuExport.h"
#include "printing/zuPrintFields.h"
#include "printing/zuPrintLayout.h"

#include <QFont>
#include <QPageLayout>
#include <QRectF>

class QPainter;

namespace korvane {

/// Pixels of paper per inch: those of a screen at its usual density.
inline constexpr double kPaperDotsPerInch = 96;

/// Marks along the cut edges of a page.
struct TPrintEdges
{
    bool Left = false;   ///< a page follows there
    bool Top = false;    ///< a page follows there
    bool Right = false;  ///< a page follows there
    bool Bottom = false; ///< a page follows there
};

/// Page size, orientation and margins, header and footer, and marks for putting pages together.
/// Positions are paper pixels from the sheet's upper left corner.
class KORVANE_WIDGETS_API TPrintPaper
{
public:
    /// A4, portrait, margins of 12 mm; title and date above, file, range and page below.
    TPrintPaper();

    /// Any size from QPageSize, free ones included.
    QPageLayout &Layout() { return m_layout; }
    const QPageLayout &Layout() const { return m_layout; }
    /// See ExpandPrintFields for the fields in these texts.
    TPrintLine &Header() { return m_header; }
    TPrintLine &Footer() { return m_footer; }
    /// Of header, footer and marks.
    QFont Font() const { return m_font; }
    void SetFont(const QFont &font) { m_font = font; }
    /// Lines beside the corners of the content, to cut along; false by default.
    bool CropMarks() const { return m_cropMarks; }
    void SetCropMarks(bool on) { m_cropMarks = on; }
    /// Column letter and row number of the page, and hatching at edges where pages are glued on;
    /// false by default.
    bool GlueMarks() const { return m_glueMarks; }
    void SetGlueMarks(bool on) { m_glueMarks = on; }

    /// Of the whole sheet, with its margins.
    QSizeF SheetSize() const;
    /// Between the margins, header and footer; what marks need is left free.
    QRectF Room() const;

    /// Draws header and footer, and marks around the content.
    void Paint(QPainter &painter, const TPrintFields &fields, const QRectF &content,
               const TPrintEdges &edges, const TPrintPage &page) const;

private:
    QRectF Inner() const;
    double LineHeight() const;
    double MarkRoom() const;
    void PaintLine(QPainter &painter, const TPrintLine &line, const QRectF &place,
                   const TPrintFields &fields) const;
    void PaintCropMarks(QPainter &painter, const QRectF &content) const;
    void PaintGlueMarks(QPainter &painter, const QRectF &content, const TPrintEdges &edges,
                        const TPrintPage &page) const;

    QPageLayout m_layout;
    TPrintLine m_header;
    TPrintLine m_footer;
    QFont m_font;
    bool m_cropMarks = false;
    bool m_glueMarks = false;
};

} // namespace korvane
