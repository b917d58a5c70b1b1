// Pages side by side are the whole: nothing is lost, doubled or shifted at their edges.
#include "PrintedPages.h"
#include "gantt/qt/zuGant.h"
#include "grid/qt/zuGrid.h"
#include "printing/qt/zuGanttPrinting.h"
#include "printing/qt/zuGridPrinting.h"
#include "printing/qt/zuSchemaPrinting.h"
#include "printing/qt/zuTreePrinting.h"
#include "schema/qt/zuSchema.h"
#include "tree/qt/zuTree.h"

#include <QApplication>

#include <cmath>
#include <gtest/gtest.h>

using namespace korvane;

namespace {

constexpr TDateTime kFrom = 46000;

/// A page magnified so that a pixel of content is one of the picture.
QImage ContentImage(TzuPrinting &printing, int page)
{
    const QSizeF size = printing.Paper().SheetSize() / printing.Layout().Scale();
    QImage image(QSize(static_cast<int>(std::ceil(size.width())),
                       static_cast<int>(std::ceil(size.height()))),
                 QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    printing.PaintPage(painter, QRectF(QPointF(0, 0), size), page);
    return image;
}

/// Pixels that differ clearly, but for those at the edge, where frames are.
int DifferentPixels(const QImage &a, const QImage &b)
{
    constexpr int kEdge = 1;
    constexpr int kClearly = 48;
    int count = a.size() == b.size() ? 0 : 1'000'000;
    for (int y = kEdge; y < std::min(a.height(), b.height()) - kEdge; ++y) {
        for (int x = kEdge; x < std::min(a.width(), b.width()) - kEdge; ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            count += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q))
                         + std::abs(qBlue(p) - qBlue(q))
                     > kClearly;
        }
    }
    return count;
}

enum class THead { Cut, BegunAnew };

/// An axis at the top names the date anew where a page begins within it.
void ExpectPagesToMakeUpTheWhole(TzuPrinting &printing, THead heads = THead::Cut)
{
    SetBareSheet(printing, 6000, 4000);
    printing.Scaling() = {};
    printing.LayOut();
    ASSERT_EQ(printing.PageCount(), 1);
    const QImage whole = ContentImage(printing, 0);
    const TPrintPage all = printing.Layout().Page(0);
    const QSizeF size = printing.ContentSize(all);
    const int label = qRound(size.width() - all.Across.To);
    const int head = qRound(size.height() - all.Down.To);

    const TPrintScaling scalings[] = {
        {},
        {.Percent = 60},
        {.Fit = TPrintFit::pfWidth},
        {.Fit = TPrintFit::pfHeight},
        {.Fit = TPrintFit::pfPages, .PagesAcross = 2, .PagesDown = 3},
    };
    for (const TPrintScaling &scaling : scalings) {
        SetBareSheet(printing, 390, 330);
        printing.Scaling() = scaling;
        printing.LayOut();
        const TPrintLayout &layout = printing.Layout();
        EXPECT_EQ(layout.Across().back().To, all.Across.To);
        EXPECT_EQ(layout.Down().back().To, all.Down.To);
        for (int page = 0; page < printing.PageCount(); ++page) {
            SCOPED_TRACE("fit " + std::to_string(static_cast<int>(scaling.Fit)) + ", page "
                         + std::to_string(page));
            const TPrintPage shown = layout.Page(page);
            const QImage image = ContentImage(printing, page);
            const int from = static_cast<int>(shown.Across.From);
            const int top = static_cast<int>(shown.Down.From);
            const QSize part(static_cast<int>(shown.Across.To) - from,
                             static_cast<int>(shown.Down.To) - top);
            const int body = head + static_cast<int>(shown.Down.Repeated);
            const auto same = [&](QRect onPage, QPoint onWhole) {
                return DifferentPixels(image.copy(onPage),
                                       whole.copy(QRect(onWhole, onPage.size())));
            };
            EXPECT_EQ(same({{label, body}, part}, {label + from, head + top}), 0);
            EXPECT_EQ(same({0, body, label, part.height()}, {0, head + top}), 0) << "labels";
            if (heads == THead::Cut) {
                EXPECT_EQ(same({label, 0, part.width(), head}, {label + from, 0}), 0) << "head";
            }
        }
    }
}

