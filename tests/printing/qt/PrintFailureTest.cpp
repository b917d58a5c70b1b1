#include "PrintedPages.h"
#include "gantt/qt/zuGant.h"
#include "printing/qt/zuGanttPrinting.h"

#include <QApplication>
#include <QDir>
#include <QPrinter>
#include <QTemporaryDir>

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace korvane;

namespace {

constexpr TDateTime kFrom = 46000;

/// A chart that takes several pages.
struct PrintFailure : testing::Test
{
    TzuGant Chart;
    TzuGanttPrinting Printing{Chart};
    QTemporaryDir Folder;

    PrintFailure()
    {
        constexpr int kRows = 40;
        Chart.resize(600, 300);
        for (int i = 0; i < kRows; ++i) {
            TzuDataEntity_Spanbar *bar =
                Chart.AddSpanbar(Chart.AddRootDataEntityTree("Row " + std::to_string(i)), 0);
            bar->SetStartDateTime(kFrom + i);
            bar->SetStopDateTime(kFrom + i + 4);
        }
        Chart.SetStart(kFrom);
        Chart.SetStop(kFrom + kRows);
        Chart.show();
        QApplication::processEvents();
        Chart.Tree().GetNextVisible(nullptr)->SetSelected(false);
        SetBareSheet(Printing, 300, 200);
    }

    QStringList Files() const { return QDir(Folder.path()).entryList(QDir::Files); }
};

TEST_F(PrintFailure, NothingIsLeftBehindAndTheOldFileStays)
{
    const QString file = Folder.filePath(QStringLiteral("plan.pdf"));
    QFile old(file);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    const QStringList files = Files();
    const QImage before = Chart.grab().toImage();

    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    const QString picture = Folder.filePath(QStringLiteral("plan.png"));
    const std::pair<const char *, std::function<bool()>> targets[] = {
        {"printer", [&] { return Printing.Print(printer); }},
        {"PDF", [&] { return Printing.SavePdf(file); }},
        {"pictures", [&] { return !Printing.SavePictures(picture, 48).isEmpty(); }},
    };
    for (const auto &[name, print] : targets) {
        SCOPED_TRACE(name);
        int page = 0;
        Printing.OnProgress = [&](int now, int, bool &cancel) { cancel = (page = now) == 3; };
        EXPECT_FALSE(print());
        EXPECT_EQ(page, 3);
        Printing.OnProgress = nullptr;

        int drawn = 0;
        Chart.OnUserDrawForeground = [&](TzuGant_ComBasic *, const TRect &, TCanvas &) {
            if (++drawn == 3) {
                throw std::logic_error("drawing failed");
            }
        };
        EXPECT_THROW(print(), std::logic_error);
        Chart.OnUserDrawForeground = nullptr;

        EXPECT_EQ(Files(), files);
        EXPECT_EQ(QFileInfo(file).size(), 3);
        EXPECT_EQ(printer.outputFileName(), file);
        EXPECT_FALSE(Chart.GantArea().GetIsPrinting());
        EXPECT_EQ(Chart.grab().toImage(), before);
    }
    EXPECT_TRUE(Printing.Print(printer));
    EXPECT_GT(QFileInfo(file).size(), 1000);
    EXPECT_EQ(Files(), files);
    const QStringList pictures = Printing.SavePictures(picture, 48);
    const QStringList shapes = Printing.SaveSvg(Folder.filePath(QStringLiteral("plan.svg")));
    EXPECT_EQ(pictures.size(), Printing.PageCount());
    EXPECT_EQ(shapes.size(), Printing.PageCount());
    EXPECT_EQ(Files().size(), 1 + 2 * Printing.PageCount());
    EXPECT_EQ(QImage(pictures.front()).width(), 150); // 300 paper pixels at 96 per inch
}

TEST_F(PrintFailure, SaysWhatIsWrong)
{
    const auto prepare = [this] {
        Printing.SetAllRows();
        Printing.SetWholeRange();
        Printing.SetSelectionOnly(false);
        Printing.SetTimeScale(0);
        SetBareSheet(Printing, 300, 200);
    };
    const QString file = Folder.filePath(QStringLiteral("plan.pdf"));
    const QString nowhere = QStringLiteral("/nowhere/plan.pdf");
    const QString &folder = Folder.path(); // a folder is no file to write
    QPrinter unusable;
    unusable.setOutputFormat(QPrinter::PdfFormat);
    unusable.setOutputFileName(nowhere);
    struct TCase
    {
        const char *Message;
        std::function<void()> Print;
    };
    const TCase cases[] = {
        {"There is nothing to print",
         [&] {
             Printing.SetRows(1000, 1001);
             Printing.SavePdf(file);
         }},
        {"There is nothing to print",
         [&] {
             Printing.SetSelectionOnly(true);
             Printing.SavePdf(file);
         }},
        {"The time to print is empty",
         [&] {
             Printing.SetRange(kFrom, kFrom);
             Printing.SavePictures(file, 96);
         }},
        {"The time to print is empty",
         [&] {
             Printing.SetRange(kFrom + 1, kFrom);
             Printing.SaveSvg(file);
         }},
        {"The time to print is too long at this scale",
         [&] {
             Printing.SetTimeScale(1e-9);
             Printing.SavePdf(file);
         }},
        {"The margins leave no room on the paper",
         [&] {
             Printing.Paper().Layout().setMargins({120, 0, 120, 0});
             Printing.SavePdf(file);
         }},
        {"The paper has no room beside labels, axis and headings",
         [&] {
             SetBareSheet(Printing, 40, 40);
             Printing.SavePdf(file);
         }},
        {"Cannot write /nowhere/plan.pdf", [&] { Printing.SavePdf(nowhere); }},
        {"Cannot write /nowhere/plan.pdf", [&] { Printing.SavePictures(nowhere, 96); }},
        {"Cannot write /nowhere/plan.pdf", [&] { Printing.SaveSvg(nowhere); }},
        {"Cannot write", [&] { Printing.SavePdf(folder); }},
        {"Cannot write /nowhere/plan.pdf", [&] { Printing.Print(unusable); }},
        {"There is nothing to print",
         [&] {
             TzuGant empty;
             TzuGanttPrinting(empty).SavePdf(file);
         }},
    };
    const QImage before = Chart.grab().toImage();
    for (const auto &[message, print] : cases) {
        prepare();
        try {
            print();
            ADD_FAILURE() << "printed despite: " << message;
        } catch (const std::runtime_error &error) {
            EXPECT_THAT(error.what(), testing::HasSubstr(message));
        }
        EXPECT_EQ(Files(), QStringList());
        EXPECT_EQ(QDir(Folder.path()).entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot),
                  QStringList());
    }
    EXPECT_EQ(Chart.grab().toImage(), before);
}

} // namespace
