#include "foundation/qt/zuImageList.h"
#include "foundation/qt/zuPainterCanvas.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QPicture>

#include <array>
#include <functional>
#include <gmock/gmock.h>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace korvane {
namespace {

constexpr QRgb kWhite = 0xFFFFFFFF;
constexpr QRgb kBlack = 0xFF000000;
constexpr QRgb kRed = 0xFFFF0000;
const TRect kBounds{0, 0, 40, 30};

using TDrawing = std::function<void(TPainterCanvas &)>;

/// A white picture of kBounds at a device-pixel ratio with a drawing on it.
QImage Drawn(const TDrawing &drawing, double ratio = 1)
{
    QImage image(qRound(kBounds.Width() * ratio), qRound(kBounds.Height() * ratio),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(kWhite);
    QPainter painter(&image);
    TPainterCanvas canvas(painter, kBounds, QGuiApplication::palette());
    drawing(canvas);
    return image;
}

/// The smallest rectangle of device pixels that holds everything that is not white.
QRect InkOf(const QImage &image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != kWhite) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

std::set<QRgb> ColorsOf(const QImage &image, const QRect &rect)
{
    std::set<QRgb> colors;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x) {
            colors.insert(image.pixel(x, y));
        }
    }
    return colors;
}

TEST(PainterCanvas, StraightLinesAreWholeDevicePixelsAndIncludeBothEnds)
{
    struct Case
    {
        double Ratio;
        std::array<TPoint, 2> Points;
        int Width;
        QRect Ink; // in device pixels
    };
    const Case cases[] = {
        {1, {{{2, 3}, {8, 3}}}, 1, {2, 3, 7, 1}},     {1, {{{5, 20}, {5, 4}}}, 1, {5, 4, 1, 17}},
        {1, {{{7, 7}, {7, 7}}}, 1, {7, 7, 1, 1}},     {2, {{{2, 3}, {8, 3}}}, 1, {4, 6, 14, 2}},
        {2, {{{5, 4}, {5, 20}}}, 1, {10, 8, 2, 34}},  {1.5, {{{5, 4}, {5, 20}}}, 1, {8, 6, 1, 25}},
        {1.5, {{{6, 4}, {6, 20}}}, 1, {9, 6, 1, 25}}, {1, {{{10, 4}, {10, 20}}}, 3, {9, 3, 3, 19}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(&c - cases);
        for (const bool smooth : {false, true}) {
            const QImage image = Drawn(
                [&](TPainterCanvas &canvas) {
                    canvas.SetAntialiasing(smooth);
                    canvas.SetPen({clRed, c.Width, TPenStyle::psSolid});
                    canvas.Polyline(c.Points);
                },
                c.Ratio);
            EXPECT_EQ(InkOf(image), c.Ink);
            EXPECT_EQ(ColorsOf(image, c.Ink), std::set{kRed});
        }
    }
}

TEST(PainterCanvas, FramesAreOneSharpLineInsideTheRectangle)
{
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        const QImage image = Drawn(
            [](TPainterCanvas &canvas) {
                canvas.SetBrushColor(clRed);
                canvas.FrameRect({4, 4, 24, 20});
            },
            ratio);
        SCOPED_TRACE(ratio);
        const QRect ink = InkOf(image);
        const int line = static_cast<int>(ratio);
        EXPECT_EQ(ink.topLeft(), QPoint(qRound(4 * ratio), qRound(4 * ratio)));
        EXPECT_EQ(ink.right() + 1, qRound(24 * ratio));
        EXPECT_EQ(ink.bottom() + 1, qRound(20 * ratio));
        EXPECT_EQ(ColorsOf(image, ink), (std::set{kRed, kWhite})) << "nothing is blurred";
        EXPECT_EQ(ColorsOf(image, ink.adjusted(line, line, -line, -line)), std::set{kWhite});
    }
}

