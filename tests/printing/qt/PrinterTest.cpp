// What printers are given, and what becomes of a component while it is printed.
#include "PrintedComponents.h"
#include "PrintedPages.h"
#include "printing/qt/zuGanttPrinting.h"
#include "printing/qt/zuGridPrinting.h"
#include "printing/qt/zuSchemaPrinting.h"
#include "printing/qt/zuTreePrinting.h"

#include <QMap>
#include <QPaintEngine>
#include <QPrintEngine>
#include <QPrinter>

#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <utility>

using namespace korvane;
using namespace korvane::test;

namespace {

/// Cannot be stopped: whatever was begun comes out.
class TEngine : public QPaintEngine, public QPrintEngine
{
public:
    TEngine()
        : QPaintEngine(AllFeatures)
    {
    }

    int Jobs = 0;
    int Pages = 0; ///< of the job that runs
    int Printed = 0;
    int Texts = 0;

    bool begin(QPaintDevice *) override
    {
        ++Jobs;
        Pages = 1;
        return true;
    }
    bool end() override
    {
        Printed = std::exchange(Pages, 0);
        return true;
    }
    bool newPage() override
    {
        ++Pages;
        return true;
    }
    bool abort() override { return false; }
    Type type() const override { return Pdf; }
    void updateState(const QPaintEngineState &) override {}
    void drawTextItem(const QPointF &, const QTextItem &) override { ++Texts; }
    void drawPath(const QPainterPath &) override {}
    void drawPolygon(const QPointF *, int, PolygonDrawMode) override {}
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}
    void setProperty(PrintEnginePropertyKey key, const QVariant &value) override
    {
        m_properties[key] = value;
    }
    QVariant property(PrintEnginePropertyKey key) const override { return m_properties[key]; }
    int metric(QPaintDevice::PaintDeviceMetric metric) const override
    {
        return metric == QPaintDevice::PdmDepth ? 32 : 600;
    }
    QPrinter::PrinterState printerState() const override
    {
        return Pages > 0 ? QPrinter::Active : QPrinter::Idle;
    }

private:
    QMap<PrintEnginePropertyKey, QVariant> m_properties;
};

class TPrinter : public QPrinter
{
public:
    explicit TPrinter(TEngine &engine)
    {
        engine.setProperty(QPrintEngine::PPK_PrinterName, QStringLiteral("Test"));
        engine.setProperty(QPrintEngine::PPK_Resolution, 600);
        engine.setProperty(QPrintEngine::PPK_QPageLayout, QVariant::fromValue(QPageLayout()));
        setEngines(&engine, &engine);
    }
};

TEST(Printer, GetsNothingOfAJobThatIsCancelledOrFails)
{
    TzuTree tree;
    FillTree(tree);
    TzuTreePrinting printing(tree);
    SetBareSheet(printing, 300, 200);
    TEngine engine;
    TPrinter printer(engine);

    printing.OnProgress = [](int page, int, bool &cancel) { cancel = page == 3; };
    EXPECT_FALSE(printing.Print(printer));
    printing.OnProgress = nullptr;
    tree.OnCustomDrawItem = [](TObject *, TzuDataEntity_Tree *row, TTreeItemLook &) {
        if (row->GetText() == "Group 8") {
            throw std::logic_error("drawing failed");
        }
    };
    EXPECT_THROW(printing.Print(printer), std::logic_error);
    tree.OnCustomDrawItem = nullptr;
    EXPECT_EQ(engine.Jobs, 0);

    EXPECT_TRUE(printing.Print(printer));
    EXPECT_EQ(engine.Jobs, 1);
    EXPECT_EQ(engine.Printed, printing.PageCount());
    int rows = 0;
    for (auto *row = tree.GetNextVisible(nullptr); row != nullptr; row = tree.GetNextVisible(row)) {
        ++rows;
    }
    EXPECT_GE(engine.Texts, rows);
    printer.setFromTo(2, 3);
    EXPECT_TRUE(printing.Print(printer));
    EXPECT_EQ(engine.Printed, 2);

    engine.setProperty(QPrintEngine::PPK_PrinterName, QString());
    EXPECT_THROW(printing.Print(printer), std::runtime_error);
    EXPECT_EQ(engine.Jobs, 2);
}

