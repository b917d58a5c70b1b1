// Pages that wait until all of them are drawn.
#pragma once

#include "foundation/zuExport.h"

#include <QTemporaryFile>

#include <functional>

class QPainter;
class QPrinter;
class QRectF;
class QSizeF;

namespace korvane {

/// Keeps drawn pages in a file, so that it does not matter how many they are.
class KORVANE_WIDGETS_API TPrintSpool
{
public:
    /// Whether a printer prints what it was given although the job is cancelled, so that it must
    /// not be given anything before all pages are drawn.
    static bool IsNeeded(QPrinter &printer);

    /// Throws std::runtime_error.
    TPrintSpool();

    /// Adds a page that `draw` draws on a sheet of this size in paper pixels. Throws
    /// std::runtime_error when there is no room to keep it.
    void Add(const QSizeF &sheet, const std::function<void(QPainter &)> &draw);
    /// Draws the pages into a rectangle each, from the first one on.
    void PaintNext(QPainter &painter, const QRectF &sheet);

private:
    QTemporaryFile m_file;
    qint64 m_next = 0; ///< where the page that is painted next begins
};

} // namespace korvane
