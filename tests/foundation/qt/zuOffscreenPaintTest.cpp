#include "foundation/qt/zuOffscreenPaint.h"
#include "foundation/zuReport.h"

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPdfWriter>
#include <QPointer>
#include <QWheelEvent>

#include <gmock/gmock.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvane {
namespace {

using testing::ElementsAre;

constexpr QRgb kGreen = 0xFF00FF00;
constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kBlue = 0xFF0000FF;

/// A control that is red and logs its paints; its protected parts are in reach.
class TTestControl : public TzuOffscreenPaint
{
public:
    using TzuOffscreenPaint::SetReserved;
    using TzuOffscreenPaint::TzuOffscreenPaint;
    using TzuOffscreenPaint::WantedSpecialKeys;

    std::function<void(TCanvas &)> Drawing;
    std::function<void(TCanvas &)> Overlay;
    int Paints = 0;

protected:
    void OffscreenPaint() override
    {
        ++Paints;
        TzuOffscreenPaint::OffscreenPaint();
        if (Drawing) {
            Drawing(GetOffscreenCanvas());
        }
    }
    void OverlayPaint(TCanvas &canvas) override
    {
        if (Overlay) {
            Overlay(canvas);
        }
    }
};

class OffscreenPaintTest : public testing::Test
{
protected:
    OffscreenPaintTest()
    {
        m_control.resize(40, 30);
        m_control.SetColor(clRed);
    }

    void Show()
    {
        m_control.show();
        QCoreApplication::processEvents();
        m_control.Paints = 0;
    }

    /// The control rendered over green.
    QImage Rendered(double ratio = 1)
    {
        QImage image(qRound(40 * ratio), qRound(30 * ratio), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(kGreen);
        m_control.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }

    TTestControl m_control;
};

TEST_F(OffscreenPaintTest, InvalidationsBeforeAPaintAreOne)
{
    Show();
    for (int i = 0; i < 10; ++i) {
        m_control.Invalidate();
    }
    EXPECT_EQ(m_control.Paints, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_control.Paints, 1);
    m_control.Invalidate();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_control.Paints, 2) << "a paint makes room for the next request";
}

TEST_F(OffscreenPaintTest, UpdatesNestAndHoldBackRepaints)
{
    Show();
    m_control.Repaint();
    EXPECT_EQ(m_control.Paints, 1);
    m_control.BeginUpdate();
    m_control.BeginUpdate();
    m_control.Repaint();
    m_control.EndUpdate();
    m_control.Repaint();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_control.Paints, 1);
    m_control.EndUpdate();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_control.Paints, 2);
    m_control.EndUpdate();
    EXPECT_EQ(m_control.UpdateCount(), 0) << "an end without a beginning is tolerated";
    QCoreApplication::processEvents();
    EXPECT_EQ(m_control.Paints, 3) << "and invalidates";
}

TEST_F(OffscreenPaintTest, PaintsItsBackgroundAndFiresOnPaint)
{
    m_control.OnPaint = [&](TzuOffscreenPaint *control) {
        EXPECT_EQ(control, &m_control);
        EXPECT_EQ(control->GetOffscreenCanvas().Brush().Color, clRed);
        EXPECT_EQ(control->GetOffscreenCanvas().Font(), control->Font());
        control->GetOffscreenCanvas().FillRect({10, 10, 20, 20}, clBlue);
    };
    const QImage image = Rendered();
    EXPECT_EQ(image.pixel(0, 0), kRed);
    EXPECT_EQ(image.pixel(39, 29), kRed);
    EXPECT_EQ(image.pixel(10, 10), kBlue);
    EXPECT_FALSE(m_control.GetOffscreenCanvas().IsActive()) << "it only measures between paints";
    EXPECT_GT(m_control.GetOffscreenCanvas().TextExtent("abc").Width, 0);
}

TEST_F(OffscreenPaintTest, TheCopyLeavesReservedStripsAloneAndFillsTheCornerBetweenTwo)
{
    const QRgb face = m_control.palette().color(QPalette::Active, QPalette::Button).rgb();
    for (const auto &[right, bottom, corner] :
         {std::tuple(0, 0, kRed), {17, 0, kGreen}, {0, 9, kGreen}, {17, 9, face}}) {
        SCOPED_TRACE(testing::Message() << right << ' ' << bottom);
        m_control.SetReserved(right, bottom);
        const QImage image = Rendered();
        EXPECT_EQ(image.pixel(22, 20), kRed);
        EXPECT_EQ(image.pixel(30, 5), right > 0 ? kGreen : kRed);
        EXPECT_EQ(image.pixel(5, 25), bottom > 0 ? kGreen : kRed);
        EXPECT_EQ(image.pixel(39, 29), corner);
    }
}

