// Pages side by side are the whole: nothing is lost, doubled or shifted at their edges.
#include "PrintedComponents.h"
#include "PrintedPages.h"
#include "printing/qt/zuGanttPrinting.h"
#include "printing/qt/zuGridPrinting.h"
#include "printing/qt/zuSchemaPrinting.h"
#include "printing/qt/zuTreePrinting.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace korvane;
using namespace korvane::test;

namespace {

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

/// Where the time axis is. Of it, the marks are compared: labels at edges are moved, so that none
/// is cut; see AxisLabelsTest.
enum class TAxis { None, Top, Left };

void ExpectPagesToMakeUpTheWhole(TzuPrinting &printing, TAxis axis, int rightSide = 0)
{
    constexpr int kMarks = 5;
    SetBareSheet(printing, 6000, 4000);
    printing.Scaling() = {};
    printing.LayOut();
    ASSERT_EQ(printing.PageCount(), 1);
    const QImage whole = ContentImage(printing, 0);
    const TPrintPage all = printing.Layout().Page(0);
    const QSizeF size = printing.ContentSize(all);
    const int label = qRound(size.width() - all.Across.To) - rightSide;
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
            const int before = axis == TAxis::Left ? label - kMarks : 0;
            EXPECT_EQ(same({before, body, label - before, part.height()}, {before, head + top}), 0)
                << "labels";
            const int above = axis == TAxis::Top ? head - kMarks : 0;
            EXPECT_EQ(same({label, above, part.width(), head - above}, {label + from, above}), 0)
                << "head";
        }
    }
}

TEST(Stitching, GanttChartWithTreeAndWithGrid)
{
    for (const auto fill : {FillChart, FillGridChart}) {
        TzuGant chart;
        fill(chart);
        TzuGanttPrinting printing(chart);
        printing.SetTimeScale(0.1); // times are whole pixels then, none halfway between two
        printing.SetLinkMarks(false);
        printing.SetFineness(1);
        for (const bool headings : {true, false}) {
            printing.SetRepeatHeadings(headings);
            ExpectPagesToMakeUpTheWhole(printing, TAxis::Top);
        }
    }
}

TEST(Stitching, Tree)
{
    TzuTree tree;
    FillTree(tree);
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
    ExpectPagesToMakeUpTheWhole(printing, TAxis::None);
}

TEST(Stitching, GridWithOrWithoutATree)
{
    for (const auto fill : {FillGrid, FillGridTree}) {
        TzuGrid grid;
        fill(grid);
        TzuGridPrinting printing(grid);
        ExpectPagesToMakeUpTheWhole(printing, TAxis::None);
    }
}

TEST(Stitching, ScheduleInBothViewsWithOneAxisOrTwo)
{
    constexpr int kDay = 64;
    TzuSchema schema;
    FillSchedule(schema);
    schema.SetScalerWidth(170); // no label reaches its ticks
    QApplication::processEvents();
    for (const bool flip : {false, true}) {
        schema.SetFlipView(flip);
        TzuSchemaPrinting printing(schema);
        printing.SetTimeScale(1.0 / kDay);
        ExpectPagesToMakeUpTheWhole(printing, flip ? TAxis::Top : TAxis::Left);
        if (!flip) {
            printing.SetAxisAtBothEdges(true);
            ExpectPagesToMakeUpTheWhole(printing, TAxis::Left, schema.GetScalerWidth());
        }
    }
}

} // namespace
