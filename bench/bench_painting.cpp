// What drawing through the painter-backed canvas costs in an image of 1400 by 900, per thousand
// operations, and what one paint of an empty control costs.
#include "foundation/qt/zuOffscreenPaint.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <array>
#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace {

using namespace korvane;

constexpr int kWidth = 1400;
constexpr int kHeight = 900;
constexpr int kCount = 1000;

/// The place of the bar or text with a number.
TPoint PlaceOf(int number)
{
    return {number * 37 % (kWidth - 60), number * 53 % (kHeight - 14)};
}

TRect BarOf(int number)
{
    const TPoint at = PlaceOf(number);
    return {at.X, at.Y, at.X + 60, at.Y + 14};
}

/// Times a drawing of kCount items as paints of a control would do it.
template <typename Drawing>
void Paint(benchmark::State &state, Drawing drawing)
{
    const auto fonts = std::make_shared<TCanvasFonts>();
    const double ratio = static_cast<double>(state.range(0));
    QImage image(QSize(kWidth, kHeight) * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    for (auto _ : state) {
        QPainter painter(&image);
        TPainterCanvas canvas(painter, {0, 0, kWidth, kHeight}, QGuiApplication::palette(), fonts);
        for (int i = 0; i < kCount; ++i) {
            drawing(canvas, i);
        }
    }
}

void Bars(benchmark::State &state)
{
    Paint(state, [](TCanvas &canvas, int i) { canvas.FillRect(BarOf(i), clGreen); });
}

void FramedBars(benchmark::State &state)
{
    Paint(state, [](TCanvas &canvas, int i) {
        canvas.FillRect(BarOf(i), clGreen);
        canvas.SetBrushColor(clBlack);
        canvas.FrameRect(BarOf(i));
    });
}

void GradientBars(benchmark::State &state)
{
    Paint(state, [](TCanvas &canvas, int i) { canvas.FillGradient(BarOf(i), clWhite, clGreen); });
}

void CheckeredBars(benchmark::State &state)
{
    Paint(state, [](TCanvas &canvas, int i) {
        canvas.SetBrush({clWhite, TBrushStyle::bsPattern, {clGreen, clOlive, clOlive, clGreen}});
        canvas.FillRect(BarOf(i));
    });
}

void StraightRoutes(benchmark::State &state)
{
    Paint(state, [](TCanvas &canvas, int i) {
        const TPoint at = PlaceOf(i);
        const std::array route{at, TPoint{at.X + 20, at.Y}, TPoint{at.X + 20, at.Y + 12},
                               TPoint{at.X + 50, at.Y + 12}};
        canvas.SetPenColor(clBlue);
        canvas.Polyline(route);
    });
}

void SmoothDiamonds(benchmark::State &state)
{
    Paint(state, [](TCanvas &canvas, int i) {
        const TPoint at = PlaceOf(i);
        const std::array corners{TPoint{at.X + 6, at.Y}, TPoint{at.X + 12, at.Y + 6},
                                 TPoint{at.X + 6, at.Y + 12}, TPoint{at.X, at.Y + 6}};
        canvas.SetAntialiasing(true);
        canvas.SetBrushColor(clBlue);
        canvas.Polygon(corners);
    });
}

std::vector<std::string> Labels()
{
    std::vector<std::string> result;
    for (int i = 0; i < kCount; ++i) {
        result.push_back("Task number " + std::to_string(i));
    }
    return result;
}

/// The same texts in every paint.
void RepeatedTexts(benchmark::State &state)
{
    const std::vector<std::string> labels = Labels();
    Paint(state, [&](TCanvas &canvas, int i) {
        canvas.TextOut(PlaceOf(i), labels[static_cast<std::size_t>(i)]);
    });
}

void ClippedTexts(benchmark::State &state)
{
    const std::vector<std::string> labels = Labels();
    Paint(state, [&](TCanvas &canvas, int i) {
        canvas.TextRect(BarOf(i), PlaceOf(i), labels[static_cast<std::size_t>(i)]);
    });
}

void NewTexts(benchmark::State &state)
{
    int number = 0;
    Paint(state, [&](TCanvas &canvas, int i) {
        canvas.TextOut(PlaceOf(i), "Task number " + std::to_string(++number));
    });
}

BENCHMARK(Bars)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
BENCHMARK(FramedBars)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
BENCHMARK(GradientBars)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
BENCHMARK(CheckeredBars)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
BENCHMARK(StraightRoutes)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
BENCHMARK(SmoothDiamonds)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
BENCHMARK(RepeatedTexts)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
BENCHMARK(ClippedTexts)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
BENCHMARK(NewTexts)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

/// An empty control as it comes: fill the image and copy it to the window.
void EmptyPaint(benchmark::State &state)
{
    TzuOffscreenPaint control;
    control.resize(kWidth, kHeight);
    control.show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        control.Invalidate();
        control.Repaint();
    }
}

/// Only the outline of a gesture moves.
void OverlayPaint(benchmark::State &state)
{
    TzuOffscreenPaint control;
    control.resize(kWidth, kHeight);
    control.show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        control.InvalidateOverlay({100, 100, 200, 130});
        QCoreApplication::processEvents();
    }
}

BENCHMARK(EmptyPaint)->Unit(benchmark::kMicrosecond);
BENCHMARK(OverlayPaint)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