TEST_F(OffscreenPaintTest, DrawsAtTheResolutionOfTheDevice)
{
    m_control.Drawing = [](TCanvas &canvas) {
        canvas.SetPenColor(clBlue);
        canvas.Line({10, 0}, {10, 29});
        canvas.SetAntialiasing(true);
        canvas.Line({20, 5}, {35, 20});
    };
    for (const double ratio : {1.0, 1.5, 2.0, 3.0}) {
        const QImage image = Rendered(ratio);
        const int width = static_cast<int>(ratio);
        for (int x = 0; x < qRound(18 * ratio); ++x) {
            const bool line = x >= qRound(10 * ratio) && x < qRound(10 * ratio) + width;
            EXPECT_EQ(image.pixel(x, 0), line ? kBlue : kRed) << "ratio " << ratio << ", x " << x;
            EXPECT_EQ(image.pixel(x, image.height() - 1), line ? kBlue : kRed) << ratio;
        }
    }
    // An enlarged copy of a coarse image would repeat each pixel of the slanted line.
    const QImage fine = Rendered(2);
    const QImage coarse = Rendered(1).scaled(80, 60);
    EXPECT_NE(fine.copy(40, 10, 30, 30), coarse.copy(40, 10, 30, 30));
}

TEST_F(OffscreenPaintTest, AnOverlayIsDrawnOverTheImageAndNeverKept)
{
    Show();
    int overlays = 0;
    m_control.Overlay = [&](TCanvas &canvas) {
        ++overlays;
        canvas.FillRect({5, 5, 10, 10}, clBlue);
    };
    m_control.InvalidateOverlay();
    QCoreApplication::processEvents();
    EXPECT_EQ(overlays, 1);
    EXPECT_EQ(m_control.Paints, 0) << "the image is still good";
    EXPECT_EQ(Rendered().pixel(7, 7), kBlue);
    m_control.Overlay = nullptr;
    m_control.InvalidateOverlay({0, 0, 12, 12});
    QCoreApplication::processEvents();
    EXPECT_EQ(Rendered().pixel(7, 7), kRed);

    m_control.Paints = 0;
    m_control.InvalidateOverlay();
    m_control.Invalidate();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_control.Paints, 1) << "a change of content is drawn all the same";
    m_control.InvalidateOverlay({0, 0, 5, 5});
    m_control.update();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_control.Paints, 2);
    m_control.resize(50, 30);
    m_control.InvalidateOverlay();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_control.Paints, 3) << "an image of another size is of no use";
}

TEST_F(OffscreenPaintTest, RendersOntoPaperAsShapes)
{
    m_control.Drawing = [](TCanvas &canvas) { canvas.FillRect({10, 10, 20, 20}, clBlue); };
    m_control.Overlay = [](TCanvas &canvas) { canvas.TextOut({2, 2}, "text"); };
    QByteArray pdf;
    QBuffer buffer(&pdf);
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
    QPdfWriter writer(&buffer);
    QPainter painter(&writer);
    m_control.render(&painter, {}, {}, QWidget::DrawChildren);
    painter.end();
    EXPECT_EQ(m_control.Paints, 1);
    EXPECT_FALSE(pdf.contains("/Subtype /Image")) << "nothing became pixels";
    EXPECT_TRUE(pdf.contains("/Type /Font"));
}

TEST_F(OffscreenPaintTest, TheFrameAndTheFontComeFromTheWidget)
{
    m_control.setFrameStyle(QFrame::Box | QFrame::Plain);
    EXPECT_NE(Rendered().pixel(0, 0), kRed);
    m_control.SetFont({.Name = "Sans", .Size = 13, .Color = clBlue, .Bold = true});
    EXPECT_EQ(m_control.Font(), (TFont{.Name = "Sans", .Size = 13, .Color = clBlue, .Bold = true}));
    EXPECT_EQ(m_control.font().pointSize(), 13);
    EXPECT_EQ(m_control.GetOffscreenCanvas().Font(), m_control.Font());
}

TEST_F(OffscreenPaintTest, MeasuringPaintTimeWritesOnTheControl)
{
    EXPECT_EQ(Rendered().pixel(10, 10), kRed);
    m_control.SetMeasurePaintTime(true);
    EXPECT_EQ(Rendered().pixel(10, 10), 0xFF000000);
}