TEST(PainterCanvas, SlantedLinesPassThroughThePixelsOfTheirEnds)
{
    const std::array line{TPoint{3, 3}, TPoint{12, 12}};
    const QImage image = Drawn([&](TPainterCanvas &canvas) {
        canvas.SetPenColor(clRed);
        canvas.Polyline(line);
    });
    EXPECT_EQ(InkOf(image), QRect(3, 3, 10, 10));
    for (int i = 3; i <= 12; ++i) {
        EXPECT_EQ(image.pixel(i, i), kRed) << i;
    }
    const QImage smooth = Drawn([&](TPainterCanvas &canvas) {
        canvas.SetAntialiasing(true);
        canvas.SetPenColor(clRed);
        canvas.Polyline(line);
    });
    EXPECT_GT(ColorsOf(smooth, smooth.rect()).size(), 2U) << "edges are smoothed on request";
}

TEST(PainterCanvas, FillsLeaveOutTheRightAndBottomEdge)
{
    const TRect rect{5, 6, 15, 12};
    const QRect all(5, 6, 10, 6);
    const TRect empty{5, 6, 5, 12};
    const TRect inverted{15, 12, 5, 6};
    const TBrush clear{clRed, TBrushStyle::bsClear, {}};
    const std::pair<TDrawing, QRect> cases[] = {
        {[&](TPainterCanvas &c) { c.FillRect(rect, clRed); }, all},
        {[&](TPainterCanvas &c) { c.FillGradient(rect, clRed, clBlue); }, all},
        {[&](TPainterCanvas &c) { c.SetPenColor(clBlack), c.Ellipse(rect); }, all},
        {[&](TPainterCanvas &c) { c.DrawFocusRect(rect); }, all},
        {[&](TPainterCanvas &c) { c.FillRect(empty, clRed); }, {}},
        {[&](TPainterCanvas &c) { c.FillRect(inverted, clRed); }, {}},
        {[&](TPainterCanvas &c) { c.SetBrush(clear), c.FillRect(rect); }, {}},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(InkOf(Drawn(c.first)), c.second) << "case " << &c - cases;
    }
}

TEST(PainterCanvas, APolygonWithoutPenFillsItsInsideOnly)
{
    const std::array corners{TPoint{5, 5}, TPoint{20, 5}, TPoint{20, 15}, TPoint{5, 15}};
    const auto drawn = [&](TPenStyle style) {
        return Drawn([&](TPainterCanvas &canvas) {
            canvas.SetPen({clBlack, 1, style});
            canvas.SetBrushColor(clRed);
            canvas.Polygon(corners);
        });
    };
    const QImage image = drawn(TPenStyle::psClear);
    EXPECT_EQ(image.pixel(12, 10), kRed);
    EXPECT_EQ(ColorsOf(image, image.rect()), (std::set{kRed, kWhite}));
    const QImage outlined = drawn(TPenStyle::psSolid);
    EXPECT_EQ(InkOf(outlined), QRect(5, 5, 16, 11)) << "the outline runs through the corners";
    EXPECT_EQ(outlined.pixel(5, 10), kBlack);
    EXPECT_EQ(outlined.pixel(6, 10), kRed);
}

TEST(PainterCanvas, PatternsAreAnchoredAtTheOriginInWholeSquares)
{
    for (const double ratio : {1.0, 2.0, 3.0}) {
        const int square = static_cast<int>(ratio);
        const QImage image = Drawn(
            [](TPainterCanvas &canvas) {
                canvas.SetBrush({clWhite, TBrushStyle::bsPattern, {clRed, clBlack, clBlue, clRed}});
                canvas.FillRect({3, 3, 40, 30});
            },
            ratio);
        SCOPED_TRACE(ratio);
        const auto at = [&](int x, int y) { return image.pixel(x * square, y * square); };
        EXPECT_EQ(at(4, 4), kRed);
        EXPECT_EQ(at(4, 5), 0xFF0000FF);
        EXPECT_EQ(at(35, 25), kRed) << "repeats without a seam";
        EXPECT_EQ(ColorsOf(image, QRect(5 * square, 4 * square, square, square)), std::set{kBlack});
        EXPECT_EQ(at(2, 3), kWhite);
    }
}

