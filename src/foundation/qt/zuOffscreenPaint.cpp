#include "foundation/qt/zuOffscreenPaint.h"

#include "foundation/qt/zuConvert.h"
#include "foundation/qt/zuSignalTiesImpl.h"
#include "foundation/qt/zuToolkit.h"
#include "foundation/zuReport.h"
#include "foundation/zuRound.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QFontInfo>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QScopeGuard>

#include <cmath>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace korvane {

TzuOffscreenPaint::TzuOffscreenPaint(QWidget *parent)
    : QFrame(parent)
    , m_fonts(std::make_shared<TCanvasFonts>(logicalDpiY()))
    , m_offscreenCanvas(m_fonts)
    , m_directCanvas(m_fonts)
{
    InstallToolkitServices();
    const auto tie = [this](auto &event, auto signal) { m_signals.Tie(event, *this, signal); };
    tie(OnClick, &TzuOffscreenPaint::clicked);
    tie(OnDblClick, &TzuOffscreenPaint::doubleClicked);
    tie(OnMouseDown, &TzuOffscreenPaint::mousePressed);
    tie(OnMouseMove, &TzuOffscreenPaint::mouseMoved);
    tie(OnMouseUp, &TzuOffscreenPaint::mouseReleased);
    tie(OnEnter, &TzuOffscreenPaint::focusEntered);
    tie(OnExit, &TzuOffscreenPaint::focusLeft);
    tie(OnResize, &TzuOffscreenPaint::resized);
    tie(OnDragOver, &TzuOffscreenPaint::draggedOver);
    tie(OnDragDrop, &TzuOffscreenPaint::dropped);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_offscreenCanvas.SetFont(Font());
}

TzuOffscreenPaint::~TzuOffscreenPaint() = default;

void TzuOffscreenPaint::SetColor(TColor value)
{
    if (value != m_color) {
        m_color = value;
        Invalidate();
    }
}

void TzuOffscreenPaint::SetColor(const QColor &value)
{
    SetColor(FromQt(value));
}

QColor TzuOffscreenPaint::ColorAsQColor() const
{
    return ToQt(m_color, palette());
}

TFont TzuOffscreenPaint::Font() const
{
    TFont base;
    base.Color = m_fontColor;
    base.Size = QFontInfo(font()).pointSize();
    return FromQt(font(), base);
}

void TzuOffscreenPaint::SetFont(const TFont &value)
{
    if (value != Font()) {
        m_fontColor = value.Color;
        setFont(ToQt(value));
        Invalidate();
    }
}

void TzuOffscreenPaint::SetTabStop(bool value)
{
    setFocusPolicy(value ? Qt::StrongFocus : Qt::NoFocus);
}

void TzuOffscreenPaint::SetSizeDontTell(const TRect &bounds)
{
    // A hidden widget would be told when it is shown.
    const bool resizePending = testAttribute(Qt::WA_PendingResizeEvent);
    const bool movePending = testAttribute(Qt::WA_PendingMoveEvent);
    m_resizeSilently = true;
    setGeometry(ToQt(bounds));
    m_resizeSilently = false;
    setAttribute(Qt::WA_PendingResizeEvent, resizePending);
    setAttribute(Qt::WA_PendingMoveEvent, movePending);
}

void TzuOffscreenPaint::Invalidate()
{
    if (++m_pendingInvalidates == 1) {
        update();
    }
}

void TzuOffscreenPaint::Repaint()
{
    if (m_updateCount == 0) {
        repaint();
    }
}

void TzuOffscreenPaint::InvalidateOverlay(const TRect &area)
{
    const QRect region = ToQt(area).intersected(rect());
    m_pendingOverlay += region;
    update(region);
}

void TzuOffscreenPaint::InvalidateMoved(const TRect &area)
{
    if (m_updateCount > 0) {
        Invalidate();
        return;
    }
    m_pendingMove = true;
    InvalidateOverlay(area);
}

void TzuOffscreenPaint::BeginUpdate()
{
    ++m_updateCount;
}

void TzuOffscreenPaint::EndUpdate()
{
    if (--m_updateCount < 1) {
        m_updateCount = 0;
        Invalidate();
    }
}

