// Bookmarks of a PDF file.
#pragma once

#include "foundation/zuExport.h"

#include <QByteArray>
#include <QString>

#include <vector>

class QIODevice;

namespace korvane {

/// A place in a PDF that its reader can go to.
struct TPdfBookmark
{
    QString Title;  ///< as readers list it
    int Level = 0;  ///< 0: topmost; at most one more than that of the bookmark before it
    int Page = 0;   ///< from 0
    double Top = 0; ///< in points from the lower edge of the page
};

/// What to append to a PDF, as the file format's incremental update, so that it has these
/// bookmarks, and readers show its title instead of the file's name. Nothing when there is neither.
///
/// The PDF is one that QPdfWriter wrote: with a plain cross-reference table, and all pages in one
/// list. Throws std::runtime_error for another one.
KORVANE_WIDGETS_API QByteArray PdfOutlineUpdate(QIODevice &pdf, const QString &title,
                                                const std::vector<TPdfBookmark> &bookmarks);

} // namespace korvane
