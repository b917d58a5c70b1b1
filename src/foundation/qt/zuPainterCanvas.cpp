#include "foundation/qt/zuPainterCanvas.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuImageList.h"

#include <QImage>
#include <QLinearGradient>
#include <QPaintEngine>
#include <QPainter>
#include <QVarLengthArray>

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvane {

namespace {

constexpr std::size_t kMaxPatterns = 16;
/// Filling copies runs of at most a tile's width, so a tile holds many repetitions.
constexpr int kTilePixels = 64;

using TPolygon = QVarLengthArray<QPointF, 32>;

/// Lines and corners run through the middles of their pixels.
TPolygon PixelMiddles(std::span<const TPoint> points)
{
    TPolygon result;
    result.reserve(static_cast<qsizetype>(points.size()));
    for (const TPoint &point : points) {
        result.append({point.X + 0.5, point.Y + 0.5});
    }
    return result;
}

bool IsStraight(std::span<const TPoint> points)
{
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (points[i - 1].X != points[i].X && points[i - 1].Y != points[i].Y) {
            return false;
        }
    }
    return true;
}

/// The colour that a fine pattern looks like from afar.
QColor Mean(const std::array<QRgb, 4> &colors)
{
    int red = 0;
    int green = 0;
    int blue = 0;
    for (const QRgb color : colors) {
        red += qRed(color);
        green += qGreen(color);
        blue += qBlue(color);
    }
    return {(red + 2) / 4, (green + 2) / 4, (blue + 2) / 4};
}

/// A brush of 2 by 2 squares. They are whole device pixels, which also keeps filling fast: the tile
/// is copied, never scaled.
QBrush Tile(const std::array<QRgb, 4> &colors, double scale)
{
    const int square = std::max(1, static_cast<int>(std::lround(scale)));
    const int size = 2 * square * std::max(1, kTilePixels / (2 * square));
    QImage tile(size, size, QImage::Format_RGB32);
    for (int y = 0; y < size; ++y) {
        auto *line = reinterpret_cast<QRgb *>(tile.scanLine(y)); // NOLINT: the format is RGB32
        for (int x = 0; x < size; ++x) {
            line[x] = colors.at(static_cast<std::size_t>(y / square % 2 * 2 + x / square % 2));
        }
    }
    QBrush result(tile);
    result.setTransform(QTransform::fromScale(1 / scale, 1 / scale));
    return result;
}

} // namespace

bool IsVectorDevice(const QPainter &painter)
{
    const QPaintEngine *engine = painter.paintEngine();
    if (engine == nullptr) {
        return false;
    }
    switch (engine->type()) {
    case QPaintEngine::Pdf:
    case QPaintEngine::SVG:
    case QPaintEngine::Picture:
    case QPaintEngine::MacPrinter:
        return true;
    default:
        return engine->type() >= QPaintEngine::User;
    }
}

double DeviceScale(const QPainter &painter)
{
    constexpr double kMaxScale = 64;
    const QTransform &transform = painter.deviceTransform();
    const double scale = transform.m11();
    const bool even = transform.type() <= QTransform::TxScale && scale == transform.m22();
    return even && scale > 0 && scale <= kMaxScale ? scale : 1;
}

TPainterCanvas::TPainterCanvas(std::shared_ptr<TCanvasFonts> fonts)
    : m_fonts(fonts ? std::move(fonts) : std::make_shared<TCanvasFonts>())
{
    m_canvasFont = m_fonts->Find(m_font);
}

TPainterCanvas::TPainterCanvas(QPainter &painter, const TRect &bounds, const QPalette &palette,
                               std::shared_ptr<TCanvasFonts> fonts)
    : TPainterCanvas(std::move(fonts))
{
    Begin(painter, bounds, palette);
}