TEST_F(OffscreenPaintTest, AFailingPaintIsReportedOnceAndShowsWhatWasDrawn)
{
    std::vector<std::string> reports;
    const TReportHook before =
        SetReportHook([&](std::string_view text) { reports.emplace_back(text); });
    m_control.Drawing = [](TCanvas &canvas) {
        canvas.FillRect({0, 0, 10, 10}, clBlue);
        throw std::runtime_error("cannot draw");
    };
    EXPECT_EQ(Rendered().pixel(5, 5), kBlue);
    Rendered();
    EXPECT_THAT(reports, ElementsAre("cannot draw"));
    m_control.Drawing = nullptr;
    EXPECT_EQ(Rendered().pixel(5, 5), kRed);
    SetReportHook(before);
}

// Printing

class PrintTest : public OffscreenPaintTest
{
protected:
    PrintTest() { m_page.fill(kGreen); }

    QImage m_page{200, 150, QImage::Format_RGB32};
};

TEST_F(PrintTest, DrawsEnlargedAndClippedAtItsPlace)
{
    std::vector<std::string> log;
    m_control.OnPaint = [&](TzuOffscreenPaint *control) {
        log.emplace_back("paint");
        EXPECT_TRUE(control->GetIsPrinting());
        EXPECT_TRUE(control->GetAssignedPrintingCanvas());
        EXPECT_EQ(control->Width(), 80);
        EXPECT_EQ(control->Height(), 90);
        EXPECT_EQ(control->GetScalex(), 2);
        EXPECT_EQ(control->GetScaley(), 3);
        control->GetOffscreenCanvas().FillRect({-100, -100, 500, 500}, clBlue);
    };
    m_control.OnAfterPrint = [&](TzuOffscreenPaint *control) {
        log.emplace_back("after");
        EXPECT_TRUE(control->GetIsPrinting());
    };
    QPainter device(&m_page);
    m_control.Print(device, 20, 10, 2, 3);
    EXPECT_THAT(log, ElementsAre("paint", "after"));
    for (const QPoint inside : {QPoint(20, 10), QPoint(99, 99)}) {
        EXPECT_EQ(m_page.pixel(inside), kBlue);
    }
    for (const QPoint outside : {QPoint(19, 50), QPoint(50, 9), QPoint(100, 50), QPoint(50, 100)}) {
        EXPECT_EQ(m_page.pixel(outside), kGreen);
    }
    EXPECT_EQ(m_control.GetScalex(), 1.0) << "scales count while printing only";
    EXPECT_EQ(m_control.GetScaley(), 1.0);
}

TEST_F(PrintTest, SizesRoundToTheNearestPixel)
{
    int width = -1;
    m_control.OnPaint = [&](TzuOffscreenPaint *control) { width = control->Width(); };
    QPainter device(&m_page);
    for (const auto &[scale, expected] :
         {std::pair(0.5, 20), {1.0125, 40}, {1.0375, 42}, {0.0, 0}}) {
        m_control.Print(device, 0, 0, scale, 1);
        EXPECT_EQ(width, expected) << scale;
    }
}

TEST_F(PrintTest, EverythingIsRestoredAlsoWhenPaintingThrows)
{
    Show();
    QPainter device(&m_page);
    device.translate(3, 4);
    device.setClipRect(0, 0, 100, 100);
    const QTransform transform = device.transform();
    const QRegion clip = device.clipRegion();
    for (const std::string failing : {"drawing", "afterwards", ""}) {
        if (failing == "drawing") {
            m_control.Drawing = [](TCanvas &canvas) {
                canvas.PushClip({0, 0, 5, 5});
                throw std::runtime_error("while drawing");
            };
        } else if (!failing.empty()) {
            m_control.OnAfterPrint = [](TzuOffscreenPaint *) { throw std::runtime_error("after"); };
        }
        const auto print = [&] { m_control.Print(device, 20, 10, 2, 3); };
        if (failing.empty()) {
            print();
        } else {
            EXPECT_THROW(print(), std::runtime_error);
        }
        EXPECT_EQ(device.transform(), transform);
        EXPECT_EQ(device.clipRegion(), clip);
        EXPECT_FALSE(m_control.GetIsPrinting());
        EXPECT_FALSE(m_control.GetAssignedPrintingCanvas());
        EXPECT_EQ(QSize(m_control.Width(), m_control.Height()), QSize(40, 30));
        m_control.Paints = 0;
        m_control.Drawing = nullptr;
        m_control.OnAfterPrint = nullptr;
        QCoreApplication::processEvents();
        EXPECT_EQ(m_control.Paints, 1) << "a print invalidates";
    }
    QPainter inactive;
    EXPECT_THROW(m_control.Print(inactive, 0, 0, 1, 1), std::invalid_argument);
    EXPECT_FALSE(m_control.GetIsPrinting());
}

