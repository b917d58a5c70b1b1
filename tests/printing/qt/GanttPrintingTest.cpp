#include "foundation/qt/zuConvert.h"
#include "gantt/qt/zuGant.h"
#include "printing/qt/zuGanttPrinting.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace korvane;

namespace {

constexpr int kGroups = 12;
constexpr int kRowsPerGroup = 5;
constexpr TDateTime kFrom = 46000;

QImage PageImage(TzuPrinting &printing, int page)
{
    QImage image(printing.Paper().SheetSize().toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    printing.PaintPage(painter, QRectF(image.rect()), page);
    return image;
}

/// A chart of groups with a bar in each row, and links near and far.
struct GanttPrinting : testing::Test
{
    TzuGant Chart;
    TzuGanttPrinting Printing{Chart};
    std::vector<TzuDataEntity_Spanbar *> Bars;
    QTemporaryDir Folder;

    GanttPrinting()
    {
        Chart.resize(700, 300);
        for (int group = 0; group < kGroups; ++group) {
            TzuDataEntity_Tree *heading =
                Chart.AddRootDataEntityTree("Group " + std::to_string(group));
            for (int row = 0; row < kRowsPerGroup; ++row) {
                AddRow(Chart.AddDataEntityTree(heading, "Row " + std::to_string(Bars.size())));
            }
        }
        for (std::size_t i = 0; i < Bars.size(); ++i) {
            Link(i, (i * 7 + 3) % Bars.size());
        }
        Chart.SetStart(kFrom);
        Chart.SetStop(kFrom + 40);
        Chart.Tree().FullExpand();
        Chart.show();
        QCoreApplication::processEvents();
    }

    void AddRow(TzuDataEntity_Tree *node)
    {
        const auto number = static_cast<int>(Bars.size());
        TzuDataEntity_Spanbar *bar = Chart.AddSpanbar(node, 0);
        bar->SetStartDateTime(kFrom + number * 1.7);
        bar->SetStopDateTime(kFrom + number * 1.7 + 3 + number % 20);
        bar->SetColor(static_cast<TColor>(0x00F0A000 + number));
        bar->Texts().AddText("Bar " + std::to_string(number), 4, 2, 1);
        Bars.push_back(bar);
    }

    void Link(std::size_t from, std::size_t to)
    {
        TzuDataEntity_Link &link = Chart.AddLink();
        link.SetFirst(Bars[from]);
        link.SetSecond(Bars[to]);
    }

    void SetSheet(int width, int height)
    {
        // Points; with no margins, header and footer, content begins at the sheet's corner.
        const QSizeF points(width * 0.75, height * 0.75);
        Printing.Paper().Layout() =
            QPageLayout(QPageSize(points, QPageSize::Point, {}, QPageSize::ExactMatch),
                        QPageLayout::Portrait, QMarginsF(), QPageLayout::Point);
        Printing.Paper().Header() = {};
        Printing.Paper().Footer() = {};
    }

    int LabelWidth() const
    {
        int width = 0;
        for (const TPrintColumn &column : m_columns) {
            width += column.Width;
        }
        return width;
    }

    std::vector<TPrintColumn> m_columns{{{}, {}, 90, Qt::AlignLeft}};
};

/// The part of an image that is the chart's area, without frame and what stands at its edges.
QImage AreaOf(const QImage &image, int left, int top, const TPageSpan &across,
              const TPageSpan &down, bool whole)
{
    const int x = left + (whole ? static_cast<int>(across.From) : 0);
    const int y = top + static_cast<int>(whole ? down.From : down.Repeated);
    return image.copy(x, y, static_cast<int>(across.To - across.From),
                      static_cast<int>(down.To - down.From));
}

int DifferentPixels(const QImage &a, const QImage &b, int margin)
{
    int count = 0;
    for (int y = margin; y < a.height() - margin; ++y) {
        for (int x = margin; x < a.width() - margin; ++x) {
            count += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
        }
    }
    return count;
}

TEST_F(GanttPrinting, PagesPutTogetherAreTheWholeChart)
{
    constexpr int kFrame = 1;
    Printing.Columns() = m_columns;
    Printing.SetLinkMarks(false);
    Printing.SetTimeScale(0.1); // times are whole pixels then, none halfway between two
    Printing.SetFineness(1);
    SetSheet(6000, 3000);
    Printing.LayOut();
    ASSERT_EQ(Printing.PageCount(), 1);
    const QImage whole = PageImage(Printing, 0);
    const int head = Chart.GetScalerHeight();
    for (const bool headings : {false, true}) {
        Printing.SetRepeatHeadings(headings);
        SetSheet(390, 330);
        Printing.LayOut();
        ASSERT_GT(Printing.Layout().Columns(), 3);
        ASSERT_GT(Printing.Layout().Rows(), 3);
        double right = 0;
        for (int page = 0; page < Printing.PageCount(); ++page) {
            const TPrintPage shown = Printing.Layout().Page(page);
            right = std::max(right, shown.Across.To);
            const QImage image = PageImage(Printing, page);
            const QImage part = AreaOf(image, LabelWidth(), head, shown.Across, shown.Down, false);
            const QImage same = AreaOf(whole, LabelWidth(), head, shown.Across, shown.Down, true);
            ASSERT_EQ(DifferentPixels(part, same, kFrame), 0)
                << "page " << page << ", headings " << headings;
        }
        EXPECT_EQ(right, Printing.Layout().Across().back().To);
    }
}

TEST_F(GanttPrinting, LeavesTheChartAsItWas)
{
    Bars[3]->SetSelected(true);
    QCoreApplication::processEvents();
    const QImage before = Chart.grab().toImage();
    int changes = 0;
    Chart.OnScalerChange = [&](TzuGant_ComBasic *, TDateTime, TDateTime) { ++changes; };
    Printing.LayOut();
    const QImage printed = PageImage(Printing, 0);
    Bars[3]->SetSelected(false);
    EXPECT_EQ(PageImage(Printing, 0), printed); // the selection is not printed
    Bars[3]->SetSelected(true);

    struct TStop
    {
    };
    int drawn = 0;
    Chart.OnUserDrawForeground = [&](TzuGant_ComBasic *, const TRect &, TCanvas &) {
        if (++drawn == 1) {
            throw TStop();
        }
    };
    EXPECT_THROW(PageImage(Printing, 0), TStop);
    Chart.OnUserDrawForeground = nullptr;
    QCoreApplication::processEvents();
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(Chart.grab().toImage(), before);
    EXPECT_EQ(Chart.Start(), kFrom);
    EXPECT_FALSE(Chart.GantArea().GetIsPrinting());
}

TEST_F(GanttPrinting, ChoosesRowsAndTime)
{
    Printing.SetRows(1, 5);
    Printing.SetRange(kFrom, kFrom + 10);
    Printing.LayOut();
    EXPECT_EQ(Printing.Layout().Down().back().To, 5 * Chart.Tree().RowHeight());
    EXPECT_EQ(Printing.PageCount(), 1);
    Printing.SetAllRows();
    Printing.SetSelectionOnly(true);
    Chart.Tree().GetCurrentDataEntity()->SetSelected(false);
    EXPECT_THROW(Printing.LayOut(), std::runtime_error);
    Bars[7]->SetSelected(true);
    Printing.LayOut();
    EXPECT_EQ(Printing.Layout().Down().back().To, Chart.Tree().RowHeight());
    Printing.SetRange(kFrom, kFrom);
    EXPECT_THROW(Printing.LayOut(), std::runtime_error);
}

TEST_F(GanttPrinting, WritesCompleteFilesOrNone)
{
    const QString pdf = Folder.filePath(QStringLiteral("plan.pdf"));
    Printing.SetTitle(QStringLiteral("A plan"));
    ASSERT_TRUE(Printing.SavePdf(pdf));
    QFile file(pdf);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    EXPECT_TRUE(content.startsWith("%PDF-"));
    EXPECT_TRUE(content.trimmed().endsWith("%%EOF"));
    EXPECT_EQ(content.count("/Type /Page\n"), Printing.PageCount());
    EXPECT_FALSE(content.contains("/Subtype /Image"));

    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(Folder.filePath(QStringLiteral("printed.pdf")));
    EXPECT_TRUE(Printing.Print(printer));

    const auto pictures = Printing.SavePictures(Folder.filePath(QStringLiteral("plan.png")), 48);
    EXPECT_EQ(pictures.size(), Printing.PageCount());
    EXPECT_EQ(QImage(pictures.front()).width(), qRound(210 / 25.4 * 48));

    const QStringList files = QDir(Folder.path()).entryList(QDir::Files);
    int page = 0;
    Printing.OnProgress = [&](int now, int, bool &cancel) { cancel = (page = now) == 2; };
    EXPECT_FALSE(Printing.SavePdf(Folder.filePath(QStringLiteral("cancelled.pdf"))));
    EXPECT_TRUE(Printing.SavePictures(Folder.filePath(QStringLiteral("no.png")), 48).isEmpty());
    EXPECT_EQ(page, 2);
    EXPECT_EQ(QDir(Folder.path()).entryList(QDir::Files), files);
    Printing.OnProgress = nullptr;
    EXPECT_THROW(Printing.SavePdf(QStringLiteral("/nowhere/plan.pdf")), std::runtime_error);
    TzuGant empty;
    EXPECT_THROW(TzuGanttPrinting(empty).SavePdf(pdf), std::runtime_error);
    EXPECT_EQ(QDir(Folder.path()).entryList(QDir::Files), files);
}

} // namespace