void TPainterCanvas::Begin(QPainter &painter, const TRect &bounds, const QPalette &palette)
{
    m_painter = &painter;
    m_palette = palette;
    m_vector = IsVectorDevice(painter);
    m_scale = m_vector ? 1 : DeviceScale(painter);
    m_hairline = 0;
    m_baseClip.reset();
    m_textPage.reset();
    m_clips = {bounds};
    if (painter.hasClipping()) {
        m_baseClip = painter.clipRegion();
        m_clips.back() = bounds.Intersected(FromQt(m_baseClip->boundingRect()));
    }
    m_antialiasing = false;
    ForgetPainterState();
    m_pen = {};
    m_penColor = Resolved(m_pen.Color);
    m_brush = {};
    m_brushColor = Resolved(m_brush.Color);
    m_font = {};
    m_canvasFont = m_fonts->Find(m_font);
}

void TPainterCanvas::UseHairlines()
{
    constexpr double kPoints = 0.25;
    constexpr double kPointsPerInch = 72;
    const double scale = std::sqrt(std::abs(m_painter->deviceTransform().determinant()));
    const double dots = m_painter->device()->logicalDpiX() * kPoints / kPointsPerInch;
    m_hairline = scale > 0 ? std::max(dots, m_vector ? 0.0 : 1.0) / scale : 0;
    ForgetPainterState();
}

void TPainterCanvas::End()
{
    m_painter = nullptr;
    m_clips = {TRect()};
}

QPainter *TPainterCanvas::Painter()
{
    ForgetPainterState();
    return m_painter;
}

void TPainterCanvas::ForgetPainterState()
{
    m_penUse = TPenUse::Unknown;
    m_brushInUse = false;
    m_fontInUse = false;
    m_antialiasingInUse.reset();
}

void TPainterCanvas::SetPen(const TPen &pen)
{
    if (pen != m_pen) {
        m_pen = pen;
        m_penColor = Resolved(pen.Color);
        m_penUse = TPenUse::Unknown;
    }
}

void TPainterCanvas::SetBrush(const TBrush &brush)
{
    if (brush != m_brush) {
        m_brush = brush;
        m_brushColor = Resolved(brush.Color);
        m_brushInUse = false;
    }
}

void TPainterCanvas::SetFont(const TFont &font)
{
    if (font != m_font) {
        m_font = font;
        m_canvasFont = m_fonts->Find(font);
        m_fontInUse = false;
        m_penUse = TPenUse::Unknown;
    }
}

void TPainterCanvas::FillRect(const TRect &rect)
{
    if (!IsVisible(rect)) {
        return;
    }
    UseAntialiasing(false);
    if (m_brush.Style == TBrushStyle::bsSolid) {
        m_painter->fillRect(ToQt(rect), m_brushColor);
    } else if (m_brush.Style == TBrushStyle::bsPattern) {
        m_painter->fillRect(ToQt(rect), PatternBrush(m_brush.Pattern));
    }
}

void TPainterCanvas::FillGradient(const TRect &rect, TColor top, TColor bottom)
{
    if (!IsVisible(rect)) {
        return;
    }
    UseAntialiasing(false);
    QLinearGradient gradient(0, rect.Top, 0, rect.Bottom);
    gradient.setColorAt(0, Resolved(top));
    gradient.setColorAt(1, Resolved(bottom));
    m_painter->fillRect(ToQt(rect), gradient);
}

void TPainterCanvas::FrameRect(const TRect &rect)
{
    if (IsVisible(rect)) {
        DrawFrame(rect, m_brushColor);
    }
}

void TPainterCanvas::DrawFocusRect(const TRect &rect)
{
    if (!IsVisible(rect)) {
        return;
    }
    // Dots of both colours, so that the frame is seen on any ground.
    const TColor dot = clWindowText;
    const TColor gap = clWindow;
    DrawFrame(rect, PatternBrush({dot, gap, gap, dot}));
}

void TPainterCanvas::Polyline(std::span<const TPoint> points)
{
    if (m_painter == nullptr || points.empty() || m_pen.Style == TPenStyle::psClear) {
        return;
    }
    if (m_pen.Style == TPenStyle::psSolid && IsStraight(points)) {
        UseAntialiasing(false);
        for (std::size_t i = 0; i < points.size(); ++i) {
            DrawStraight(points[i == 0 ? 0 : i - 1], points[i]);
        }
        return;
    }
    UseAntialiasing(m_antialiasing);
    UseOutline();
    const TPolygon line = PixelMiddles(points);
    m_painter->drawPolyline(line.data(), static_cast<int>(line.size()));
}

