#include "printing/qt/zuPrinting.h"

#include "foundation/qt/zuConvert.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>
#include <QScopeGuard>

#include <algorithm>
#include <stdexcept>

namespace korvane {

namespace {

constexpr int kPdfResolution = 1200;

[[noreturn]] void CannotWrite(const QString &file, const QString &why)
{
    throw std::runtime_error(FromQt(QStringLiteral("Cannot write %1: %2").arg(file, why)));
}

QString NumberedFile(const QString &file, int page)
{
    const QFileInfo info(file);
    const QString suffix = info.suffix().isEmpty() ? QString() : QLatin1Char('.') + info.suffix();
    return file.chopped(suffix.size()) + QLatin1Char('-') + QString::number(page) + suffix;
}

/// Lets a printer that prints into a file do so beside it until the print is complete.
class TPrinterFile
{
public:
    explicit TPrinterFile(QPrinter &printer)
        : m_printer(printer)
        , m_file(printer.outputFileName())
    {
        if (!m_file.isEmpty()) {
            SetFile(m_file + QStringLiteral(".part"));
        }
    }
    TPrinterFile(const TPrinterFile &) = delete;
    TPrinterFile &operator=(const TPrinterFile &) = delete;
    ~TPrinterFile()
    {
        if (!m_file.isEmpty()) {
            QFile::remove(m_printer.outputFileName());
            SetFile(m_file);
        }
    }

    /// A preview leaves no file.
    void Commit() const
    {
        QFile part(m_printer.outputFileName());
        if (m_file.isEmpty() || !part.exists()) {
            return;
        }
        QFile::remove(m_file);
        if (!part.rename(m_file)) {
            CannotWrite(m_file, part.errorString());
        }
    }

private:
    /// A file name may choose another format, by its suffix.
    void SetFile(const QString &file)
    {
        const QPrinter::OutputFormat format = m_printer.outputFormat();
        m_printer.setOutputFileName(file);
        m_printer.setOutputFormat(format);
    }

