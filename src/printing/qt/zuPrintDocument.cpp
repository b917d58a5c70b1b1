#include "printing/qt/zuPrintDocument.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/zuTranslate.h"
#include "printing/qt/zuPdfOutline.h"
#include "printing/qt/zuPrintPaper.h"
#include "printing/qt/zuPrintSpool.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>
#include <QScopeGuard>
#include <QSvgGenerator>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace korvane {

namespace {

constexpr int kPdfResolution = 1200;

[[noreturn]] void CannotWrite(const QString &file, const QString &why)
{
    throw std::runtime_error(
        FromQt(QCoreApplication::translate("TzuPrinting", "Cannot write %1: %2").arg(file, why)));
}

/// Keeps in mind that not all of something could be written, which those who write forget.
template <typename File>
class TWatchedFile : public File
{
public:
    using File::File;

    /// Throws unless all that was written is in the file.
    void Finish(const QString &name)
    {
        if (!this->flush() || this->error() != QFile::NoError || m_isShort) {
            ThrowError(name);
        }
    }
    [[noreturn]] void ThrowError(const QString &name) const
    {
        CannotWrite(name, this->error() != QFile::NoError
                              ? this->errorString()
                              : QCoreApplication::translate("TzuPrinting", "the disk is full"));
    }

protected:
    qint64 writeData(const char *data, qint64 size) override
    {
        const qint64 written = File::writeData(data, size);
        m_isShort = m_isShort || written != size;
        return written;
    }

private:
    bool m_isShort = false;
};

/// In place of a file that is there already; that one stays when it goes wrong.
void MoveFile(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(),
                            QFileInfo(to).filesystemFilePath(), error);
    if (error) {
        CannotWrite(to, QString::fromLocal8Bit(error.message().c_str()));
    }
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
        if (m_file.isEmpty()) {
            return;
        }
        const QString part = m_file + QStringLiteral(".part");
        QFile probe(part);
        if (!probe.open(QIODevice::WriteOnly)) {
            CannotWrite(m_file, probe.errorString());
        }
        probe.remove();
        SetFile(part);
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
        // A printer does not tell that the disk is full.
        if (m_printer.outputFormat() == QPrinter::PdfFormat && !IsWholePdf(part)) {
            CannotWrite(m_file, QCoreApplication::translate("TzuPrinting", "it is incomplete"));
        }
        MoveFile(part.fileName(), m_file);
    }

private:
    static bool IsWholePdf(QFile &file)
    {
        constexpr qint64 kTail = 16;
        return file.open(QIODevice::ReadOnly) && file.seek(std::max<qint64>(file.size() - kTail, 0))
               && file.readAll().trimmed().endsWith("%%EOF");
    }
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

/// Puts files into their places: all of them or none.
class TPlacedFiles
{
public:
    /// Files that were there before are kept in the folder meanwhile.
    explicit TPlacedFiles(const QTemporaryDir &folder)
        : m_folder(folder)
    {
    }
    TPlacedFiles(const TPlacedFiles &) = delete;
    TPlacedFiles &operator=(const TPlacedFiles &) = delete;
    ~TPlacedFiles()
    {
        for (qsizetype i = m_undone.size() - 1; i >= 0; --i) {
            QFile::remove(m_undone[i]);
            QFile::rename(Former(i), m_undone[i]);
        }
    }

    void Place(const QString &part, const QString &file)
    {
        const QFileInfo target(file);
        if (target.isDir()) {
            CannotWrite(file, QCoreApplication::translate("TzuPrinting", "it is a folder"));
        }
        if (target.exists()) {
            MoveFile(file, Former(m_undone.size()));
        }
        m_undone.append(file);
        MoveFile(part, file);
    }
    /// The files; they stay from now on.
    QStringList Keep() { return std::exchange(m_undone, {}); }

private:
    QString Former(qsizetype number) const
    {
        return m_folder.filePath(QStringLiteral("former-%1").arg(number));
    }

    const QTemporaryDir &m_folder;
    QStringList m_undone;
};

} // namespace

QSizeF SheetSizeOf(const QPageLayout &layout)
{
    constexpr double kPointsPerInch = 72;
    return layout.fullRect(QPageLayout::Point).size() * (kPaperDotsPerInch / kPointsPerInch);
}

bool TzuPrintDocument::Proceed(int page, int pages) const
{
    bool cancel = false;
    OnProgress(page, pages, cancel);
    return !cancel;
}