void TPainterCanvas::Polygon(std::span<const TPoint> points)
{
    if (m_painter == nullptr || points.empty()) {
        return;
    }
    UseAntialiasing(m_antialiasing);
    UseOutline();
    UseBrush();
    const TPolygon corners = PixelMiddles(points);
    m_painter->drawPolygon(corners.data(), static_cast<int>(corners.size()));
}

void TPainterCanvas::Ellipse(const TRect &rect)
{
    if (!IsVisible(rect)) {
        return;
    }
    UseAntialiasing(m_antialiasing);
    UseOutline();
    UseBrush();
    const double inset = m_pen.Style == TPenStyle::psClear ? 0 : m_pen.Width / 2.0;
    m_painter->drawEllipse(QRectF(ToQt(rect)).adjusted(inset, inset, -inset, -inset));
}

void TPainterCanvas::TextOut(TPoint at, std::string_view text)
{
    const TRect &clip = m_clips.back();
    if (m_painter == nullptr || at.X >= clip.Right || at.Y >= clip.Bottom || text.empty()) {
        return;
    }
    // Slanted glyphs and accents may stand out of the extent, by less than its height.
    const int height = m_canvasFont->Height();
    if (at.Y + 2 * height <= clip.Top
        || (at.X + height <= clip.Left
            && at.X + m_canvasFont->Extent(text).Width + height <= clip.Left)) {
        return;
    }
    UseText();
    using TMedium = TCanvasFont::TMedium;
    const bool elsewhere = m_textPage && !m_textPage->Contains(at);
    m_canvasFont->Draw(*m_painter, at, text,
                       !m_vector   ? TMedium::Raster
                       : elsewhere ? TMedium::Shapes
                                   : TMedium::Vector);
}

void TPainterCanvas::TextRect(const TRect &clip, TPoint at, std::string_view text)
{
    if (!IsVisible(clip)) {
        return;
    }
    const TClipScope scope(*this, clip);
    TextOut(at, text);
}

TSize TPainterCanvas::TextExtent(std::string_view text) const
{
    return m_canvasFont->Extent(text);
}

void TPainterCanvas::DrawImage(const TRect &rect, const TImageList &images, int index)
{
    // Vector devices scale what they are given; this is fine enough for paper.
    constexpr double kVectorRatio = 3;
    const auto *list = dynamic_cast<const TzuImageList *>(&images);
    if (list == nullptr || !IsVisible(rect)) {
        return;
    }
    const QPixmap image =
        list->Pixmap(index, {rect.Width(), rect.Height()}, m_vector ? kVectorRatio : m_scale);
    if (!image.isNull()) {
        const QSize size = image.deviceIndependentSize().toSize();
        m_painter->drawPixmap(rect.Left + (rect.Width() - size.width()) / 2,
                              rect.Top + (rect.Height() - size.height()) / 2, image);
    }
}

void TPainterCanvas::PushClip(const TRect &rect)
{
    m_clips.push_back(m_clips.back().Intersected(rect));
    ApplyClip();
}

void TPainterCanvas::PopClip()
{
    if (m_clips.size() > 1) {
        m_clips.pop_back();
        ApplyClip();
    }
}

TColor TPainterCanvas::ResolveColor(TColor color) const
{
    return FromQt(Resolved(color));
}

QColor TPainterCanvas::Resolved(TColor color) const
{
    return ToQt(color, m_palette);
}

/// Also false without a painter.
bool TPainterCanvas::IsVisible(const TRect &rect) const
{
    return m_painter != nullptr && !rect.IsEmpty() && rect.Intersects(m_clips.back());
}

QBrush TPainterCanvas::PatternBrush(const std::array<TColor, 4> &colors)
{
    std::array<QRgb, 4> resolved{};
    std::transform(colors.begin(), colors.end(), resolved.begin(),
                   [this](TColor color) { return Resolved(color).rgb(); });
    if (m_vector) {
        return Mean(resolved);
    }
    const auto known =
        std::find_if(m_patterns.begin(), m_patterns.end(), [&](const TKnownPattern &pattern) {
            return pattern.Colors == resolved && pattern.Scale == m_scale;
        });
    if (known != m_patterns.end()) {
        return known->Brush;
    }
    if (m_patterns.size() >= kMaxPatterns) {
        m_patterns.erase(m_patterns.begin());
    }
    return m_patterns.emplace_back(TKnownPattern{resolved, m_scale, Tile(resolved, m_scale)}).Brush;
}

