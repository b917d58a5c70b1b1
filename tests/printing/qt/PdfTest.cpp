// What readers of a printed PDF find in it.
#include "PrintedPages.h"
#include "gantt/qt/zuGant.h"
#include "printing/qt/zuGanttPrinting.h"
#include "printing/qt/zuPrintJob.h"
#include "printing/qt/zuTreePrinting.h"

#include <QApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace korvane;

namespace {

constexpr TDateTime kFrom = 46000;
constexpr int kGroups = 6;
constexpr int kRowsPerGroup = 8;

QString RowName(int number)
{
    return QStringLiteral("fire%1x").arg(number, 4, 10, QLatin1Char('0'));
}

QString ItemName(int number)
{
    return QStringLiteral("flag%1x").arg(number, 4, 10, QLatin1Char('0'));
}

/// A chart of groups whose items have texts, and its print over pages in both directions.
struct Pdf : testing::Test
{
    TzuGant Chart;
    TzuGanttPrinting Printing{Chart};
    std::vector<TzuDataEntity_Spanbar *> Bars;
    QTemporaryDir Folder;
    QString File = Folder.filePath(QStringLiteral("plan.pdf"));

    Pdf()
    {
        Chart.resize(700, 300);
        for (int group = 0; group < kGroups; ++group) {
            TzuDataEntity_Tree *heading =
                Chart.AddRootDataEntityTree("Grüppe " + std::to_string(group));
            TzuDataEntity_Spanbar *sum = Chart.AddSpanbar(heading, 0);
            sum->SetStartDateTime(kFrom + group * kRowsPerGroup * 2.3);
            sum->SetStopDateTime(sum->GetStartDateTime() + 30);
            sum->Texts().AddText("Sum" + std::to_string(group) + "x", 4, 2, 1);
            for (int row = 0; row < kRowsPerGroup; ++row) {
                AddBar(*Chart.AddDataEntityTree(
                    heading, RowName(static_cast<int>(Bars.size())).toStdString()));
            }
        }
        Chart.SetStart(kFrom);
        Chart.SetStop(kFrom + 60);
        Chart.Tree().FullExpand();
        Chart.show();
        QApplication::processEvents();
        SetBareSheet(Printing, 500, 400);
        Printing.Paper().Footer().Center = "Page{page}of{pages}";
        Printing.SetTitle(QStringLiteral("Plän (1)"));
    }

    void AddBar(TzuDataEntity_Tree &row)
    {
        const auto number = static_cast<int>(Bars.size());
        TzuDataEntity_Spanbar *bar = Chart.AddSpanbar(&row, 0);
        bar->SetStartDateTime(kFrom + number * 2.3);
        bar->SetStopDateTime(kFrom + number * 2.3 + 12);
        bar->Texts().AddText(ItemName(number).toStdString(), 4, 2, 1);
        Bars.push_back(bar);
    }

    static QString Read(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        EXPECT_EQ(process.readAllStandardError().toStdString(), "");
        return QString::fromUtf8(process.readAllStandardOutput());
    }
    QString TextOf(int page) const
    {
        const QString number = QString::number(page + 1);
        return Read(QStringLiteral("pdftotext"),
                    {QStringLiteral("-f"), number, QStringLiteral("-l"), number, File,
                     QStringLiteral("-")});
    }
    QString OutlineOf() const
    {
        const QString xml =
            Read(QStringLiteral("pdftohtml"),
                 {QStringLiteral("-xml"), QStringLiteral("-i"), QStringLiteral("-stdout"), File});
        return xml.mid(xml.indexOf(QLatin1String("<outline>")));
    }
};

#define NEEDS_READER()                                                                             \
    if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty()) {                   \
        GTEST_SKIP() << "poppler-utils is not installed";                                          \
    }

