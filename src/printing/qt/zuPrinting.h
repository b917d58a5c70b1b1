// What the printing of all components has in common: pages, paper, and where they go.
#pragma once

#include "foundation/zuMethod.h"
#include "printing/qt/zuPrintPaper.h"
#include "printing/zuPrintLayout.h"

#include <QString>
#include <QStringList>

#include <string>

class QPainter;
class QPrinter;

namespace korvane {

/// Prints a component over pages. Set the options, then print, save or paint pages.
///
/// A page shows its part of the component between the margins, below a header and above a footer.
/// The component itself stays as it is, also when an event handler throws while it is drawn.
///
/// What is printed is laid out anew by each function but PaintPage. Errors are std::runtime_error
/// with a text for the user: nothing to print, no room on the paper, a file that cannot be written.
/// A file is replaced only once it is complete.
class TzuPrinting
{
public:
    /// Before each page, 1 .. pages. A handler that sets `cancel` ends the print.
    using TOnProgress = TMethod<void(int page, int pages, bool &cancel)>;

    TzuPrinting() = default;
    TzuPrinting(const TzuPrinting &) = delete;
    TzuPrinting &operator=(const TzuPrinting &) = delete;
    virtual ~TzuPrinting() = default;

    TPrintPaper &Paper() { return m_paper; }
    const TPrintPaper &Paper() const { return m_paper; }
    TPrintScaling &Scaling() { return m_scaling; }
    const TPrintScaling &Scaling() const { return m_scaling; }
    /// What header and footer call the print.
    QString Title() const { return m_title; }
    void SetTitle(const QString &title) { m_title = title; }
    /// The document that the component shows, for header and footer.
    QString FileName() const { return m_fileName; }
    void SetFileName(const QString &name) { m_fileName = name; }

    /// Works out the pages from the options and the component as it is now.
    void LayOut();
    /// As last laid out.
    const TPrintLayout &Layout() const { return m_layout; }
    int PageCount() const { return m_layout.PageCount(); }
    /// Paints a whole sheet, as last laid out, into a rectangle of the painter's coordinates, as
    /// large as fits. The rectangle is clipped to; the painter's state is kept.
    void PaintPage(QPainter &painter, const QRectF &sheet, int page);

    // Each returns false when the print was cancelled; nothing is left behind then.

    /// All pages or, if the printer has a range of pages, those. Its paper is set.
    bool Print(QPrinter &printer);
    /// A PDF with vector drawing and text as text.
    bool SavePdf(const QString &file);
    /// A picture per page, at so many dots per inch (10 .. 2400). With several pages the number of
    /// each, from 1, is put before the suffix: "plan-1.png". Returns the files, none if cancelled.
    QStringList SavePictures(const QString &file, int dotsPerInch);

    TOnProgress OnProgress;

protected:
    /// Lays the content out on this room.
    virtual TPrintLayout LayOutContent(const TPrintRoom &room, const TPrintScaling &scaling) = 0;
    /// Draws a page's part of the content, labels and head included; the unit is a pixel of
    /// content, the origin the upper left corner of the room.
    virtual void PaintContent(QPainter &painter, const TPrintPage &page) = 0;
    /// What a page shows, for header and footer.
    virtual std::string RangeOf(const TPrintPage &page) const = 0;
    /// Size of a page's content in pixels of content, repeated parts included.
    virtual QSizeF ContentSize(const TPrintPage &page) const = 0;

private:
    bool Proceed(int page, int pages) const;
    void SavePicture(const QString &file, int page, int dotsPerInch);
    TPrintFields FieldsOf(int page) const;

    TPrintPaper m_paper;
    TPrintScaling m_scaling;
    TPrintLayout m_layout;
    QString m_title;
    QString m_fileName;
};

} // namespace korvane