TEST(Stitching, GanttChart)
{
    TzuGant chart;
    chart.resize(700, 300);
    std::vector<TzuDataEntity_Spanbar *> bars;
    for (int i = 0; i < 40; ++i) {
        TzuDataEntity_Spanbar *bar =
            chart.AddSpanbar(chart.AddRootDataEntityTree("Row " + std::to_string(i)), 0);
        bar->SetStartDateTime(kFrom + i * 1.7);
        bar->SetStopDateTime(kFrom + i * 1.7 + 3 + i % 20);
        bars.push_back(bar);
    }
    for (std::size_t i = 0; i < bars.size(); ++i) {
        TzuDataEntity_Link &link = chart.AddLink();
        link.SetFirst(bars[i]);
        link.SetSecond(bars[(i * 7 + 3) % bars.size()]);
    }
    chart.SetStart(kFrom);
    chart.SetStop(kFrom + 40);
    chart.show();
    QApplication::processEvents();
    TzuGanttPrinting printing(chart);
    printing.SetTimeScale(0.1); // times are whole pixels then, none halfway between two
    printing.SetLinkMarks(false);
    printing.SetFineness(1);
    ExpectPagesToMakeUpTheWhole(printing);
}

TEST(Stitching, Tree)
{
    TzuTree tree;
    for (int group = 0; group < 9; ++group) {
        TzuDataEntity_Tree *heading = tree.AddDataEntity();
        heading->SetText("Group " + std::to_string(group));
        for (int row = 0; row < group; ++row) {
            tree.AddDataEntity(heading)->SetText("Row " + std::to_string(row));
        }
    }
    tree.show();
    QApplication::processEvents();
    tree.FullExpand();
    TzuTreePrinting printing(tree);
    const auto length = [](const TzuDataEntity_Tree &row) {
        return QString::number(row.GetText().size());
    };
    const auto level = [](const TzuDataEntity_Tree &row) {
        return QStringLiteral("level %1").arg(row.GetLevel());
    };
    printing.Columns() = {{QStringLiteral("Row"), {}, 0, Qt::AlignLeft},
                          {QStringLiteral("Length"), length, 150, Qt::AlignRight},
                          {QStringLiteral("Level"), level, 200, Qt::AlignHCenter}};
    ExpectPagesToMakeUpTheWhole(printing);
}

TEST(Stitching, Grid)
{
    TzuGrid grid;
    grid.resize(300, 200);
    grid.OnGetCellText = [](TBabGridCell *cell, TAxisContentItem *column, TAxisContentItem *row,
                            std::string &text) {
        text = std::to_string(cell->Columns().IndexOf(*column)) + "/"
               + std::to_string(cell->Rows().IndexOf(*row))
               + (cell->Rows().IndexOf(*row) % 7 == 0 ? " some words more that wrap" : "");
    };
    grid.DefaultLayoutProp().WrapTextAndFit = true;
    for (int i = 0; i < 8; ++i) {
        TzuGrid_Column &column = grid.Columns().Add();
        column.SetHeaderText("Column " + std::to_string(i));
        column.SetWidth(60 + i * 10);
    }
    grid.AddRows(60);
    grid.show();
    QApplication::processEvents();
    TzuGridPrinting printing(grid);
    ExpectPagesToMakeUpTheWhole(printing);
}

TEST(Stitching, ScheduleInBothViews)
{
    TzuSchema schema;
    schema.resize(500, 400);
    for (int i = 0; i < 9; ++i) {
        schema.AddColumn()->SetText("Column " + std::to_string(i));
    }
    for (int i = 0; i < 60; ++i) {
        TzuDataEntity_SchemaTime *time = schema.AddSchemaTime(0);
        time->SetCol(i % 9);
        time->SetStartDateTime(kFrom + i * 0.25);
        time->SetStopDateTime(kFrom + i * 0.25 + 1);
        time->SetColor(static_cast<TColor>(0x00F0A000 + i));
        time->AddText("Time " + std::to_string(i), 3, 2, 1);
    }
    schema.SetScalerStart(kFrom);
    schema.SetScalerStop(kFrom + 16);
    schema.show();
    QApplication::processEvents();
    for (const bool flip : {false, true}) {
        schema.SetFlipView(flip);
        TzuSchemaPrinting printing(schema);
        printing.SetTimeScale(1.0 / 64);
        ExpectPagesToMakeUpTheWhole(printing, flip ? THead::BegunAnew : THead::Cut);
    }
}

} // namespace