TEST(PainterCanvas, ClipsNestAndTextRectsClipTheirText)
{
    const QImage image = Drawn([](TPainterCanvas &canvas) {
        EXPECT_EQ(canvas.ClipRect(), kBounds);
        const TClipScope outer(canvas, {5, 5, 30, 20});
        {
            const TClipScope inner(canvas, {10, 0, 50, 50});
            EXPECT_EQ(canvas.ClipRect(), (TRect{10, 5, 30, 20}));
            canvas.FillRect(kBounds, clRed);
        }
        canvas.FillRect({0, 0, 7, 30}, clRed);
        EXPECT_EQ(canvas.ClipRect(), (TRect{5, 5, 30, 20}));
    });
    EXPECT_EQ(InkOf(image), QRect(5, 5, 25, 15));
    EXPECT_EQ(image.pixel(8, 10), kWhite);

    const QImage text = Drawn([](TPainterCanvas &canvas) {
        canvas.TextRect({4, 2, 12, 20}, {2, 2}, "MMMMMM");
        canvas.FillRect({30, 20, 40, 30}, clRed);
    });
    EXPECT_TRUE(QRect(4, 2, 8, 18).contains(InkOf(text.copy(0, 0, 30, 20))));
    EXPECT_EQ(text.pixel(35, 25), kRed) << "the clip ends with the text";
}

TEST(PainterCanvas, KeepsTheClipThatThePainterCameWith)
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(kWhite);
    QPainter painter(&image);
    painter.setClipRegion(QRegion(0, 0, 10, 30) + QRegion(20, 0, 10, 30));
    TPainterCanvas canvas(painter, kBounds, {});
    EXPECT_EQ(canvas.ClipRect(), (TRect{0, 0, 30, 30}));
    {
        const TClipScope clip(canvas, {5, 5, 25, 10});
        canvas.FillRect(kBounds, clRed);
    }
    EXPECT_EQ(image.pixel(7, 7), kRed);
    EXPECT_EQ(image.pixel(15, 7), kWhite);
    canvas.FillRect(kBounds, clRed);
    EXPECT_EQ(image.pixel(2, 20), kRed);
    EXPECT_EQ(image.pixel(15, 20), kWhite);
    EXPECT_EQ(image.pixel(35, 20), kWhite);
}

TEST(PainterCanvas, TextLooksTheSameHoweverOftenItIsDrawn)
{
    auto fonts = std::make_shared<TCanvasFonts>();
    for (const double ratio : {1.0, 2.0}) {
        for (const char *text : {"Ag, fi", "Überprüfung", "日本語 mixed", "a\tb\nc"}) {
            const auto draw = [&] {
                QImage image(qRound(200 * ratio), qRound(40 * ratio), QImage::Format_RGB32);
                image.setDevicePixelRatio(ratio);
                image.fill(kWhite);
                QPainter painter(&image);
                TPainterCanvas canvas(painter, {0, 0, 200, 40}, {}, fonts);
                canvas.SetFont({.Name = "Sans", .Size = 11, .Color = clBlack});
                canvas.TextOut({10, 8}, text);
                return image;
            };
            const QImage first = draw();
            EXPECT_FALSE(InkOf(first).isEmpty());
            EXPECT_EQ(draw(), first) << text << " laid out";
            EXPECT_EQ(draw(), first) << text << " from the layout";
        }
    }
}

TEST(PainterCanvas, TextFitsItsExtentAndUsesTheFontsColor)
{
    const QImage image = Drawn([](TPainterCanvas &canvas) {
        canvas.SetFont({.Name = "Sans", .Size = 8, .Color = clRed});
        const TSize extent = canvas.TextExtent("Hi");
        EXPECT_GT(canvas.TextExtent("Hi there").Width, extent.Width);
        EXPECT_EQ(canvas.TextExtent("").Width, 0);
        EXPECT_EQ(canvas.TextExtent("").Height, extent.Height);
        canvas.SetPenColor(clBlue);
        canvas.Line({0, 29}, {39, 29});
        canvas.TextOut({5, 5}, "Hi");
        canvas.Line({0, 27}, {39, 27});
    });
    EXPECT_TRUE(ColorsOf(image, {0, 0, 40, 26}).count(0xFF0000FF) == 0) << "no pen colour in text";
    EXPECT_EQ(image.pixel(3, 27), 0xFF0000FF) << "no text colour in lines";
    EXPECT_GE(InkOf(image).top(), 5);
    TPainterCanvas measuring;
    measuring.SetFont({.Name = "Sans", .Size = 9});
    EXPECT_GT(measuring.TextExtent("abc").Width, 0) << "measures without a painter";
    measuring.FillRect(kBounds, clRed);
    measuring.TextOut({0, 0}, "nowhere");
}