bool TzuPrintDocument::Print(QPrinter &printer)
{
    LayOut();
    printer.setDocName(m_title);
    const TPages pages{std::max(printer.fromPage(), 1) - 1,
                       printer.toPage() > 0 ? std::min(printer.toPage(), PageCount())
                                            : PageCount()};
    if (pages.First >= pages.After) {
        throw std::runtime_error(Translate("TzuPrinting", "There are no such pages"));
    }
    const TPrinterFile file(printer);
    SetPaper(printer, pages.First);
    if (!printer.isValid()) {
        throw std::runtime_error(Translate("TzuPrinting", "The printer cannot be used"));
    }
    std::unique_ptr<TPrintSpool> spool;
    if (TPrintSpool::IsNeeded(printer)) {
        if (printer.printerName().isEmpty()) {
            throw std::runtime_error(Translate("TzuPrinting", "There is no printer"));
        }
        spool = Spool(pages);
        if (spool == nullptr) {
            return false;
        }
    }
    const bool complete = PrintPages(printer, pages, spool.get());
    if (complete) {
        file.Commit();
    }
    return complete;
}

void TzuPrintDocument::SetPaper(QPrinter &printer, int page) const
{
    printer.setPageLayout(PageLayout(page));
    printer.setFullPage(true);
}

/// Null when the job was cancelled.
std::unique_ptr<TPrintSpool> TzuPrintDocument::Spool(const TPages &pages)
{
    auto spool = std::make_unique<TPrintSpool>();
    for (int page = pages.First; page < pages.After; ++page) {
        if (!Proceed(page - pages.First + 1, pages.After - pages.First)) {
            return nullptr;
        }
        const QSizeF sheet = SheetSizeOf(PageLayout(page));
        spool->Add(sheet, [&](QPainter &painter) {
            PaintPage(painter, QRectF(QPointF(0, 0), sheet), page);
        });
    }
    return spool;
}

/// From the spool, if there is one; then it is too late to cancel.
bool TzuPrintDocument::PrintPages(QPrinter &printer, const TPages &pages, TPrintSpool *spool)
{
    QPainter painter;
    if (!painter.begin(&printer)) {
        throw std::runtime_error(Translate("TzuPrinting", "The printer cannot be used"));
    }
    auto abort = qScopeGuard([&] {
        printer.abort();
        painter.end();
    });
    for (int page = pages.First; page < pages.After; ++page) {
        if (spool == nullptr && !Proceed(page - pages.First + 1, pages.After - pages.First)) {
            return false;
        }
        if (page > pages.First) {
            SetPaper(printer, page);
            if (!printer.newPage()) {
                throw std::runtime_error(
                    Translate("TzuPrinting", "The printer takes no further page"));
            }
        }
        const QRectF sheet = printer.paperRect(QPrinter::DevicePixel);
        if (spool != nullptr) {
            spool->PaintNext(painter, sheet);
        } else {
            PaintPage(painter, sheet, page);
        }
    }
    abort.dismiss();
    if (!painter.end()) {
        throw std::runtime_error(Translate("TzuPrinting", "The printer could not finish"));
    }
    return true;
}

bool TzuPrintDocument::SavePdf(const QString &file)
{
    LayOut();
    TWatchedFile<QSaveFile> device(file); // without commit it leaves nothing behind
    if (!device.open(QIODevice::WriteOnly)) {
        CannotWrite(file, device.errorString());
    }
    // A reader of its own finds where the bookmarks are to be added.
    TWatchedFile<QTemporaryFile> pages;
    if (!pages.open()) {
        CannotWrite(file, pages.errorString());
    }
    try {
        if (!WritePdf(pages)) {
            return false;
        }
    } catch (const std::runtime_error &) {
        pages.Finish(file); // tells why, if it is the disk
        throw;
    }
    pages.Finish(file);
    const QByteArray outline = PdfOutlineUpdate(pages, m_title, PdfBookmarks());
    pages.seek(0);
    constexpr qint64 kChunk = 1 << 20;
    for (QByteArray chunk = pages.read(kChunk); !chunk.isEmpty(); chunk = pages.read(kChunk)) {
        device.write(chunk);
    }
    device.write(outline);
    if (pages.error() != QFile::NoError) {
        CannotWrite(file, pages.errorString());
    }
    device.Finish(file);
    if (!device.commit()) {
        CannotWrite(file, device.errorString());
    }
    return true;
}