double TPainterCanvas::WholeWidth(int width) const
{
    constexpr double kRoundingSlack = 1e-3;
    if (m_hairline > 0 && width <= 1) {
        return m_hairline;
    }
    return m_vector ? width : std::max(1.0, std::floor(width * m_scale + kRoundingSlack)) / m_scale;
}

void TPainterCanvas::UseAntialiasing(bool on)
{
    if (m_antialiasingInUse != on) {
        m_painter->setRenderHint(QPainter::Antialiasing, on);
        m_antialiasingInUse = on;
    }
}

void TPainterCanvas::UseOutline()
{
    if (m_penUse == TPenUse::Outline) {
        return;
    }
    const double width = WholeWidth(m_pen.Width);
    QPen pen(m_penColor, m_vector ? width : width * m_scale, ToQt(m_pen.Style), Qt::SquareCap,
             Qt::MiterJoin);
    pen.setCosmetic(!m_vector);
    m_painter->setPen(pen);
    m_penUse = TPenUse::Outline;
}

void TPainterCanvas::UseBrush()
{
    if (m_brushInUse) {
        return;
    }
    switch (m_brush.Style) {
    case TBrushStyle::bsSolid:
        m_painter->setBrush(m_brushColor);
        break;
    case TBrushStyle::bsPattern:
        m_painter->setBrush(PatternBrush(m_brush.Pattern));
        break;
    case TBrushStyle::bsClear:
        m_painter->setBrush(Qt::NoBrush);
    }
    m_brushInUse = true;
}

void TPainterCanvas::UseText()
{
    if (!m_fontInUse) {
        QFont font = m_canvasFont->Font();
        if (m_vector) {
            // Any letter spacing, also one that changes nothing, keeps letters apart that would be
            // one glyph: readers of a document look for "fi" in vain where it is one.
            font.setLetterSpacing(QFont::PercentageSpacing, 100);
        }
        m_painter->setFont(font);
        m_fontInUse = true;
    }
    if (m_penUse != TPenUse::Text) {
        m_painter->setPen(Resolved(m_font.Color));
        m_penUse = TPenUse::Text;
    }
}

void TPainterCanvas::ApplyClip()
{
    if (m_painter == nullptr) {
        return;
    }
    const QRect clip = ToQt(m_clips.back());
    if (m_baseClip) {
        m_painter->setClipRegion(m_baseClip->intersected(clip));
    } else if (m_clips.size() == 1) {
        m_painter->setClipping(false);
    } else {
        m_painter->setClipRect(clip);
    }
}

/// Four bars, which is twice as fast as an outline and sharp at any scale.
void TPainterCanvas::DrawFrame(const TRect &rect, const QBrush &brush)
{
    UseAntialiasing(false);
    const double thickness = WholeWidth(1);
    const QRectF outer(ToQt(rect));
    const double innerHeight = outer.height() - 2 * thickness;
    const QRectF top(outer.left(), outer.top(), outer.width(), thickness);
    const QRectF left(outer.left(), outer.top() + thickness, thickness, innerHeight);
    m_painter->fillRect(top, brush);
    m_painter->fillRect(top.translated(0, outer.height() - thickness), brush);
    if (innerHeight > 0) {
        m_painter->fillRect(left, brush);
        m_painter->fillRect(left.translated(outer.width() - thickness, 0), brush);
    }
}

/// A horizontal or vertical stretch of a solid line as a bar, both ends included.
void TPainterCanvas::DrawStraight(TPoint from, TPoint to)
{
    const auto [left, right] = std::minmax(from.X, to.X);
    const auto [top, bottom] = std::minmax(from.Y, to.Y);
    const double thickness = WholeWidth(m_pen.Width);
    const int before = m_pen.Width / 2;
    m_painter->fillRect(
        QRectF(left - before, top - before, right - left + thickness, bottom - top + thickness),
        m_penColor);
}

} // namespace korvane
