// Pages on their way to a printer or into files.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuMethod.h"

#include <QPageLayout>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

class QIODevice;
class QPainter;
class QPrinter;
class QRectF;

namespace korvane {

class TPrintSpool;
struct TPdfBookmark;

/// A place in a document that its reader can go to.
struct TPrintBookmark
{
    QString Title;  ///< as readers list it
    int Level = 0;  ///< 0: topmost; at most one more than that of the bookmark before it
    int Page = 0;   ///< 0 .. PageCount() - 1
    double Top = 0; ///< on the sheet, in paper pixels
};

/// Pages that can be printed, saved and painted. What goes wrong is a std::runtime_error with a
/// text for the user: nothing to print, no room on the paper, a file that cannot be written, a
/// printer that cannot be used. Exceptions of event handlers pass through. In either case, and when
/// a job is cancelled, nothing is left behind, and files that were there before are as they were.
class KORVANE_WIDGETS_API TzuPrintDocument
{
public:
    /// Before each page, 1 .. pages. A handler that sets `cancel` ends the job.
    using TOnProgress = TMethod<void(int page, int pages, bool &cancel)>;

    TzuPrintDocument() = default;
    TzuPrintDocument(const TzuPrintDocument &) = delete;
    TzuPrintDocument &operator=(const TzuPrintDocument &) = delete;
    virtual ~TzuPrintDocument() = default;

    /// What the document is called, also by headers and footers; empty by default.
    QString Title() const { return m_title; }
    void SetTitle(const QString &title) { m_title = title; }

    /// Works out the pages from the options and from what is printed as it is now.
    virtual void LayOut() = 0;
    /// As last laid out.
    virtual int PageCount() const = 0;
    /// The paper of a page, 0 .. PageCount() - 1. For others std::out_of_range may be thrown.
    virtual QPageLayout PageLayout(int page) const = 0;
    /// In order of their places; none unless the content has groups.
    virtual std::vector<TPrintBookmark> Bookmarks() const { return {}; }
    /// Paints a whole sheet, as last laid out, into a rectangle of the painter's coordinates, as
    /// large as fits. The rectangle is clipped to; the painter's state is kept.
    virtual void PaintPage(QPainter &painter, const QRectF &sheet, int page) = 0;

    // Each of these lays out first, and tells whether the job was not cancelled.

    /// All pages or, if the printer has a range of pages, those. Its paper is set. A printer that
    /// prints into a file replaces it once it is complete; one that could not be stopped gets the
    /// pages when all of them are drawn.
    bool Print(QPrinter &printer);
    /// A PDF with vector drawing, text as text, and bookmarks.
    bool SavePdf(const QString &file);
    /// A picture per page, at so many dots per inch (10 .. 2400). With several pages the number of
    /// each, from 1, is put before the suffix: "plan-1.png". Returns the files, none if cancelled.
    QStringList SavePictures(const QString &file, int dotsPerInch);
    /// Likewise an SVG per page.
    QStringList SaveSvg(const QString &file);

    /// Without a handler nothing is cancelled.
    TOnProgress OnProgress;

private:
    struct TPages
    {
        int First; ///< from 0
        int After;
    };

    bool Proceed(int page, int pages) const;
    void SetPaper(QPrinter &printer, int page) const;
    std::unique_ptr<TPrintSpool> Spool(const TPages &pages);
    bool PrintPages(QPrinter &printer, const TPages &pages, TPrintSpool *spool);
    /// Writes a page into a device; says what is wrong, if anything.
    using TSavePage = std::function<QString(QIODevice &device, int page)>;
    QStringList SavePages(const QString &file, const TSavePage &save);
    QString SavePicture(QIODevice &device, int page, int dotsPerInch, const QByteArray &format);
    QString SaveSvgPage(QIODevice &device, int page);
    bool WritePdf(QIODevice &device);
    std::vector<TPdfBookmark> PdfBookmarks() const;

    QString m_title;
};

/// The size of a sheet in paper pixels.
KORVANE_WIDGETS_API QSizeF SheetSizeOf(const QPageLayout &layout);

} // namespace korvane