    QPrinter &m_printer;
    QString m_file;
};

} // namespace

void TzuPrinting::LayOut()
{
    const QRectF room = m_paper.Room();
    m_layout = LayOutContent({room.width(), room.height()}, m_scaling);
}

TPrintFields TzuPrinting::FieldsOf(int page) const
{
    const QLocale locale;
    const QDateTime now = QDateTime::currentDateTime();
    TPrintFields fields;
    fields.Title = FromQt(m_title);
    fields.File = FromQt(m_fileName);
    fields.Date = FromQt(locale.toString(now.date(), QLocale::ShortFormat));
    fields.Time = FromQt(locale.toString(now.time(), QLocale::ShortFormat));
    fields.Range = RangeOf(m_layout.Page(page));
    fields.Page = page + 1;
    fields.Pages = PageCount();
    return fields;
}

void TzuPrinting::PaintPage(QPainter &painter, const QRectF &sheet, int page)
{
    const TPrintPage shown = m_layout.Page(page);
    const QSizeF size = m_paper.SheetSize();
    const double fit = std::min(sheet.width() / size.width(), sheet.height() / size.height());
    painter.save();
    const auto restore = qScopeGuard([&] { painter.restore(); });
    painter.setClipRect(sheet, painter.hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
    painter.translate(sheet.topLeft());
    painter.scale(fit, fit);
    const double scale = m_layout.Scale();
    const QRectF content(m_paper.Room().topLeft(), ContentSize(shown) * scale);
    const TPrintEdges edges{shown.Column > 0, shown.Row > 0, shown.Column + 1 < m_layout.Columns(),
                            shown.Row + 1 < m_layout.Rows()};
    m_paper.Paint(painter, FieldsOf(page), content, edges, shown);
    painter.translate(content.topLeft());
    painter.scale(scale, scale);
    PaintContent(painter, shown);
}

bool TzuPrinting::Proceed(int page, int pages) const
{
    bool cancel = false;
    OnProgress(page, pages, cancel);
    return !cancel;
}

bool TzuPrinting::Print(QPrinter &printer)
{
    LayOut();
    printer.setPageLayout(m_paper.Layout());
    printer.setFullPage(true);
    printer.setDocName(m_title);
    const int first = std::max(printer.fromPage(), 1);
    const int last = printer.toPage() > 0 ? std::min(printer.toPage(), PageCount()) : PageCount();
    if (first > last) {
        throw std::runtime_error("There are no such pages");
    }
    const TPrinterFile file(printer);
    QPainter painter;
    if (!printer.isValid() || !painter.begin(&printer)) {
        throw std::runtime_error("The printer cannot be used");
    }
    auto abort = qScopeGuard([&] {
        printer.abort();
        painter.end();
    });
    for (int page = first; page <= last; ++page) {
        if (!Proceed(page - first + 1, last - first + 1)) {
            return false;
        }
        if (page > first && !printer.newPage()) {
            throw std::runtime_error("The printer takes no further page");
        }
        PaintPage(painter, printer.paperRect(QPrinter::DevicePixel), page - 1);
    }
    abort.dismiss();
    if (!painter.end()) {
        throw std::runtime_error("The printer could not finish");
    }
    file.Commit();
    return true;
}

bool TzuPrinting::SavePdf(const QString &file)
{
    LayOut();
    QSaveFile device(file); // without commit it leaves nothing behind
    if (!device.open(QIODevice::WriteOnly)) {
        CannotWrite(file, device.errorString());
    }
    {
        QPdfWriter writer(&device);
        writer.setResolution(kPdfResolution);
        QPageLayout layout = m_paper.Layout();
        layout.setMode(QPageLayout::FullPageMode);
        writer.setPageLayout(layout);
        writer.setTitle(m_title);
        QPainter painter(&writer);
        const QRectF sheet(layout.fullRectPixels(kPdfResolution));
        for (int page = 0; page < PageCount(); ++page) {
            if (!Proceed(page + 1, PageCount())) {
                return false;
            }
            if (page > 0) {
                writer.newPage();
            }
            PaintPage(painter, sheet, page);
        }
        if (!painter.end()) {
            CannotWrite(file, device.errorString());
        }
    }
    if (!device.commit()) {
        CannotWrite(file, device.errorString());
    }
    return true;
}

QStringList TzuPrinting::SavePictures(const QString &file, int dotsPerInch)
{
    constexpr int kLeast = 10;
    constexpr int kMost = 2400;
    LayOut();
    const int density = std::clamp(dotsPerInch, kLeast, kMost);
    QStringList written;
    auto takeBack = qScopeGuard([&] {
        for (const QString &name : written) {
            QFile::remove(name);
        }
    });
    for (int page = 0; page < PageCount(); ++page) {
        if (!Proceed(page + 1, PageCount())) {
            return {};
        }
        const QString name = PageCount() == 1 ? file : NumberedFile(file, page + 1);
        SavePicture(name, page, density);
        written.append(name);
    }
    takeBack.dismiss();
    return written;
}

void TzuPrinting::SavePicture(const QString &file, int page, int dotsPerInch)
{
    const QSize size = (m_paper.SheetSize() * (dotsPerInch / kPaperDotsPerInch)).toSize();
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull()) {
        throw std::runtime_error("The picture is too large");
    }
    image.setDotsPerMeterX(qRound(dotsPerInch / 0.0254));
    image.setDotsPerMeterY(qRound(dotsPerInch / 0.0254));
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        PaintPage(painter, QRectF(QPointF(0, 0), QSizeF(size)), page);
    }
    QSaveFile device(file);
    const QByteArray format = QFileInfo(file).suffix().toLatin1();
    if (!device.open(QIODevice::WriteOnly)
        || !image.save(&device, format.isEmpty() ? "PNG" : format.constData())
        || !device.commit()) {
        CannotWrite(file, device.errorString());
    }
}

} // namespace korvane