TPainterCanvas &TzuOffscreenPaint::GetOffscreenCanvas()
{
    return GetIsPrinting() && m_printingCanvas ? *m_printingCanvas : m_offscreenCanvas;
}

const TPainterCanvas &TzuOffscreenPaint::GetOffscreenCanvas() const
{
    return GetIsPrinting() && m_printingCanvas ? *m_printingCanvas : m_offscreenCanvas;
}

void TzuOffscreenPaint::Print(QPainter &device, int x, int y, double scaleX, double scaleY)
{
    if (!device.isActive()) {
        throw std::invalid_argument("The print device is not active");
    }
    const double width = Width() * scaleX;
    const double height = Height() * scaleY;
    m_printScaleX = scaleX;
    m_printScaleY = scaleY;
    const auto sizeBefore =
        std::exchange(m_printSize, TSize{RoundToPixel(width + this->x()) - this->x(),
                                         RoundToPixel(height + this->y()) - this->y()});
    auto canvasBefore = std::exchange(m_printingCanvas, std::make_unique<TPainterCanvas>(m_fonts));
    BeginPrint();
    device.save();
    const QPointer<TzuOffscreenPaint> self(this); // OnAfterPrint may destroy the control
    const auto cleanUp = qScopeGuard([&] {
        device.restore();
        if (!self.isNull()) {
            EndPrint();
            m_printingCanvas = std::move(canvasBefore);
            m_printSize = sizeBefore;
            Invalidate();
        }
    });
    device.translate(x, y);
    device.setClipRect(QRect(0, 0, RoundToPixel(width + x) - x, RoundToPixel(height + y) - y),
                       device.hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
    m_printingCanvas->Begin(device, ClientArea(), palette());
    m_printingCanvas->UseHairlines();
    OffscreenPaint();
    device.setClipping(false);
    OnAfterPrint(this);
}

void TzuOffscreenPaint::PrintResizeFont()
{
    if (!GetIsPrinting()) {
        return;
    }
    TCanvas &canvas = GetOffscreenCanvas();
    TFont font = canvas.Font();
    int fontSize = font.Size;
    bool defaultResize = true;
    OnPrintResizeFont(this, fontSize, defaultResize);
    if (!defaultResize) {
        font.Size = fontSize;
    } else if (m_printScaleX > 1.0) {
        font.Size = RoundToPixel((m_printScaleX * 0.5 + 1.0) * fontSize);
    }
    canvas.SetFont(font);
}

void TzuOffscreenPaint::OffscreenPaint()
{
    OnPaint(this);
}

void TzuOffscreenPaint::OverlayPaint(TCanvas &canvas)
{
    OnOverlayPaint(this, canvas);
}

void TzuOffscreenPaint::SetReserved(int right, int bottom)
{
    if (right != m_reservedRight || bottom != m_reservedBottom) {
        m_reservedRight = right;
        m_reservedBottom = bottom;
        Invalidate();
    }
}

void TzuOffscreenPaint::paintEvent(QPaintEvent *event)
{
    QPainter window(this);
    try {
        // What lies below the scroll bars is nobody's to paint.
        const QRect content = UnreservedRect();
        const QRegion region = event->region().intersected(content);
        if (!region.isEmpty() || m_pendingInvalidates > 0) {
            Paint(window, region);
        } else {
            BeginCanvas(m_directCanvas, window);
            FillReservedCorner();
            m_directCanvas.End();
        }
        m_lastPaintError.clear();
    } catch (const std::exception &error) {
        // The event loop cannot carry exceptions, and every paint would tell the same again.
        if (std::exchange(m_lastPaintError, error.what()) != error.what()) {
            Report(m_lastPaintError);
        }
    }
}

void TzuOffscreenPaint::Paint(QPainter &window, const QRegion &region)
{
    const double ratio = DeviceScale(window);
    const bool moves = std::exchange(m_pendingMove, false);
    bool keepImage = OnlyOverlayChanged(region, ratio);
    std::optional<TImageMove> move;
    if (keepImage && moves) {
        move = KeepImage();
        keepImage = move && m_image.size() == ImageSize(ratio) && MoveImage(*move);
    }
    const auto end = qScopeGuard([this] {
        m_offscreenCanvas.End();
        m_directCanvas.End();
    });
    m_pendingOverlay = {};
    BeginCanvas(m_directCanvas, window);
    if (keepImage && move) {
        PaintImage(move->Anew);
    } else if (keepImage) {
        SmashPaint();
    } else {
        m_pendingInvalidates = 0;
        QElapsedTimer timer;
        timer.start();
        if (!IsVectorDevice(window) && UpdateOffscreenCanvas(ratio)) {
            PaintImage();
        } else {
            PaintDirectly(window);
        }
        if (m_measurePaintTime) {
            DrawPaintTime(timer.nsecsElapsed());
        }
    }
    BeginCanvas(m_directCanvas, window);
    OverlayPaint(m_directCanvas);
    if (frameWidth() > 0) {
        drawFrame(m_directCanvas.Painter());
    }
}

/// Whether the image still shows what it has to. A paint that the window system asks for at the
/// same time does no harm: the image is whole.
bool TzuOffscreenPaint::OnlyOverlayChanged(const QRegion &region, double ratio) const
{
    return m_pendingInvalidates == 0 && !m_pendingOverlay.isEmpty()
           && region.subtracted(m_pendingOverlay).isEmpty() && m_image.size() == ImageSize(ratio)
           && m_image.devicePixelRatio() == ratio;
}

QSize TzuOffscreenPaint::ImageSize(double ratio) const
{
    return {static_cast<int>(std::ceil(width() * ratio)),
            static_cast<int>(std::ceil(height() * ratio))};
}

/// Fits the image to the control and fills it. False when there is no room or no memory for it.
bool TzuOffscreenPaint::UpdateOffscreenCanvas(double ratio)
{
    const QSize size = ImageSize(ratio);
    if (m_image.size() != size) {
        m_image = QImage(size, QImage::Format_ARGB32_Premultiplied);
    }
    if (m_image.isNull()) {
        return false;
    }
    m_image.setDevicePixelRatio(ratio);
    m_image.fill(ToQt(m_color, palette()));
    return true;
}

/// Draws the image and copies it to the window.
void TzuOffscreenPaint::PaintImage()
{
    QPainter painter(&m_image);
    BeginCanvas(m_offscreenCanvas, painter);
    const auto show = qScopeGuard([&] { // what has been drawn, also when painting throws
        m_offscreenCanvas.End();
        painter.end();
        SmashPaint();
    });
    OffscreenPaint();
}

/// Draws parts of the image anew and copies it to the window.
void TzuOffscreenPaint::PaintImage(const std::vector<TRect> &parts)
{
    QPainter painter(&m_image);
    BeginCanvas(m_offscreenCanvas, painter);
    const auto show = qScopeGuard([&] {
        m_offscreenCanvas.End();
        painter.end();
        SmashPaint();
    });
    for (const TRect &part : parts) {
        const TClipScope clip(m_offscreenCanvas, part);
        m_offscreenCanvas.SetFont(Font());
        m_offscreenCanvas.FillRect(part, m_color);
        OffscreenPaint();
    }
}

/// False when the pixels of the device do not come to lie on each other.
bool TzuOffscreenPaint::MoveImage(const TImageMove &move)
{
    const double ratio = m_image.devicePixelRatio();
    const auto whole = [](double value) { return value == std::floor(value); };
    const double byX = move.By.X * ratio;
    const double byY = move.By.Y * ratio;
    const TRect &area = move.Area;
    if (!whole(byX) || !whole(byY) || !whole(area.Left * ratio) || !whole(area.Top * ratio)) {
        return false;
    }
    const auto pixels = [ratio](int value) { return static_cast<int>(std::floor(value * ratio)); };
    const QRect from = QRect(QPoint(pixels(area.Left), pixels(area.Top)),
                             QPoint(pixels(area.Right) - 1, pixels(area.Bottom) - 1))
                           .intersected(m_image.rect());
    const QPoint by(static_cast<int>(byX), static_cast<int>(byY));
    const QRect to = from.translated(by).intersected(from);
    const std::size_t length = static_cast<std::size_t>(to.width()) * sizeof(QRgb);
    for (int i = 0; i < to.height() && to.width() > 0; ++i) {
        const int y = by.y() > 0 ? to.bottom() - i : to.top() + i; // behind what is still read
        std::memmove(m_image.scanLine(y) + to.left() * std::ptrdiff_t{sizeof(QRgb)},
                     m_image.constScanLine(y - by.y())
                         + (to.left() - by.x()) * std::ptrdiff_t{sizeof(QRgb)},
                     length);
    }
    return true;
}

/// For devices that keep shapes, which an image would spoil.
void TzuOffscreenPaint::PaintDirectly(QPainter &device)
{
    device.save();
    const auto restore = qScopeGuard([&] {
        m_offscreenCanvas.End();
        device.restore();
        FillReservedCorner();
    });
    device.setClipRect(UnreservedRect(),
                       device.hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
    BeginCanvas(m_offscreenCanvas, device);
    m_offscreenCanvas.FillRect(ClientArea());
    OffscreenPaint();
}

void TzuOffscreenPaint::BeginCanvas(TPainterCanvas &canvas, QPainter &painter)
{
    m_fonts->SetDotsPerInch(logicalDpiY());
    canvas.Begin(painter, ClientArea(), palette());
    canvas.SetFont(Font());
    canvas.SetBrushColor(m_color);
}

void TzuOffscreenPaint::SmashPaint()
{
    // In device pixels, so that the copy is a plain one at any device-pixel ratio.
    QPainter *window = m_directCanvas.Painter();
    const double ratio = m_image.devicePixelRatio();
    m_image.setDevicePixelRatio(1);
    const QTransform transform = window->transform();
    window->scale(1 / ratio, 1 / ratio);
    window->setCompositionMode(QPainter::CompositionMode_Source);
    const QRect content = UnreservedRect();
    const int left = static_cast<int>(std::floor(content.left() * ratio));
    window->drawImage(left, 0, m_image, left, 0,
                      static_cast<int>(std::ceil((content.left() + content.width()) * ratio))
                          - left,
                      static_cast<int>(std::ceil(content.height() * ratio)));
    window->setCompositionMode(QPainter::CompositionMode_SourceOver);
    window->setTransform(transform);
    m_image.setDevicePixelRatio(ratio);
    FillReservedCorner();
}

QRect TzuOffscreenPaint::UnreservedRect() const
{
    return {isRightToLeft() ? m_reservedRight : 0, 0, width() - m_reservedRight,
            height() - m_reservedBottom};
}

void TzuOffscreenPaint::FillReservedCorner()
{
    if (m_reservedRight >= 1 && m_reservedBottom >= 1) {
        const TBrush brush = m_directCanvas.Brush();
        const int left = isRightToLeft() ? 0 : width() - m_reservedRight;
        m_directCanvas.FillRect(
            {left, height() - m_reservedBottom, left + m_reservedRight, height()}, clBtnFace);
        m_directCanvas.SetBrush(brush);
    }
}

void TzuOffscreenPaint::DrawPaintTime(std::int64_t ticks)
{
    constexpr TPoint kAt{10, 10};
    m_paintTicksTotal += ticks;
    ++m_paintCount;
    const double average = static_cast<double>(m_paintTicksTotal) / m_paintCount;
    const std::string text = FromQt(QString::number(average, 'g', 15));
    TFont font = m_directCanvas.Font();
    font.Color = clWhite;
    m_directCanvas.SetFont(font);
    const TSize size = m_directCanvas.TextExtent(text);
    m_directCanvas.FillRect({kAt.X, kAt.Y, kAt.X + size.Width, kAt.Y + size.Height}, clBlack);
    m_directCanvas.TextOut(kAt, text);
}

void TzuOffscreenPaint::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
        if (!m_offscreenCanvas.IsActive()) {
            m_offscreenCanvas.SetFont(Font());
        }
        [[fallthrough]];
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
    case QEvent::EnabledChange:
    case QEvent::ActivationChange:
        Invalidate();
        break;
    default:
        break;
    }
}

} // namespace korvane