TEST_F(Pdf, HasEveryLabelOnItsPagesAndEveryTextOnce)
{
    NEEDS_READER();
    ASSERT_TRUE(Printing.SavePdf(File));
    const TPrintLayout &layout = Printing.Layout();
    ASSERT_GT(layout.Columns(), 2);
    ASSERT_GT(layout.Rows(), 2);
    const int height = Chart.Tree().RowHeight();
    QString all;
    for (int page = 0; page < Printing.PageCount(); ++page) {
        const QString text = TextOf(page);
        const TPrintPage shown = layout.Page(page);
        for (int row = 0; row < kGroups * (kRowsPerGroup + 1); ++row) {
            const int bar = row - row / (kRowsPerGroup + 1) - 1;
            if (row % (kRowsPerGroup + 1) != 0) {
                const bool here = row * height >= shown.Down.From && row * height < shown.Down.To;
                EXPECT_EQ(text.count(RowName(bar)), here ? 1 : 0) << "page " << page;
            }
        }
        EXPECT_TRUE(
            text.contains(QStringLiteral("Page%1of%2").arg(page + 1).arg(Printing.PageCount())));
        all += text;
    }
    // Also one on the edge between two pages, and one of a heading that is repeated.
    for (int bar = 0; bar < static_cast<int>(Bars.size()); ++bar) {
        EXPECT_EQ(all.count(ItemName(bar)), 1) << bar;
    }
    for (int group = 0; group < kGroups; ++group) {
        EXPECT_EQ(all.count(QStringLiteral("Sum%1x").arg(group)), 1) << group;
    }

    EXPECT_TRUE(Read(QStringLiteral("pdffonts"), {File}).contains(QLatin1String("TrueType")));
    const QString images = Read(QStringLiteral("pdfimages"), {QStringLiteral("-list"), File});
    EXPECT_LE(images.trimmed().count(u'\n'), 1) << images.toStdString(); // the table's head
}

TEST_F(Pdf, HasTitleAndBookmarks)
{
    NEEDS_READER();
    TzuTreePrinting table(Chart.Tree());
    table.SetTitle(QStringLiteral("Table"));
    SetBareSheet(table, 400, 500);
    TzuPrintJob job;
    job.SetTitle(QStringLiteral("Chart and table"));
    job.Add(Printing);
    job.Add(table);
    ASSERT_TRUE(job.SavePdf(File));
    const QString info = Read(QStringLiteral("pdfinfo"), {File});
    EXPECT_TRUE(info.contains(QLatin1String("Chart and table")));
    EXPECT_TRUE(
        info.contains(QRegularExpression(QStringLiteral("Pages: +%1\n").arg(job.PageCount()))));
    EXPECT_TRUE(info.contains(QLatin1String("375 x 300"))); // points of the first page's sheet
    const QString number = QString::number(job.PageCount());
    const QString last = Read(QStringLiteral("pdfinfo"),
                              {QStringLiteral("-f"), number, QStringLiteral("-l"), number, File});
    EXPECT_TRUE(last.contains(QLatin1String("300 x 375"))) << last.toStdString();

    const QString outline = OutlineOf();
    EXPECT_EQ(outline.count(QLatin1String("<item ")), 2 + 2 * kGroups) << outline.toStdString();
    const int height = Chart.Tree().RowHeight();
    for (int group = 0; group < kGroups; ++group) {
        const int top = group * (kRowsPerGroup + 1) * height;
        int page = 0;
        while (Printing.Layout().Down()[static_cast<std::size_t>(page)].To <= top) {
            ++page;
        }
        EXPECT_TRUE(outline.contains(
            QStringLiteral("<item page=\"%1\">Grüppe %2</item>").arg(page + 1).arg(group)))
            << outline.toStdString();
    }
    EXPECT_TRUE(outline.contains(
        QStringLiteral("<item page=\"%1\">Table</item>").arg(Printing.PageCount() + 1)));
    EXPECT_TRUE(TextOf(job.PageCount() - 1).contains(RowName(static_cast<int>(Bars.size()) - 1)));
}

} // namespace