TEST_F(PrintTest, TheControlMayBeDestroyedAfterItsPrint)
{
    auto *doomed = new TzuOffscreenPaint;
    const QPointer<TzuOffscreenPaint> watch(doomed);
    doomed->resize(10, 10);
    doomed->OnAfterPrint = [](TzuOffscreenPaint *control) { delete control; };
    QPainter device(&m_page);
    doomed->Print(device, 5, 5, 1, 1);
    EXPECT_TRUE(watch.isNull());
    EXPECT_TRUE(device.transform().isIdentity());
}

TEST_F(PrintTest, PrintModeNestsWithoutAPrint)
{
    m_control.BeginPrint();
    m_control.BeginPrint();
    m_control.EndPrint();
    EXPECT_TRUE(m_control.GetIsPrinting());
    EXPECT_FALSE(m_control.GetAssignedPrintingCanvas());
    m_control.GetOffscreenCanvas().TextExtent("laid out with the usual canvas");
    m_control.EndPrint();
    EXPECT_FALSE(m_control.GetIsPrinting());
}

TEST_F(PrintTest, FontsGrowByHalfTheScalePlusOne)
{
    using THandler = TzuOffscreenPaint::TOnPrintResizeFont;
    const THandler own = [](TzuOffscreenPaint *, int &size, bool &standard) {
        EXPECT_EQ(size, 8);
        size = 30;
        standard = false;
    };
    const THandler changesSize = [](TzuOffscreenPaint *, int &size, bool &) { size = 20; };
    const std::tuple<double, int, THandler, int> cases[] = {
        {2, 8, nullptr, 16},    {1, 8, nullptr, 8},
        {3, 10, nullptr, 25},   {1.5, 10, nullptr, 18},  // a tie, to the even size
        {0.5, 8, nullptr, 8},                            // never shrunk
        {2, 8, own, 30},                                 // the handler's own size
        {1, 8, own, 30},        {2, 8, changesSize, 40}, // the handler's size, enlarged
        {1, 8, changesSize, 8},
    };
    TCanvas &canvas = m_control.GetOffscreenCanvas();
    for (const auto &[scale, before, handler, after] : cases) {
        int size = 0;
        m_control.OnPrintResizeFont = handler;
        m_control.OnPaint = [&, before = before](TzuOffscreenPaint *control) {
            control->GetOffscreenCanvas().SetFont({.Size = before});
            control->PrintResizeFont();
            size = control->GetOffscreenCanvas().Font().Size;
        };
        QPainter device(&m_page);
        m_control.Print(device, 0, 0, scale, 1);
        EXPECT_EQ(size, after) << scale << ' ' << before;
    }
    canvas.SetFont({.Size = 8});
    m_control.PrintResizeFont();
    EXPECT_EQ(canvas.Font().Size, 8) << "on screen nothing happens";
}

// Input

TEST_F(OffscreenPaintTest, SetSizeDontTellMovesWithoutNotice)
{
    int resizes = 0;
    m_control.OnResize = [&](TzuOffscreenPaint *) { ++resizes; };
    m_control.SetSizeDontTell({5, 6, 105, 56});
    EXPECT_EQ(m_control.geometry(), QRect(5, 6, 100, 50));
    Show();
    const int shown = resizes;
    m_control.SetSizeDontTell({5, 6, 65, 56});
    EXPECT_EQ(m_control.Width(), 60);
    EXPECT_EQ(resizes, shown);
    m_control.resize(70, 50);
    EXPECT_EQ(resizes, shown + 1);
}