TEST(PainterCanvas, TheHandedOutPainterMayChangePenBrushAndFont)
{
    const QImage image = Drawn([](TPainterCanvas &canvas) {
        const std::array corners{TPoint{2, 2}, TPoint{12, 2}, TPoint{12, 12}, TPoint{2, 12}};
        canvas.SetPenColor(clRed);
        canvas.SetBrushColor(clRed);
        canvas.Polygon(corners);
        QPainter *painter = canvas.Painter();
        painter->setPen(Qt::green);
        painter->setBrush(Qt::green);
        painter->setRenderHint(QPainter::Antialiasing);
        canvas.Polygon(corners);
    });
    EXPECT_EQ(ColorsOf(image, image.rect()), (std::set{kRed, kWhite}));
}

TEST(PainterCanvas, SystemColorsComeFromThePalette)
{
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(16, 32, 48));
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(kWhite);
    QPainter painter(&image);
    TPainterCanvas canvas(painter, {0, 0, 8, 8}, dark);
    EXPECT_EQ(canvas.ResolveColor(clWindow), Rgb(16, 32, 48));
    EXPECT_EQ(canvas.ResolveColor(Rgb(1, 2, 3)), Rgb(1, 2, 3));
    canvas.FillRect({0, 0, 8, 8}, clWindow);
    EXPECT_EQ(image.pixel(4, 4), qRgb(16, 32, 48));
}

TEST(PainterCanvas, ImagesAreCentredAndScaledDownButNeverUp)
{
    QPixmap pixmap(10, 6);
    pixmap.fill(Qt::red);
    TzuImageList images;
    ASSERT_EQ(images.Add(pixmap), 0);
    for (const auto &[width, index, ink] : {std::tuple(20, 0, QRect(5, 7, 10, 6)),
                                            {5, 0, {0, 8, 5, 3}},
                                            {20, 1, {}},
                                            {20, -1, {}},
                                            {0, 0, {}}}) {
        const QImage image = Drawn([&, width = width, index = index](TPainterCanvas &canvas) {
            canvas.DrawImage({0, 0, width, 20}, images, index);
        });
        EXPECT_EQ(InkOf(image), ink) << width << ' ' << index;
    }
    QPixmap fine(20, 12);
    fine.setDevicePixelRatio(2);
    EXPECT_EQ(images.ImageSize(images.Add(fine)), (TSize{10, 6}));
    EXPECT_EQ(images.Pixmap(1, {40, 40}, 2).size(), QSize(20, 12)) << "keeps its resolution";
}

TEST(PainterCanvas, VectorDevicesGetShapesAndTextAsText)
{
    QPicture picture;
    QPainter painter(&picture);
    TPainterCanvas canvas(painter, kBounds, {});
    canvas.SetBrush({clWhite, TBrushStyle::bsPattern, {clRed, clBlack, clBlack, clRed}});
    canvas.FillRect({0, 0, 10, 10});
    canvas.TextOut({0, 12}, "text");
    canvas.TextOut({0, 12}, "text");
    canvas.End();
    painter.end();
    QImage replayed(40, 30, QImage::Format_RGB32);
    replayed.fill(kWhite);
    QPainter replay(&replayed);
    replay.scale(2, 2);
    picture.play(&replay);
    EXPECT_EQ(replayed.pixel(19, 19), qRgb(128, 0, 0)) << "a fine pattern as its mean colour";
}

} // namespace
} // namespace korvane