TEST(Printer, ComponentsAndPainterAreAsBeforeAlsoWhenAHandlerThrows)
{
    TzuGant chart;
    TzuGant gridChart;
    TzuTree tree;
    TzuGrid grid;
    TzuSchema schedule;
    FillChart(chart);
    FillGridChart(gridChart);
    FillTree(tree);
    FillGrid(grid);
    FillSchedule(schedule);
    TzuGanttPrinting charts(chart);
    TzuGanttPrinting gridCharts(gridChart);
    TzuTreePrinting trees(tree);
    TzuGridPrinting grids(grid);
    TzuSchemaPrinting schedules(schedule);
    int drawn = 0;
    const auto fail = [&](auto &&...) {
        if (++drawn == 1) {
            throw std::logic_error("drawing failed");
        }
    };
    struct TCase
    {
        QWidget &Component;
        TzuPrinting &Printing;
        std::function<void(bool)> SetFailing;
    };
    const auto arm = [&fail](auto &slot) {
        return [&slot, &fail](bool on) {
            if (on) {
                slot = fail;
            } else {
                slot = nullptr;
            }
        };
    };
    const TCase cases[] = {
        {chart, charts, arm(chart.OnUserDrawForeground)},
        {gridChart, gridCharts, arm(gridChart.Grid().OnBeforeRenderCell)},
        {tree, trees, arm(tree.OnCustomDrawItem)},
        {grid, grids, arm(grid.OnUserRenderCell)},
        {schedule, schedules, arm(schedule.OnDrawForeground)},
    };
    for (const auto &[component, printing, setFailing] : cases) {
        SCOPED_TRACE(component.metaObject()->className());
        QApplication::processEvents();
        const QImage before = component.grab().toImage();
        const QRect bounds = component.geometry();
        SetBareSheet(printing, 390, 330);
        printing.LayOut();
        QImage image(400, 340, QImage::Format_RGB32);
        QPainter painter(&image);
        painter.setPen(Qt::red);
        painter.translate(3, 4);
        painter.setClipRect(0, 0, 380, 320);
        const QTransform transform = painter.transform();
        const QRegion clip = painter.clipRegion();
        for (const bool failing : {true, false}) {
            drawn = 0;
            setFailing(failing);
            const auto print = [&] { printing.PaintPage(painter, {0, 0, 390, 330}, 1); };
            if (failing) {
                EXPECT_THROW(print(), std::logic_error);
            } else {
                print();
            }
            setFailing(false);
            EXPECT_EQ(painter.transform(), transform);
            EXPECT_EQ(painter.clipRegion(), clip);
            EXPECT_EQ(painter.pen().color(), QColor(Qt::red));
            for (const auto *part : component.findChildren<TzuOffscreenPaint *>()) {
                EXPECT_FALSE(part->GetIsPrinting());
            }
            EXPECT_EQ(component.geometry(), bounds);
            QApplication::processEvents();
            EXPECT_EQ(component.grab().toImage(), before);
        }
    }
}

TEST(Printer, AGridIsPrintedEnlarged)
{
    TzuGrid grid;
    FillGrid(grid);
    const TRect cell = grid.CellRect({&grid.RootCell(), 2, 2});
    for (const double scale : {1.0, 2.0, 3.0}) {
        int fonts = 0;
        grid.OnPrintResizeFont = [&](TzuOffscreenPaint *caller, int &size, bool &) {
            EXPECT_EQ(caller, &grid);
            EXPECT_EQ(size, grid.Font().Size);
            ++fonts;
        };
        QImage page(1000, 700, QImage::Format_RGB32);
        page.fill(Qt::white);
        QPainter painter(&page);
        grid.Print(painter, 0, 0, scale, scale);
        EXPECT_GT(fonts, 0);
        const auto at = [&](double x, double y) {
            return page.pixel(static_cast<int>(x * scale), static_cast<int>(y * scale));
        };
        // Its lines are where its edges are, and nowhere within it but for the text.
        const auto y = (cell.Top + cell.Bottom) / 2.0;
        const int right = static_cast<int>(cell.Right * scale) - 1;
        EXPECT_NE(page.pixel(right, static_cast<int>(y * scale)), qRgb(255, 255, 255));
        EXPECT_EQ(at(cell.Right - 3, cell.Top + 2), qRgb(255, 255, 255));
        EXPECT_EQ(page.pixel(static_cast<int>(grid.width() * scale) + 1, 50), qRgb(255, 255, 255));
    }
}

} // namespace
