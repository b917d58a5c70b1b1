#include "printing/qt/zuPrintSpool.h"

#include "foundation/qt/zuConvert.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QPaintEngine>
#include <QPainter>
#include <QPicture>
#include <QPrinter>

#include <stdexcept>

namespace korvane {

namespace {

[[noreturn]] void CannotKeep(const QFileDevice &file)
{
    throw std::runtime_error(
        FromQt(QCoreApplication::translate("TzuPrinting",
                                           "Cannot keep the pages until they are printed: %1")
                   .arg(file.errorString())));
}

} // namespace

/// Where the pages are sent as a PDF, its end sends them, come what may.
bool TPrintSpool::IsNeeded(QPrinter &printer)
{
    return printer.outputFileName().isEmpty() && printer.paintEngine()->type() == QPaintEngine::Pdf;
}

TPrintSpool::TPrintSpool()
{
    if (!m_file.open()) {
        CannotKeep(m_file);
    }
}

void TPrintSpool::Add(const QSizeF &sheet, const std::function<void(QPainter &)> &draw)
{
    QPicture picture;
    QPainter painter(&picture);
    draw(painter);
    painter.end();
    QDataStream stream(&m_file);
    stream << sheet << picture;
    if (stream.status() != QDataStream::Ok || !m_file.flush()) {
        CannotKeep(m_file);
    }
}

void TPrintSpool::PaintNext(QPainter &painter, const QRectF &sheet)
{
    m_file.seek(m_next);
    QDataStream stream(&m_file);
    QSizeF size;
    QPicture picture;
    stream >> size >> picture;
    if (stream.status() != QDataStream::Ok) {
        CannotKeep(m_file);
    }
    m_next = m_file.pos();
    painter.save();
    painter.translate(sheet.topLeft());
    painter.scale(sheet.width() / size.width(), sheet.height() / size.height());
    painter.drawPicture(0, 0, picture);
    painter.restore();
}

} // namespace korvane