TEST_F(OffscreenPaintTest, ClaimedKeysReachTheControlInsteadOfMovingTheFocus)
{
    QWidget window;
    auto *control = new TTestControl(&window);
    auto *other = new QWidget(&window);
    control->SetTabStop(true);
    other->setFocusPolicy(Qt::StrongFocus);
    window.show();
    QApplication::setActiveWindow(&window);
    control->setFocus();
    std::vector<int> keys;
    control->OnKeyDown = [&](TzuOffscreenPaint *, int &key, TShiftState) {
        keys.push_back(key);
        key = 0;
    };
    const auto press = [&](int key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(control, &event);
    };
    const auto overrides = [&](int key) {
        QKeyEvent event(QEvent::ShortcutOverride, key, Qt::NoModifier);
        event.ignore();
        QApplication::sendEvent(control, &event);
        return event.isAccepted();
    };
    control->WantedSpecialKeys = {Qt::Key_Tab, Qt::Key_Delete};
    press(Qt::Key_Tab);
    EXPECT_THAT(keys, ElementsAre(Qt::Key_Tab));
    EXPECT_TRUE(control->hasFocus());
    EXPECT_TRUE(overrides(Qt::Key_Delete));
    EXPECT_FALSE(overrides(Qt::Key_Insert));
    control->WantedSpecialKeys.clear();
    press(Qt::Key_Tab);
    EXPECT_EQ(keys.size(), 1U);
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(OffscreenPaintTest, FocusChangesRepaint)
{
    m_control.SetTabStop(true);
    Show();
    std::vector<std::string> log;
    m_control.OnEnter = [&](TzuOffscreenPaint *) { log.emplace_back("enter"); };
    m_control.OnExit = [&](TzuOffscreenPaint *) { log.emplace_back("exit"); };
    for (const auto type : {QEvent::FocusIn, QEvent::FocusOut}) {
        m_control.Paints = 0;
        QFocusEvent event(type);
        QApplication::sendEvent(&m_control, &event);
        QCoreApplication::processEvents();
        EXPECT_EQ(m_control.Paints, 1) << type;
    }
    EXPECT_THAT(log, ElementsAre("enter", "exit"));
}

TEST_F(OffscreenPaintTest, WheelMessagesReachTheirHandler)
{
    int delta = 0;
    m_control.OnWheelMessage = [&](QWheelEvent &message) {
        delta = message.angleDelta().y();
        message.accept();
    };
    QWheelEvent event({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&m_control, &event);
    EXPECT_EQ(delta, -120);
    EXPECT_TRUE(event.isAccepted());
}

class MouseTest : public OffscreenPaintTest
{
protected:
    void Send(TzuOffscreenPaint *control, QEvent::Type type, QPointF at,
              Qt::MouseButton button = Qt::LeftButton)
    {
        QMouseEvent event(type, at, at, button, button, Qt::ShiftModifier);
        QApplication::sendEvent(control, &event);
    }
};

TEST_F(MouseTest, AClickIsAPressAndAReleaseInside)
{
    std::string log;
    m_control.OnMouseDown = [&](TzuOffscreenPaint *, TMouseButton button, TShiftState shift, int x,
                                int y) {
        EXPECT_TRUE(shift.Shift && x == 5 && y == 6);
        log += button == TMouseButton::mbLeft ? "left " : "other ";
    };
    m_control.OnMouseUp = [&](TzuOffscreenPaint *, TMouseButton, TShiftState, int, int) {
        log += "up ";
    };
    m_control.OnClick = [&](TzuOffscreenPaint *) { log += "click "; };
    m_control.OnDblClick = [&](TzuOffscreenPaint *) { log += "double "; };
    const std::tuple<QEvent::Type, QPointF, Qt::MouseButton, std::string> cases[] = {
        {QEvent::MouseButtonPress, {7, 6}, Qt::LeftButton, "left click up "},
        {QEvent::MouseButtonDblClick, {5, 6}, Qt::LeftButton, "double left up "},
        {QEvent::MouseButtonPress, {50, 6}, Qt::LeftButton, "left up "},
        {QEvent::MouseButtonPress, {5, 6}, Qt::RightButton, "other up "},
    };
    for (const auto &[press, released, button, expected] : cases) {
        log.clear();
        Send(&m_control, press, {5, 6}, button);
        Send(&m_control, QEvent::MouseButtonRelease, released, button);
        EXPECT_EQ(log, expected);
    }
}

TEST_F(MouseTest, AHandlerMayDestroyTheControl)
{
    const auto destroy = [](TzuOffscreenPaint *control) { delete control; };
    for (const auto doom :
         {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick}) {
        auto *control = new TzuOffscreenPaint;
        const QPointer<TzuOffscreenPaint> watch(control);
        control->resize(40, 30);
        control->OnMouseUp = [](TzuOffscreenPaint *, TMouseButton, TShiftState, int, int) {};
        if (doom == QEvent::MouseButtonPress) {
            control->OnMouseDown = [](TzuOffscreenPaint *self, TMouseButton, TShiftState, int,
                                      int) { delete self; };
        } else if (doom == QEvent::MouseButtonRelease) {
            control->OnClick = destroy;
        } else {
            control->OnDblClick = destroy;
        }
        for (const auto type :
             {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick}) {
            if (watch) {
                Send(control, type, {5, 5});
            }
        }
        EXPECT_TRUE(watch.isNull()) << doom;
    }
}

} // namespace
} // namespace korvane