bool TzuPrintDocument::WritePdf(QIODevice &device)
{
    QPdfWriter writer(&device);
    writer.setResolution(kPdfResolution);
    writer.setTitle(m_title);
    QPainter painter;
    for (int page = 0; page < PageCount(); ++page) {
        if (!Proceed(page + 1, PageCount())) {
            return false;
        }
        QPageLayout layout = PageLayout(page);
        layout.setMode(QPageLayout::FullPageMode);
        writer.setPageLayout(layout);
        if (page == 0 ? !painter.begin(&writer) : !writer.newPage()) {
            throw std::runtime_error(
                Translate("TzuPrinting", "The document takes no further page"));
        }
        PaintPage(painter, QRectF(layout.fullRectPixels(kPdfResolution)), page);
    }
    return painter.end();
}

/// With places as a PDF has them: in points, from the lower edge of the sheet.
std::vector<TPdfBookmark> TzuPrintDocument::PdfBookmarks() const
{
    constexpr double kPointsPerPixel = 72 / kPaperDotsPerInch;
    std::vector<TPdfBookmark> bookmarks;
    for (const TPrintBookmark &bookmark : Bookmarks()) {
        const double height = SheetSizeOf(PageLayout(bookmark.Page)).height();
        bookmarks.push_back({bookmark.Title, bookmark.Level, bookmark.Page,
                             (height - bookmark.Top) * kPointsPerPixel});
    }
    return bookmarks;
}

/// Pages come beside the place where they belong until all of them are there.
QStringList TzuPrintDocument::SavePages(const QString &file, const TSavePage &save)
{
    LayOut();
    const QFileInfo target(file);
    const QTemporaryDir folder(target.absolutePath() + QStringLiteral("/.pages-XXXXXX"));
    if (!folder.isValid()) {
        CannotWrite(file, folder.errorString());
    }
    const int pages = PageCount();
    const auto nameOf = [&](int page) { return pages == 1 ? file : NumberedFile(file, page + 1); };
    const auto partOf = [&](int page) {
        return folder.filePath(QFileInfo(nameOf(page)).fileName());
    };
    for (int page = 0; page < pages; ++page) {
        if (!Proceed(page + 1, pages)) {
            return {};
        }
        TWatchedFile<QFile> device(partOf(page));
        if (!device.open(QIODevice::WriteOnly)) {
            device.ThrowError(nameOf(page));
        }
        const QString error = save(device, page);
        device.Finish(nameOf(page));
        if (!error.isEmpty()) {
            CannotWrite(nameOf(page), error);
        }
    }
    TPlacedFiles files(folder);
    for (int page = 0; page < pages; ++page) {
        files.Place(partOf(page), nameOf(page));
    }
    return files.Keep();
}

QStringList TzuPrintDocument::SavePictures(const QString &file, int dotsPerInch)
{
    constexpr int kLeast = 10;
    constexpr int kMost = 2400;
    const int density = std::clamp(dotsPerInch, kLeast, kMost);
    const QString suffix = QFileInfo(file).suffix();
    const QByteArray format = suffix.isEmpty() ? QByteArrayLiteral("png") : suffix.toLatin1();
    return SavePages(file, [&](QIODevice &device, int page) {
        return SavePicture(device, page, density, format);
    });
}

QStringList TzuPrintDocument::SaveSvg(const QString &file)
{
    return SavePages(file,
                     [this](QIODevice &device, int page) { return SaveSvgPage(device, page); });
}

QString TzuPrintDocument::SavePicture(QIODevice &device, int page, int dotsPerInch,
                                      const QByteArray &format)
{
    constexpr double kMetresPerInch = 0.0254;
    const QSize size = (SheetSizeOf(PageLayout(page)) * (dotsPerInch / kPaperDotsPerInch)).toSize();
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull()) {
        throw std::runtime_error(Translate("TzuPrinting", "The picture is too large"));
    }
    image.setDotsPerMeterX(qRound(dotsPerInch / kMetresPerInch));
    image.setDotsPerMeterY(qRound(dotsPerInch / kMetresPerInch));
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        PaintPage(painter, QRectF(QPointF(0, 0), QSizeF(size)), page);
    }
    QImageWriter writer(&device, format);
    return writer.write(image) ? QString() : writer.errorString();
}

QString TzuPrintDocument::SaveSvgPage(QIODevice &device, int page)
{
    const QSizeF size = SheetSizeOf(PageLayout(page));
    QSvgGenerator generator;
    generator.setOutputDevice(&device);
    generator.setResolution(qRound(kPaperDotsPerInch));
    generator.setSize(size.toSize());
    generator.setViewBox(QRectF(QPointF(0, 0), size));
    generator.setTitle(m_title);
    QPainter painter(&generator);
    painter.fillRect(QRectF(QPointF(0, 0), size), Qt::white);
    PaintPage(painter, QRectF(QPointF(0, 0), size), page);
    return painter.end() ? QString() : device.errorString();
}

} // namespace korvane
